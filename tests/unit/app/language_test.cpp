#include "app/language.h"
#include "tests/unit/platform/support/registry_values.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QTranslator>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

constexpr const char *kProduct = "Software\\TORVAN\\KTR";

/// The program's translations, and the font and the text direction of the application.
class Language : public testing::Test
{
protected:
    Language()
    {
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }
    ~Language() override
    {
        QCoreApplication::removeTranslator(&translator_);
        QGuiApplication::setFont(font_);
        QDir(Translations()).removeRecursively();
    }
    Language(const Language &) = delete;
    Language &operator=(const Language &) = delete;

    static void Set(const std::string &language)
    {
        contract::RegistryValues::SetText(kProduct, "Language", language);
    }

    static QString Translations()
    {
        return QCoreApplication::applicationDirPath() + "/translations";
    }

    static void Provide(const QString &name, const QString &file = KTR_TEST_TRANSLATION)
    {
        const QString path = Translations() + '/' + name;
        QDir().mkpath(QFileInfo(path).path());
        ASSERT_TRUE(QFile::copy(file, path));
    }

    // Loads the translation; returns what the interface then shows for a text.
    QString Shown()
    {
        LoadTranslation(&translator_, &engine_);
        return QCoreApplication::translate("HomePage", "Uninstall");
    }

    // A text of the interface, which counts how often it was looked up.
    std::unique_ptr<QObject> MakeText()
    {
        QQmlComponent component(&engine_);
        component.setData("import QtQml 2.14; QtObject { property var count: ({n: 0})\n"
                          "property int asked\n"
                          "property string t: { count.n += 1; asked = count.n; "
                          "return qsTranslate(\"HomePage\", \"Uninstall\") } }",
                          QUrl());
        std::unique_ptr<QObject> object(component.create());
        EXPECT_NE(object, nullptr) << component.errorString().toStdString();
        return object;
    }

    const QFont font_ = QGuiApplication::font();
    contract::RegistryValues values_;
    QTranslator translator_;
    QQmlApplicationEngine engine_;
};

struct Font
{
    std::string language;
    const char *family;
};

TEST_F(Language, DecidesTheFamilyOfTheFont)
{
    const auto expect = [this](const Font &expected) {
        ApplyApplicationFont();
        EXPECT_EQ(QGuiApplication::font().family(), expected.family) << expected.language;
        EXPECT_EQ(QGuiApplication::font().pixelSize(), 14);
        EXPECT_EQ(QGuiApplication::font().weight(), font_.weight());
    };
    expect({"no value", "Segoe UI"});
    for (const Font &expected : {Font{"ChineseSimp", "Microsoft YaHei"},
                                 {"chinesesimp", "Segoe UI"},
                                 {"ChineseSimp ", "Segoe UI"},
                                 {"ChineseTrad", "Segoe UI"},
                                 {"Arabic", "Segoe UI"},
                                 {"English", "Segoe UI"},
                                 {"", "Segoe UI"},
                                 // Longer than the 260 bytes that GetProductLanguage reads
                                 {std::string(300, 'x'), "Segoe UI"}}) {
        Set(expected.language);
        expect(expected);
    }
}

TEST_F(Language, OnlyArabicRunsFromRightToLeft)
{
    for (const char *language : {"arabic", "ARABIC", "Arabic ", "Hebrew", "English", ""}) {
        Set(language);
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        LoadTranslation(&translator_, &engine_);
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight) << language;
    }
    Set("Arabic"); // without a translation
    LoadTranslation(&translator_, &engine_);
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
}

// installTranslator() applies the layout direction of the file, which must not win.
TEST_F(Language, ArabicRunsFromRightToLeftAlsoWithItsTranslation)
{
    Set("Arabic");
    Provide("ktr_Arabic.qm");
    LoadTranslation(nullptr, &engine_); // does nothing
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(QCoreApplication::translate("HomePage", "Uninstall"), "Uninstall");
    EXPECT_EQ(Shown(), "translated");
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
}

TEST_F(Language, WithoutAFileTheSourceTextsStayAndAreNotLookedUpAgain)
{
    const auto text = MakeText();
    Provide("ktr_English.qm");
    for (const std::string &language : {std::string("Klingon"), std::string(5000, 'x')}) {
        Set(language);
        EXPECT_EQ(Shown(), "Uninstall");
        EXPECT_TRUE(translator_.isEmpty());
    }
    EXPECT_EQ(text->property("asked").toInt(), 1);
}

TEST_F(Language, AnAbsentKeyOrValueMeansEnglishTexts)
{
    Provide("ktr_English.qm");
    EXPECT_EQ(Shown(), "translated");
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    QCoreApplication::removeTranslator(&translator_);
    contract::RegistryValues::Create(kProduct);
    EXPECT_EQ(Shown(), "translated");
}

TEST_F(Language, AnEmptyValueSelectsTheFileWithoutALanguageName)
{
    Set("");
    Provide("ktr_English.qm");
    EXPECT_EQ(Shown(), "Uninstall");
    Provide("ktr_.qm");
    EXPECT_EQ(Shown(), "translated");
}

TEST_F(Language, ALongNameIsReadInFull)
{
    // Longer than MAX_PATH, and longer than one file name may be.
    const std::string name = std::string(200, 'x') + "/" + std::string(100, 'y');
    Set(name);
    Provide("ktr_" + QString::fromStdString(name) + ".qm");
    EXPECT_EQ(Shown(), "translated");
}

TEST_F(Language, ADamagedFileIsInstalledAllTheSame)
{
    Set("Klingon");
    Provide("ktr_Klingon.qm", QCoreApplication::applicationFilePath());
    const auto text = MakeText();
    EXPECT_EQ(Shown(), "Uninstall");
    EXPECT_TRUE(QCoreApplication::removeTranslator(&translator_)) << "it was installed";
    EXPECT_EQ(text->property("asked").toInt(), 2) << "what is shown was looked up again";
}

TEST_F(Language, LoadingTranslatesTextsThatAreAlreadyShown)
{
    Set("Klingon");
    Provide("ktr_Klingon.qm");
    const auto text = MakeText();
    EXPECT_EQ(text->property("t").toString(), "Uninstall");
    LoadTranslation(&translator_, &engine_);
    EXPECT_EQ(text->property("t").toString(), "translated");
}

} // namespace
