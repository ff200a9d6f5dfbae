#include "language_switch.h"

#include <QCoreApplication>
#include <QFile>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>

namespace {

// Every run of the text as it would be drawn consists of glyphs; number 0 is the box for a missing
// one.
bool HasGlyphs(const QString &character, const QFont &font)
{
    QTextLayout layout(character, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return std::none_of(runs.begin(), runs.end(), [](const QGlyphRun &run) {
        return run.glyphIndexes().contains(0);
    });
}

} // namespace

bool LanguageSwitch::speak(const QVariantMap &row)
{
    speakSource();
    QString folder = qEnvironmentVariable("KTR_TRANSLATIONS");
    if (folder.isEmpty()) {
        folder = QStringLiteral(KTR_TRANSLATIONS);
    }
    const QString name = row.value(QStringLiteral("name")).toString();
    if (!m_translator.load(folder + QStringLiteral("/ktr_") + name + QStringLiteral(".qm"))) {
        return false;
    }
    QCoreApplication::installTranslator(&m_translator);
    const bool rightToLeft = row.value(QStringLiteral("layout")) == QLatin1String("right-to-left");
    QGuiApplication::setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    // Chinese, Japanese and Korean share characters that each draws in its own way.
    QFont font = QGuiApplication::font();
    font.setFamilies({QStringLiteral("Open Sans"), row.value(QStringLiteral("font")).toString()});
    QGuiApplication::setFont(font);
    return true;
}

void LanguageSwitch::speakSource()
{
    QCoreApplication::removeTranslator(&m_translator);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

QString LanguageSwitch::withoutGlyph(const QString &text, const QFont &font) const
{
    QString missing;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        const QString alone = QString::fromUcs4(&character, 1);
        if (!alone.at(0).isSpace() && !HasGlyphs(alone, font)) {
            missing += alone;
        }
    }
    return missing;
}

QVariantList LanguageSwitch::table() const
{
    QFile file(QStringLiteral(KTR_LANGUAGES));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QStringList lines =
        QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList columns = lines.value(0).split(QLatin1Char(','));
    QVariantList rows;
    for (const QString &line : lines.mid(1)) {
        const QStringList fields = line.split(QLatin1Char(','));
        QVariantMap row;
        for (int column = 0; column < columns.size(); ++column) {
            row.insert(columns.at(column), fields.value(column));
        }
        rows.append(row);
    }
    return rows;
}
