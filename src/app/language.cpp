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

// The font reads the same value through GetProductLanguage: there an absent value is an empty text,
// here it means English.
QString TranslationLanguage()
{
    return ReadNativeSetting(QStringLiteral(R"(SOFTWARE\Torvan\KTR)"),
                             QStringLiteral("Language"),
                             QStringLiteral("English"));
}

QString TranslationFile(const QString &language)
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/translations/ktr_") +
           language + QStringLiteral(".qm");
}

} // namespace

void ApplyApplicationFont()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(14);
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
    // load() fails for a damaged file; installing the empty translator changes nothing.
    translator->load(file);
    QCoreApplication::installTranslator(translator);
    // installTranslator() applies the layout direction of the file; set ours again.
    QGuiApplication::setLayoutDirection(direction);
    engine->retranslate();
}
