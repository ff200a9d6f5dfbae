#include "controller/ui_utility.h"
#include "controller/uninstall_mgr.h"
#include "services/config/vantor_config_instance.h"
#include "testkit/fakes/fake_environment.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// The method table as the user interface relies on it, clones by default arguments included.
TEST(UninstallMgr, MethodTableIsInItsOrder)
{
    const QStringList expected = {
        QStringLiteral("signal public void sigValProgressChanged()"),
        QStringLiteral("slot private void slotTimeOut()"),
        QStringLiteral("method public void doUninstall()"),
        QStringLiteral("method public QVariantList getReasonList()"),
        QStringLiteral("method public void setExitCode(int)"),
        QStringLiteral("method public QVariantMap getPreferentialLink(int)"),
        QStringLiteral("method public void openLink(QString)"),
        QStringLiteral("method public void sendUserInfo(QString,QString,QString,QString)"),
        QStringLiteral("method public void sendUserInfo(QString,QString,QString)"),
        QStringLiteral("method public void sendUserInfo(QString,QString)"),
        QStringLiteral("method public bool isKTRRunning()"),
        QStringLiteral("method public int popMsgBox(bool,int,QWindow*)"),
        QStringLiteral("method public int popMsgBox(bool,int)"),
        QStringLiteral("method public int popMsgBox(bool)"),
        QStringLiteral("method public bool showWindowShadow()"),
    };
    const QMetaObject &meta = CUninstallMgr::staticMetaObject;
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char *kind = method.methodType() == QMetaMethod::Signal ? "signal"
                           : method.methodType() == QMetaMethod::Slot ? "slot"
                                                                      : "method";
        const char *access = method.access() == QMetaMethod::Private ? "private" : "public";
        found << QStringLiteral("%1 %2 %3 %4")
                     .arg(QLatin1String(kind),
                          QLatin1String(access),
                          QLatin1String(method.typeName()),
                          QLatin1String(method.methodSignature()));
    }
    EXPECT_EQ(found, expected) << found.join(QLatin1Char('\n')).toStdString();
    EXPECT_STREQ(meta.className(), "CUninstallMgr");
}

TEST(UninstallMgr, ProgressPropertyIsAsDescribed)
{
    const QMetaObject &meta = CUninstallMgr::staticMetaObject;
    ASSERT_EQ(meta.propertyCount() - meta.propertyOffset(), 1);
    const QMetaProperty property = meta.property(meta.propertyOffset());
    EXPECT_STREQ(property.name(), "valProgress");
    EXPECT_STREQ(property.typeName(), "int");
    EXPECT_TRUE(property.isReadable());
    EXPECT_TRUE(property.isWritable());
    EXPECT_TRUE(property.isDesignable());
    EXPECT_TRUE(property.isScriptable());
    EXPECT_TRUE(property.isStored());
    EXPECT_FALSE(property.isConstant());
    EXPECT_EQ(property.notifySignal().name(), QByteArray("sigValProgressChanged"));
}

TEST(UninstallMgr, StartsWithItsInitialValues)
{
    FakeEnvironment world;
    CUninstallMgr manager(world.Environment());
    EXPECT_EQ(manager.parent(), nullptr);
    EXPECT_EQ(manager.getExitCode(), -10);
    EXPECT_EQ(manager.getValProgress(), 0);
    EXPECT_TRUE(world.Asked().isEmpty());
}

TEST(UninstallMgr, KeepsAnyExitCodeAsItIs)
{
    FakeEnvironment world;
    CUninstallMgr manager(world.Environment());
    for (const int code : {0, -1, -2, -10, 7, 2147483647}) {
        manager.setExitCode(code);
        EXPECT_EQ(manager.getExitCode(), code);
    }
}

TEST(UninstallMgr, ProgressNotifiesAlsoWhenUnchanged)
{
    FakeEnvironment world;
    CUninstallMgr manager(world.Environment());
    const QSignalSpy changed(&manager, &CUninstallMgr::sigValProgressChanged);
    manager.setProperty("valProgress", 99);
    manager.setProperty("valProgress", 99);
    manager.setValProgress(0);
    manager.setValProgress(0);
    EXPECT_EQ(changed.count(), 4);
    EXPECT_EQ(manager.property("valProgress").toInt(), 0);
}

TEST(UninstallMgr, OpensLinksButNotAnEmptyOne)
{
    FakeEnvironment world;
    CUninstallMgr manager(world.Environment());
    manager.openLink(QString());
    manager.openLink(QStringLiteral(""));
    EXPECT_TRUE(world.Asked().isEmpty());

    manager.openLink(QStringLiteral("https://shop.example/cart?x=1"));
    manager.openLink(QStringLiteral("https://shop.example/a b%zz"));
    manager.openLink(QStringLiteral("::not a link::"));
    ASSERT_EQ(world.Asked().size(), 3);
    EXPECT_EQ(world.Asked().at(0), QStringLiteral("open https://shop.example/cart?x=1"));
    EXPECT_EQ(world.Asked().at(1), QStringLiteral("open https://shop.example/a%20b%25zz"));
    EXPECT_EQ(world.Asked().at(2), QStringLiteral("open "));
}

TEST(UninstallMgr, HandsUsageEventsOverInOrder)
{
    FakeEnvironment world;
    CUninstallMgr manager(world.Environment());
    manager.sendUserInfo(
        QStringLiteral("noSolvedPage"), QStringLiteral("Click_Submit"), QStringLiteral("text"));
    manager.sendUserInfo(QStringLiteral("A"), QStringLiteral("B"));
    manager.sendUserInfo(
        QStringLiteral("w"), QStringLiteral("a"), QStringLiteral("attr"), QStringLiteral("src"));
    EXPECT_EQ(world.Asked(),
              (QStringList{QStringLiteral("event [noSolvedPage][Click_Submit][text][]"),
                           QStringLiteral("event [A][B][][]"),
                           QStringLiteral("event [w][a][attr][src]")}));
}

TEST(UninstallMgr, AsksForTheProductByItsExactName)
{
    FakeEnvironment world;
    world.PollsAnswer({true, false});
    CUninstallMgr manager(world.Environment());
    EXPECT_TRUE(manager.isKTRRunning());
    EXPECT_FALSE(manager.isKTRRunning());
    EXPECT_EQ(world.Asked(),
              (QStringList{QStringLiteral("ask KTRUI.exe"), QStringLiteral("ask KTRUI.exe")}));
}

TEST(UiUtility, IsOneObjectWithoutAnInterfaceOfItsOwn)
{
    EXPECT_EQ(UIUtility::instance(), UIUtility::instance());
    EXPECT_EQ(UIUtility::instance()->parent(), nullptr);
    const QMetaObject &meta = UIUtility::staticMetaObject;
    EXPECT_EQ(meta.methodCount(), meta.methodOffset());
    EXPECT_EQ(meta.propertyCount(), meta.propertyOffset());
}

TEST(UIUtility, HandsOutTheOneConfiguration)
{
    // There is no library here, and still a client, which answers defaults.
    CVantorConfigInstance *const config = UIUtility::instance()->configInstance();
    ASSERT_NE(config, nullptr);
    EXPECT_EQ(config, CVantorConfigInstance::Instance());
    EXPECT_EQ(UIUtility::instance()->configInstance(), config);
}

} // namespace
