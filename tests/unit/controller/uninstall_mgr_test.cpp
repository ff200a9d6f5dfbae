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
TEST(UninstallMgrInterface, MethodTableIsInItsOrder)
{
    const QStringList expected = {
        "signal public void sigValProgressChanged()",
        "slot private void slotTimeOut()",
        "method public void doUninstall()",
        "method public QVariantList getReasonList()",
        "method public void setExitCode(int)",
        "method public QVariantMap getPreferentialLink(int)",
        "method public void openLink(QString)",
        "method public void sendUserInfo(QString,QString,QString,QString)",
        "method public void sendUserInfo(QString,QString,QString)",
        "method public void sendUserInfo(QString,QString)",
        "method public bool isKTRRunning()",
        "method public int popMsgBox(bool,int,QWindow*)",
        "method public int popMsgBox(bool,int)",
        "method public int popMsgBox(bool)",
        "method public bool showWindowShadow()",
    };
    const QMetaObject &meta = CUninstallMgr::staticMetaObject;
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char *kind = method.methodType() == QMetaMethod::Signal ? "signal"
                           : method.methodType() == QMetaMethod::Slot ? "slot"
                                                                      : "method";
        const char *access = method.access() == QMetaMethod::Private ? "private" : "public";
        found << QString("%1 %2 %3 %4")
                     .arg(kind,
                          access,
                          QLatin1String(method.typeName()),
                          QLatin1String(method.methodSignature()));
    }
    EXPECT_EQ(found, expected) << found.join('\n').toStdString();
    EXPECT_STREQ(meta.className(), "CUninstallMgr");
}

TEST(UninstallMgrInterface, ProgressIsAWritableIntPropertyWithANotifySignal)
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

class UninstallMgr : public testing::Test
{
protected:
    FakeEnvironment fake_;
    CUninstallMgr manager_{fake_.Environment()};
};

TEST_F(UninstallMgr, StartsAtProgressZeroWithExitCodeMinusTenAndAsksNothing)
{
    EXPECT_EQ(manager_.parent(), nullptr);
    EXPECT_EQ(manager_.getExitCode(), -10);
    EXPECT_EQ(manager_.getValProgress(), 0);
    EXPECT_TRUE(fake_.Asked().isEmpty());
}

TEST_F(UninstallMgr, KeepsAnyExitCodeAsItIs)
{
    for (const int code : {0, -1, -2, -10, 7, 2147483647}) {
        manager_.setExitCode(code);
        EXPECT_EQ(manager_.getExitCode(), code);
    }
}

TEST_F(UninstallMgr, ProgressNotifiesAlsoWhenUnchanged)
{
    const QSignalSpy changed(&manager_, &CUninstallMgr::sigValProgressChanged);
    manager_.setProperty("valProgress", 99);
    manager_.setProperty("valProgress", 99);
    manager_.setValProgress(0);
    manager_.setValProgress(0);
    EXPECT_EQ(changed.count(), 4);
    EXPECT_EQ(manager_.property("valProgress").toInt(), 0);
}

TEST_F(UninstallMgr, OpensLinksButNotAnEmptyOne)
{
    for (const char *link :
         {"", "https://shop.example/cart?x=1", "https://shop.example/a b%zz", "::not a link::"}) {
        manager_.openLink(link);
    }
    manager_.openLink(QString());
    EXPECT_EQ(fake_.Asked(),
              (QStringList{"open https://shop.example/cart?x=1",
                           "open https://shop.example/a%20b%25zz",
                           "open "}));
}

TEST_F(UninstallMgr, HandsUsageEventsOverInOrder)
{
    manager_.sendUserInfo("noSolvedPage", "Click_Submit", "text");
    manager_.sendUserInfo("A", "B");
    manager_.sendUserInfo("w", "a", "attr", "src");
    EXPECT_EQ(fake_.Asked(),
              (QStringList{"event [noSolvedPage][Click_Submit][text][]",
                           "event [A][B][][]",
                           "event [w][a][attr][src]"}));
}

TEST_F(UninstallMgr, AsksForTheProductByItsExactName)
{
    fake_.PollsAnswer({true, false});
    EXPECT_TRUE(manager_.isKTRRunning());
    EXPECT_FALSE(manager_.isKTRRunning());
    EXPECT_EQ(fake_.Asked(), (QStringList{"ask KTRUI.exe", "ask KTRUI.exe"}));
}

TEST(UiUtility, IsOneObjectWithoutAnInterfaceOfItsOwn)
{
    EXPECT_EQ(UIUtility::instance(), UIUtility::instance());
    EXPECT_EQ(UIUtility::instance()->parent(), nullptr);
    const QMetaObject &meta = UIUtility::staticMetaObject;
    EXPECT_EQ(meta.methodCount(), meta.methodOffset());
    EXPECT_EQ(meta.propertyCount(), meta.propertyOffset());
    // There is no library here, and still a client, which answers defaults.
    CVantorConfigInstance *const config = UIUtility::instance()->configInstance();
    ASSERT_NE(config, nullptr);
    EXPECT_EQ(config, CVantorConfigInstance::Instance());
    EXPECT_EQ(UIUtility::instance()->configInstance(), config);
}

} // namespace
