#include "app/language.h"

#include "app/native_settings.h"
#include "services/product/product_facts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QTranslator>

namespace {

constexpr int kPixelSize = 14;

// Not the way in which the font reads it: an unknown language has no font of its own, but it has
// the English texts.
QString TranslationLanguage()
{
    QString path =
        QStringLiteral("HKEY_LOCAL_MACHINE/SOFTWARE/Torvan/%1").arg(QLatin1String("KTR"));
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return ReadNativeSetting(path, QStringLiteral("Language"), QStringLiteral("English"));
}

QString TranslationFile(const QString &language)
{
    return QCoreApplication::applicationDirPath() +
           QStringLiteral("/translations/%1_").arg(QLatin1String("ktr")) + language +
           QStringLiteral(".qm");
}

} // namespace

void ApplyApplicationFont()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(kPixelSize);
    const bool chinese = GetProductLanguage() == "ChineseSimp";
    font.setFamily(chinese ? QStringLiteral("Microsoft YaHei") : QStringLiteral("Segoe UI"));
    QGuiApplication::setFont(font);
}

void LoadTranslation(QTranslator *translator, QQmlApplicationEngine *engine)
{
    if (translator == nullptr) {
        return;
    }
    const QString language = TranslationLanguage();
    const Qt::LayoutDirection direction =
        language == QLatin1String("Arabic") ? Qt::RightToLeft : Qt::LeftToRight;
    QGuiApplication::setLayoutDirection(direction);
    const QString file = TranslationFile(language);
    if (!QFileInfo::exists(file)) {
        return;
    }
    // A damaged file is installed like any other: it translates nothing.
    translator->load(file);
    QCoreApplication::installTranslator(translator);
    // Again: a new translation makes the application take the direction that the file names.
    QGuiApplication::setLayoutDirection(direction);
    engine->retranslate();
}
