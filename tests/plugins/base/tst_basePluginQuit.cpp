// The quit flow from the close button (or the tray) to
// "EPLUGIN_ID_BASE_CMD_MAINEXIT", against a backend the test controls.

#include "baseCmdDefine.h"
#include "basepluginmodeldatainterface.h"
#include "cqbutton.h"
#include "cqcheckbox.h"
#include "cqgtaskmutexmap.h"
#include "cqmenuitem.h"
#include "mainExitAskWin.h"
#include "mainExitInputPassword.h"
#include "menuWidget.h"
#include "promotwin.h"
#include "testBackend.h"
#include "testPluginFixture.h"
#include "trayWidget.h"

#include <QLineEdit>
#include <QtTest>

#include <memory>

namespace {

PromotWin* openPrompt()
{
    return openWindows<PromotWin>().value(0);
}

CQTaskInfo blockingTask(QString const& name)
{
    CQTaskInfo task;
    task.name = name;
    task.allowQuit = false;
    return task;
}

} // namespace

class TestBasePluginQuit : public QObject
{
    Q_OBJECT

    std::shared_ptr<TestBackend> m_backend;
    std::unique_ptr<TestPluginFixture> m_fixture;
    std::unique_ptr<QSignalSpy> m_sig;
    std::unique_ptr<QSignalSpy> m_mode;

    int exits() const { return countArg(*m_sig, 0, EPLUGIN_ID_BASE_CMD_MAINEXIT); }
    QWidget* main() const { return m_fixture->mainWindow(); }

    // The mode is read off the GUI thread and applied from a queued signal.
    void closeWithMode(int mode)
    {
        m_backend->closeAction.storeRelaxed(mode);
        int const before = m_mode->count();
        m_fixture->plugin()->slot_close();
        QTRY_COMPARE(m_mode->count(), before + 1);
        QCoreApplication::processEvents();
    }

    // The ask window, with one of its boxes ticked, answered by a button.
    void answerAskWindow(bool quit, bool remember, char const* button = "m_pBtnOK")
    {
        closeWithMode(2);
        MainExitAskWin* ask = openWindows<MainExitAskWin>().value(0);
        QVERIFY(ask);
        QCOMPARE(ask->pos(), main()->pos() + QPoint(main()->width() / 2 - ask->width() / 2,
                                                    main()->height() / 2 - ask->height() / 2));
        auto* minBox = ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxMin"));
        auto* quitBox = ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxQuit"));
        (quit ? quitBox : minBox)->setChecked(true);
        QVERIFY(minBox->isChecked() != quitBox->isChecked());
        ask->findChild<CQCheckBox*>(QStringLiteral("m_pCheckBoxRemmemberChoose"))->setChecked(remember);
        ask->findChild<CQButton*>(QString::fromLatin1(button))->click();
        TestPluginFixture::flushDeletes();
        QVERIFY(openWindows<MainExitAskWin>().isEmpty());
    }

private slots:
    void init()
    {
        m_backend = TestBackend::install();
        CQGTaskMutexMap::singleInstance()->clear();
        m_fixture.reset(new TestPluginFixture());
        main()->move(100, 80);
        main()->show();
        m_sig.reset(new QSignalSpy(m_fixture->plugin(), &CQBasePlugin::sig));
        m_mode.reset(new QSignalSpy(m_fixture->plugin(), &BasePlugin::sig_updateQuitMode));
    }

    void cleanup()
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
    }

    // 0 asks for confirmation on the main window (OK quits), 1 minimises,
    // 2 opens the ask window, anything else does nothing.
    void closeByMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("confirm");   // prompt button pressed: 0 none, 1 OK, 2 cancel
        QTest::addColumn<bool>("mainVisible");
        QTest::addColumn<int>("asks");
        QTest::newRow("0 quit, OK") << 0 << 1 << true << 0;
        QTest::newRow("0 quit, cancel") << 0 << 2 << true << 0;
        QTest::newRow("1 minimise") << 1 << 0 << false << 0;
        QTest::newRow("2 ask") << 2 << 0 << true << 1;
        QTest::newRow("3 unknown: nothing") << 3 << 0 << true << 0;
        QTest::newRow("-1 unknown: nothing") << -1 << 0 << true << 0;
    }
    void closeByMode()
    {
        QFETCH(int, mode);
        QFETCH(int, confirm);
        QFETCH(bool, mainVisible);
        QFETCH(int, asks);
        closeWithMode(mode);
        QCOMPARE(main()->isVisible(), mainVisible);
        QCOMPARE(openWindows<MainExitAskWin>().size(), asks);
        QCOMPARE(openWindows<PromotWin>().size(), confirm ? 1 : 0);
        if (confirm) {
            PromotWin* prompt = openPrompt();
            QCOMPARE(prompt->parentWidget(), main());
            QCOMPARE(prompt->paras().text, QString::fromUtf8("将失去对电脑的安全防护，是否确认退出？"));
            (confirm == 1 ? prompt->rightButton() : prompt->leftButton())->click();
        }
        QCOMPARE(exits(), confirm == 1 ? 1 : 0);
        if (confirm == 1)
            QVERIFY(!unwrap(m_sig->last().at(1)).isValid());
    }

    // The ask window sits centred over the main window; OK hands over the
    // choice (stored when remembered), cancel decides nothing.
    void askWindow_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("quit");
        QTest::addColumn<bool>("remember");
        QTest::addColumn<int>("stored");   // -1: nothing stored
        QTest::newRow("minimise") << "m_pBtnOK" << false << false << -1;
        QTest::newRow("minimise, remembered") << "m_pBtnOK" << false << true << 1;
        QTest::newRow("quit") << "m_pBtnOK" << true << false << -1;
        QTest::newRow("quit, remembered") << "m_pBtnOK" << true << true << 0;
        QTest::newRow("cancel") << "m_pBtnCancel" << true << true << -1;
    }
    void askWindow()
    {
        QFETCH(QString, button);
        QFETCH(bool, quit);
        QFETCH(bool, remember);
        QFETCH(int, stored);
        answerAskWindow(quit, remember, qPrintable(button));
        bool const ok = button == QLatin1String("m_pBtnOK");
        QCOMPARE(main()->isVisible(), !ok || quit);
        QCOMPARE(openWindows<PromotWin>().size(), ok && quit ? 1 : 0);
        QCOMPARE(m_backend->writes.loadRelaxed(), stored < 0 ? 0 : 1);
        QCOMPARE(m_backend->closeAction.loadRelaxed(), stored < 0 ? 2 : stored);
        QCOMPARE(exits(), 0);
    }

    // A task that forbids quitting stops the quit with its own prompt, even
    // after the user chose to quit; its button runs the task's action.
    void blockingTaskStopsQuitAfterAsking()
    {
        int actions = 0;
        CQTaskInfo harmless;
        harmless.name = QStringLiteral("a-harmless");
        CQTaskInfo scan = blockingTask(QStringLiteral("b-scan"));
        scan.title = QStringLiteral("Scan running");
        scan.text = QStringLiteral("Stop the scan first");
        scan.action = [&actions]() { return ++actions > 0; };
        CQGTaskMutexMap::singleInstance()->addTaskInfo(harmless);
        CQGTaskMutexMap::singleInstance()->addTaskInfo(scan);
        answerAskWindow(true, false);
        QCOMPARE(openWindows<PromotWin>().size(), 1);
        PromotWin::sInfo const p = openPrompt()->paras();
        QCOMPARE((QStringList{p.title, p.text, p.leftBtnText}), (QStringList{scan.title, scan.text, QString()}));
        openPrompt()->rightButton()->click();
        QCOMPARE(actions, 1);
        QCOMPARE(exits(), 0);
        QVERIFY(!openPrompt());
    }

    // Wrong passwords keep the window up; closing again brings the same window
    // back reset; the right one quits.
    void exitPassword()
    {
        m_backend->exitPolicy.storeRelaxed(2);
        closeWithMode(0);
        QVERIFY(!openPrompt());
        QPointer<MainExitInputPassword> input = openWindows<MainExitInputPassword>().value(0);
        QVERIFY(input);
        for (QString const& wrong : {QStringLiteral("S3CRET"), QStringLiteral("s3cret ")}) {
            input->lineEdit()->setText(wrong);
            input->slot_submit();
            QVERIFY(input->isVisible());
            QCOMPARE(input->uiType(), 1);
        }
        closeWithMode(0);
        QCOMPARE(openWindows<MainExitInputPassword>().value(0), input.data());
        QCOMPARE(input->uiType(), 0);
        QCOMPARE(exits(), 0);
        input->lineEdit()->setText(m_backend->exitPassword);
        input->slot_submit();
        QCOMPARE(exits(), 1);
        QVERIFY(input.isNull() || !input->isVisible());
    }

    // The tray's quit row asks for confirmation whatever the stored mode; the
    // backend's own quit passes no task, password or confirmation.
    void trayAndBackendQuit()
    {
        m_backend->closeAction.storeRelaxed(1);
        for (QWidget* w : TrayWidget::singleInstance()->menu()->items()) {
            if (auto* row = qobject_cast<CQMenuItem*>(w); row && row->text() == QString::fromUtf8("退出"))
                emit row->sig_clicked();
        }
        QVERIFY(openPrompt() && main()->isVisible());
        QCOMPARE(m_mode->count(), 0);
        openPrompt()->close();

        CQGTaskMutexMap::singleInstance()->addTaskInfo(blockingTask(QStringLiteral("scan")));
        m_backend->exitPolicy.storeRelaxed(2);
        m_fixture->plugin()->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
        emit BasePluginModelDataInterface::singleInstance()->sig_appQuit();
        QTRY_COMPARE(exits(), 1);
        QVERIFY(!openPrompt() && openWindows<MainExitInputPassword>().isEmpty());
    }
};

QTEST_MAIN(TestBasePluginQuit)
#include "tst_basePluginQuit.moc"
