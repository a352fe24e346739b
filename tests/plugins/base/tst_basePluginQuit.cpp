// The quit flow from the close button (or the tray) to
// "EPLUGIN_ID_BASE_CMD_MAINEXIT", against a backend the test controls.

#include "baseCmdDefine.h"
#include "basePlugin.h"
#include "basepluginmodeldatainterface.h"
#include "cqbutton.h"
#include "cqcheckbox.h"
#include "cqgtaskmutexmap.h"
#include "cqmenuitem.h"
#include "mainExitAskWin.h"
#include "mainExitInputPassword.h"
#include "promotwin.h"
#include "testBackend.h"
#include "testPluginFixture.h"
#include "trayWidget.h"
#include "menuWidget.h"

#include <QApplication>
#include <QLineEdit>
#include <QtTest>

#include <memory>

namespace {

template <typename T>
QList<T*> openWindows()
{
    QList<T*> out;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* t = qobject_cast<T*>(w); t && t->isVisible())
            out << t;
    }
    return out;
}

PromotWin* openPrompt()
{
    QList<PromotWin*> const prompts = openWindows<PromotWin>();
    return prompts.isEmpty() ? nullptr : prompts.last();
}

} // namespace

class TestBasePluginQuit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void closeByMode_data();
    void closeByMode();
    void confirmPrompt_data();
    void confirmPrompt();
    void askWindow_data();
    void askWindow();
    void askWindowCancelDecidesNothing();
    void rememberedQuitGoesStraightToTaskCheck();
    void blockingTaskStopsQuitAfterAsking();
    void exitPassword();
    void trayQuitSkipsQuitMode();
    void backendQuitAsksNothing();
    void quitModeOfAnotherKeyIsIgnored();

private:
    int exits() const;
    void closeAndWaitForMode();

    std::shared_ptr<TestBackend> m_backend;
    std::unique_ptr<TestPluginFixture> m_fixture;
    std::unique_ptr<QSignalSpy> m_sig;
    std::unique_ptr<QSignalSpy> m_mode;
};

void TestBasePluginQuit::init()
{
    m_backend = TestBackend::install();
    CQGTaskMutexMap::singleInstance()->clear();
    m_fixture.reset(new TestPluginFixture());
    m_fixture->mainWindow()->move(100, 80);
    m_fixture->mainWindow()->show();
    m_sig.reset(new QSignalSpy(m_fixture->plugin(), &CQBasePlugin::sig));
    m_mode.reset(new QSignalSpy(m_fixture->plugin(), &BasePlugin::sig_updateQuitMode));
}

void TestBasePluginQuit::cleanup()
{
    m_sig.reset();
    m_mode.reset();
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (qobject_cast<PromotWin*>(w) || qobject_cast<MainExitAskWin*>(w))
            w->close();
    }
    m_fixture.reset();
    CQGTaskMutexMap::singleInstance()->clear();
    TestBackend::restore();
    m_backend.reset();
}

int TestBasePluginQuit::exits() const
{
    int n = 0;
    for (QList<QVariant> const& args : qAsConst(*m_sig))
        n += args.at(0).toString() == QLatin1String(EPLUGIN_ID_BASE_CMD_MAINEXIT);
    return n;
}

// The mode is read off the GUI thread and applied from a queued signal.
void TestBasePluginQuit::closeAndWaitForMode()
{
    int const before = m_mode->count();
    m_fixture->plugin()->slot_close();
    QTRY_COMPARE(m_mode->count(), before + 1);
    QCoreApplication::processEvents();
}

void TestBasePluginQuit::closeByMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("mainVisible");
    QTest::addColumn<QString>("window");   // which window opens, "" for none
    QTest::newRow("0 quit: confirmation") << 0 << true << "PromotWin";
    QTest::newRow("1 minimise: hidden, no window") << 1 << false << "";
    QTest::newRow("2 ask") << 2 << true << "MainExitAskWin";
    QTest::newRow("3 unknown: nothing") << 3 << true << "";
    QTest::newRow("-1 unknown: nothing") << -1 << true << "";
}

void TestBasePluginQuit::closeByMode()
{
    QFETCH(int, mode);
    QFETCH(bool, mainVisible);
    QFETCH(QString, window);
    m_backend->closeAction.storeRelaxed(mode);
    closeAndWaitForMode();
    QCOMPARE(m_fixture->mainWindow()->isVisible(), mainVisible);
    QCOMPARE(openWindows<PromotWin>().size(), window == QLatin1String("PromotWin") ? 1 : 0);
    QCOMPARE(openWindows<MainExitAskWin>().size(), window == QLatin1String("MainExitAskWin") ? 1 : 0);
    QCOMPARE(exits(), 0);
}

void TestBasePluginQuit::confirmPrompt_data()
{
    QTest::addColumn<bool>("confirm");
    QTest::newRow("OK quits") << true;
    QTest::newRow("cancel stays") << false;
}

void TestBasePluginQuit::confirmPrompt()
{
    QFETCH(bool, confirm);
    m_backend->closeAction.storeRelaxed(0);
    closeAndWaitForMode();
    PromotWin* prompt = openPrompt();
    QVERIFY(prompt);
    QCOMPARE(prompt->parentWidget(), m_fixture->mainWindow());
    QCOMPARE(prompt->paras().kind, 3);
    QCOMPARE(prompt->paras().text, QString::fromUtf8("将失去对电脑的安全防护，是否确认退出？"));
    QCOMPARE(prompt->paras().leftBtnText, QString::fromUtf8("取消"));
    QCOMPARE(prompt->paras().rightBtnText, QString::fromUtf8("确定"));
    (confirm ? prompt->rightButton() : prompt->leftButton())->click();
    QCOMPARE(exits(), confirm ? 1 : 0);
    if (confirm)
        QVERIFY(!m_sig->last().at(1).value<QVariant>().isValid());
}

// The ask window sits centred over the main window; OK hands over the choice.
void TestBasePluginQuit::askWindow_data()
{
    QTest::addColumn<bool>("quit");
    QTest::addColumn<bool>("remember");
    QTest::addColumn<int>("stored");   // -1: nothing stored
    QTest::newRow("minimise") << false << false << -1;
    QTest::newRow("minimise, remembered") << false << true << 1;
    QTest::newRow("quit") << true << false << -1;
    QTest::newRow("quit, remembered") << true << true << 0;
}

void TestBasePluginQuit::askWindow()
{
    QFETCH(bool, quit);
    QFETCH(bool, remember);
    QFETCH(int, stored);
    m_backend->closeAction.storeRelaxed(2);
    closeAndWaitForMode();
    QList<MainExitAskWin*> asks = openWindows<MainExitAskWin>();
    QCOMPARE(asks.size(), 1);
    QPointer<MainExitAskWin> ask = asks.first();
    QWidget* main = m_fixture->mainWindow();
    QCOMPARE(ask->pos(), QPoint(main->x() + main->width() / 2 - ask->width() / 2,
                                main->y() + main->height() / 2 - ask->height() / 2));
    auto* minBox = ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxMin"));
    auto* quitBox = ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxQuit"));
    auto* rememberBox = ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxRemmemberChoose"));
    QVERIFY(minBox && quitBox && rememberBox);
    QVERIFY(minBox->isChecked() != quitBox->isChecked());
    (quit ? quitBox : minBox)->setChecked(true);
    QVERIFY(minBox->isChecked() != quitBox->isChecked());
    rememberBox->setChecked(remember);

    ask->findChild<CQButton*>(QStringLiteral("m_pBtnOK"))->click();
    TestPluginFixture::flushDeletes();

    QVERIFY(ask.isNull() || !ask->isVisible());
    QCOMPARE(main->isVisible(), quit);
    QCOMPARE(openWindows<PromotWin>().size(), quit ? 1 : 0);
    QCOMPARE(m_backend->writes.loadRelaxed(), stored < 0 ? 0 : 1);
    if (stored >= 0)
        QCOMPARE(m_backend->closeAction.loadRelaxed(), stored);
    QCOMPARE(exits(), 0);
}

void TestBasePluginQuit::askWindowCancelDecidesNothing()
{
    m_backend->closeAction.storeRelaxed(2);
    closeAndWaitForMode();
    QPointer<MainExitAskWin> ask = openWindows<MainExitAskWin>().value(0);
    QVERIFY(ask);
    QSignalSpy closed(ask.data(), &MainExitAskWin::sig_close_win);
    QSignalSpy ok(ask.data(), &MainExitAskWin::sig_ok_btn_clicked);
    ask->findChild<CQButton*>(QStringLiteral("m_pBtnCancel"))->click();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(ok.count(), 0);
    TestPluginFixture::flushDeletes();
    QVERIFY(ask.isNull());
    QVERIFY(m_fixture->mainWindow()->isVisible());
    QCOMPARE(openWindows<PromotWin>().size(), 0);
    QCOMPARE(m_backend->writes.loadRelaxed(), 0);
}

void TestBasePluginQuit::rememberedQuitGoesStraightToTaskCheck()
{
    m_backend->closeAction.storeRelaxed(2);
    closeAndWaitForMode();
    MainExitAskWin* ask = openWindows<MainExitAskWin>().value(0);
    QVERIFY(ask);
    ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxQuit"))->setChecked(true);
    ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxRemmemberChoose"))->setChecked(true);
    ask->findChild<CQButton*>(QStringLiteral("m_pBtnOK"))->click();
    QCOMPARE(m_backend->closeAction.loadRelaxed(), 0);
    openPrompt()->leftButton()->click();
    TestPluginFixture::flushDeletes();

    closeAndWaitForMode();
    QCOMPARE(openWindows<MainExitAskWin>().size(), 0);
    QVERIFY(openPrompt());
}

// A task that forbids quitting stops the quit with its own prompt, even
// after the user chose to quit; its button runs the task's action.
void TestBasePluginQuit::blockingTaskStopsQuitAfterAsking()
{
    int actions = 0;
    CQTaskInfo harmless;
    harmless.name = QStringLiteral("a-harmless");
    CQTaskInfo scan;
    scan.name = QStringLiteral("b-scan");
    scan.title = QStringLiteral("Scan running");
    scan.text = QStringLiteral("Stop the scan first");
    scan.allowQuit = false;
    scan.action = [&actions]() { ++actions; return true; };
    CQGTaskMutexMap::singleInstance()->addTaskInfo(harmless);
    CQGTaskMutexMap::singleInstance()->addTaskInfo(scan);

    m_backend->closeAction.storeRelaxed(2);
    closeAndWaitForMode();
    MainExitAskWin* ask = openWindows<MainExitAskWin>().value(0);
    QVERIFY(ask);
    ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxQuit"))->setChecked(true);
    ask->findChild<CQButton*>(QStringLiteral("m_pBtnOK"))->click();

    QList<PromotWin*> const prompts = openWindows<PromotWin>();
    QCOMPARE(prompts.size(), 1);
    PromotWin* prompt = prompts.first();
    QCOMPARE(prompt->paras().title, scan.title);
    QCOMPARE(prompt->paras().text, scan.text);
    QCOMPARE(prompt->paras().kind, 3);
    QVERIFY(prompt->paras().leftBtnText.isEmpty());
    QCOMPARE(prompt->paras().rightBtnText, QString::fromUtf8("确定"));
    prompt->rightButton()->click();
    QCOMPARE(actions, 1);
    QCOMPARE(exits(), 0);
    QCOMPARE(openWindows<PromotWin>().size(), 0);
}

void TestBasePluginQuit::exitPassword()
{
    m_backend->exitPolicy.storeRelaxed(2);
    m_backend->closeAction.storeRelaxed(0);
    closeAndWaitForMode();
    QCOMPARE(openWindows<PromotWin>().size(), 0);
    QList<MainExitInputPassword*> inputs = openWindows<MainExitInputPassword>();
    QCOMPARE(inputs.size(), 1);
    QPointer<MainExitInputPassword> input = inputs.first();
    QCOMPARE(input->info().prompt, QString::fromUtf8("退出将失去对电脑的保护，是否确认退出？"));
    QCOMPARE(input->info().label, QString::fromUtf8("退出密码"));
    QCOMPARE(input->info().hint, QString::fromUtf8("联系管理员获取退出密码"));

    for (QString const& wrong : {QStringLiteral("wrong"), QStringLiteral("S3CRET"), QStringLiteral("s3cret ")}) {
        input->lineEdit()->setText(wrong);
        input->slot_submit();
        QVERIFY(input->isVisible());
        QCOMPARE(input->uiType(), 1);
        QCOMPARE(exits(), 0);
    }
    // The flow restarted: the same window comes back.
    closeAndWaitForMode();
    QCOMPARE(openWindows<MainExitInputPassword>().value(0), input.data());
    QCOMPARE(input->uiType(), 0);

    input->lineEdit()->setText(m_backend->exitPassword);
    input->slot_submit();
    QCOMPARE(exits(), 1);
    QVERIFY(input.isNull() || !input->isVisible());
}

void TestBasePluginQuit::trayQuitSkipsQuitMode()
{
    m_backend->closeAction.storeRelaxed(1);
    CQMenuItem* quitRow = nullptr;
    for (QWidget* w : TrayWidget::singleInstance()->menu()->items()) {
        if (auto* row = qobject_cast<CQMenuItem*>(w); row && row->text() == QString::fromUtf8("退出"))
            quitRow = row;
    }
    QVERIFY(quitRow);
    emit quitRow->sig_clicked();
    QVERIFY(openPrompt());
    QCOMPARE(m_mode->count(), 0);
    QVERIFY(m_fixture->mainWindow()->isVisible());
}

void TestBasePluginQuit::backendQuitAsksNothing()
{
    CQTaskInfo scan;
    scan.name = QStringLiteral("scan");
    scan.allowQuit = false;
    CQGTaskMutexMap::singleInstance()->addTaskInfo(scan);
    m_backend->exitPolicy.storeRelaxed(2);
    m_fixture->plugin()->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
    emit BasePluginModelDataInterface::singleInstance()->sig_appQuit();
    QTRY_COMPARE(exits(), 1);
    QCOMPARE(openWindows<PromotWin>().size(), 0);
    QCOMPARE(openWindows<MainExitInputPassword>().size(), 0);
}

void TestBasePluginQuit::quitModeOfAnotherKeyIsIgnored()
{
    __sSettingData data;
    data.key = 3;
    _SETTING_COMMON_ common;
    common.closeAction = 1;
    data.value = QVariant::fromValue(common);
    m_fixture->plugin()->slot_updateQuitMode(data);
    QVERIFY(m_fixture->mainWindow()->isVisible());
    data.key = 0;
    m_fixture->plugin()->slot_updateQuitMode(data);
    QVERIFY(!m_fixture->mainWindow()->isVisible());
}

QTEST_MAIN(TestBasePluginQuit)
#include "tst_basePluginQuit.moc"
