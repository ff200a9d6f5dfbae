#include "app/language.h"
#include "tests/unit/platform/support/registry_values.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
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

class Language : public testing::Test
{
protected:
    Language()
        : font(QGuiApplication::font())
    {
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }
    ~Language() override
    {
        QCoreApplication::removeTranslator(&translator);
        QGuiApplication::setFont(font);
        QDir(Translations()).removeRecursively();
    }
    Language(const Language &) = delete;
    Language &operator=(const Language &) = delete;
    Language(Language &&) = delete;
    Language &operator=(Language &&) = delete;

    void Set(const char *language)
    {
        values.SetText(kProduct, "Language", language);
    }

    static QString Translations()
    {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    }

    static void Provide(const QString &name)
    {
        QDir().mkpath(Translations());
        ASSERT_TRUE(QFile::copy(QStringLiteral(KTR_TEST_TRANSLATION),
                                Translations() + QLatin1Char('/') + name));
    }

    // What the interface shows for a text after the translation was loaded.
    QString Shown()
    {
        return QCoreApplication::translate("HomePage", "Uninstall");
    }

    // A text of the interface, which counts how often it was looked up.
    std::unique_ptr<QObject> MakeText()
    {
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.14; QtObject { property var count: ({n: 0})\n"
                          "property int asked\n"
                          "property string t: { count.n += 1; asked = count.n; "
                          "return qsTranslate(\"HomePage\", \"Uninstall\") } }",
                          QUrl());
        std::unique_ptr<QObject> object(component.create());
        EXPECT_NE(object, nullptr) << component.errorString().toStdString();
        return object;
    }

    QFont font;
    contract::RegistryValues values;
    QTranslator translator;
    QQmlApplicationEngine engine;
};

struct Font
{
    const char *language;
    const char *family;
};

TEST_F(Language, DecidesTheFamilyOfTheFont)
{
    for (const Font &expected : {Font{"ChineseSimp", "Microsoft YaHei"},
                                 Font{"chinesesimp", "Segoe UI"},
                                 Font{"ChineseSimp ", "Segoe UI"},
                                 Font{"ChineseTrad", "Segoe UI"},
                                 Font{"Arabic", "Segoe UI"},
                                 Font{"English", "Segoe UI"},
                                 Font{"", "Segoe UI"}}) {
        Set(expected.language);
        ApplyApplicationFont();
        EXPECT_EQ(QGuiApplication::font().family(), QString::fromLatin1(expected.family))
            << expected.language;
        EXPECT_EQ(QGuiApplication::font().pixelSize(), 14);
    }
}

TEST_F(Language, WithoutAValueTheFontIsTheCommonOne)
{
    ApplyApplicationFont();
    EXPECT_EQ(QGuiApplication::font().family(), QStringLiteral("Segoe UI"));
    EXPECT_EQ(QGuiApplication::font().pixelSize(), 14);
    EXPECT_EQ(QGuiApplication::font().weight(), font.weight());
}

TEST_F(Language, OnlyArabicRunsFromRightToLeft)
{
    for (const char *language : {"arabic", "ARABIC", "Arabic ", "Hebrew", "English", ""}) {
        Set(language);
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        LoadTranslation(&translator, &engine);
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight) << language;
    }
    Set("Arabic"); // without a translation
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
}

// Installing a translation makes the application look for a direction in it.
TEST_F(Language, ArabicRunsFromRightToLeftAlsoWithItsTranslation)
{
    Set("Arabic");
    Provide(QStringLiteral("ktr_Arabic.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("translated"));
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
}

TEST_F(Language, WithoutATranslatorNothingHappens)
{
    Set("Arabic");
    Provide(QStringLiteral("ktr_Arabic.qm"));
    LoadTranslation(nullptr, &engine);
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(Shown(), QStringLiteral("Uninstall"));
}

TEST_F(Language, LoadsTheTranslationOfItsName)
{
    Set("Klingon");
    Provide(QStringLiteral("ktr_Klingon.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("translated"));
}

TEST_F(Language, WithoutAFileTheSourceTextsStay)
{
    Set("Klingon");
    Provide(QStringLiteral("ktr_English.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("Uninstall"));
    EXPECT_TRUE(translator.isEmpty());
}

TEST_F(Language, AnAbsentValueMeansEnglishTexts)
{
    Provide(QStringLiteral("ktr_English.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("translated"));
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

TEST_F(Language, AKeyWithoutTheValueMeansEnglishTextsToo)
{
    values.Create(kProduct);
    Provide(QStringLiteral("ktr_English.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("translated"));
}

TEST_F(Language, AnEmptyValueIsAnEmptyName)
{
    Set("");
    Provide(QStringLiteral("ktr_English.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("Uninstall"));
    Provide(QStringLiteral("ktr_.qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("translated"));
}

TEST_F(Language, ALongNameIsReadInFull)
{
    // More than the font's way of reading holds, and than one file name would.
    const std::string name = std::string(200, 'x') + "/" + std::string(100, 'y');
    Set(name.c_str());
    ApplyApplicationFont();
    EXPECT_EQ(QGuiApplication::font().family(), QStringLiteral("Segoe UI"));
    QDir().mkpath(Translations() + QStringLiteral("/ktr_") + QString(200, QLatin1Char('x')));
    Provide(QStringLiteral("ktr_") + QString::fromStdString(name) + QStringLiteral(".qm"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("translated"));
}

TEST_F(Language, ALongNameWithoutAFileIsNoFault)
{
    Set(std::string(5000, 'x').c_str());
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("Uninstall"));
}

TEST_F(Language, ADamagedFileIsInstalledAllTheSame)
{
    Set("Klingon");
    QDir().mkpath(Translations());
    QFile damaged(Translations() + QStringLiteral("/ktr_Klingon.qm"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("no translation");
    damaged.close();
    const auto text = MakeText();
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(Shown(), QStringLiteral("Uninstall"));
    EXPECT_TRUE(QCoreApplication::removeTranslator(&translator)) << "it was installed";
    EXPECT_EQ(text->property("asked").toInt(), 2) << "what is shown was looked up anew";
}

TEST_F(Language, WithoutAFileNothingIsLookedUpAnew)
{
    Set("Klingon");
    const auto text = MakeText();
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(text->property("asked").toInt(), 1);
}

TEST_F(Language, WhatIsShownAlreadyIsTranslatedAnew)
{
    Set("Klingon");
    Provide(QStringLiteral("ktr_Klingon.qm"));
    const auto text = MakeText();
    EXPECT_EQ(text->property("t").toString(), QStringLiteral("Uninstall"));
    LoadTranslation(&translator, &engine);
    EXPECT_EQ(text->property("t").toString(), QStringLiteral("translated"));
}

} // namespace
