#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QObject>
#include <QRawFont>
#include <QTextLayout>
#include <QTranslator>
#include <QVariantList>

#include <algorithm>

/// Switches the language of the interface, as `languages` in QML: components created afterwards use
/// the new language.
class LanguageSwitch : public QObject
{
    Q_OBJECT
    /// The rows of translations/languages.csv, each as a map with the column titles as keys; empty
    /// when the file cannot be read.
    Q_PROPERTY(QVariantList table READ table CONSTANT)

public:
    /// Switches to the language of a row of the table: loads the translation from the folder in
    /// KTR_TRANSLATIONS (by default the build's), sets the layout direction, and adds its font as
    /// the fallback. False when there is no such translation.
    Q_INVOKABLE bool switchTo(const QVariantMap &row)
    {
        switchBack();
        QString folder = qEnvironmentVariable("KTR_TRANSLATIONS");
        if (folder.isEmpty()) {
            folder = QStringLiteral(KTR_TRANSLATIONS);
        }
        const QString name = row.value(QStringLiteral("name")).toString();
        if (!translator_.load(folder + QStringLiteral("/ktr_") + name + QStringLiteral(".qm"))) {
            return false;
        }
        QCoreApplication::installTranslator(&translator_);
        const QString layout = row.value(QStringLiteral("layout")).toString();
        QGuiApplication::setLayoutDirection(
            layout == QLatin1String("right-to-left") ? Qt::RightToLeft : Qt::LeftToRight);
        // Chinese, Japanese and Korean share characters, each with glyphs of its own.
        QFont font = QGuiApplication::font();
        font.setFamilies(
            {QStringLiteral("Open Sans"), row.value(QStringLiteral("font")).toString()});
        QGuiApplication::setFont(font);
        return true;
    }

    /// Switches back to the source texts.
    Q_INVOKABLE void switchBack()
    {
        QCoreApplication::removeTranslator(&translator_);
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }

    /// The characters of a text for which neither its font nor a fallback has a glyph.
    Q_INVOKABLE QString withoutGlyph(const QString &text, const QFont &font) const
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

    QVariantList table() const
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

private:
    // Glyph 0 of a font is the box for a missing glyph.
    static bool HasGlyphs(const QString &character, const QFont &font)
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

    QTranslator translator_;
};
