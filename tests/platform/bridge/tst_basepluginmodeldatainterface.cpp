// The bridges' operations and signals over the simulated backend: version
// split, answers that arrive later (never inside the call), records that cross
// queued connections and threads intact.

#include "basepluginmodeldatainterface.h"
#include "messagecenterpluginmodeldatainterface.h"
#include "quorixbackendregistry.h"
#include "settingpluginmodeldatainterface.h"
#include "simulatedbackend.h"
#include "upgradepluginmodeldatainterface.h"
#include "verifypluginmodeldatainterface.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

namespace {

// Receives records on a thread of its own, as a queued slot would.
class ThreadReceiver : public QObject
{
    Q_OBJECT
public:
    quint64 baseInfo = 0;
    QThread* thread = nullptr;

public slots:
    void slot_base_info(__sBaseModuleBaseInfo info)
    {
        baseInfo = info.value;
        thread = QThread::currentThread();
        emit sig_done();
    }

signals:
    void sig_done();
};

void runOnWorker(std::function<void()> work)
{
    QThread* worker = QThread::create(std::move(work));
    worker->start();
    worker->wait();
    delete worker;
}

} // namespace

class TstBasePluginModelDataInterface : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void versionSplit_data();
    void versionSplit();
    void displayText_data();
    void displayText();
    void updateDataArrivesAfterTheCall();
    void versionInfoHasNoDays();
    void baseInfoCrossesThreads();
    void weakPasswdCheckIsAcknowledgedLater();
    void powerOrdersDoNothingVisible_data();
    void powerOrdersDoNothingVisible();
    void backendEventsReachTheGuiThreadIntact();
    void settingsStoredFromWorkerAnnounceChange();
    void upgradeAnswersWithBothLibraries();

private:
    QTemporaryDir m_config;
    BasePluginModelDataInterface* m_bridge = nullptr;
};

void TstBasePluginModelDataInterface::initTestCase()
{
    QVERIFY(m_config.isValid());
    qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
    qunsetenv("QUORIX_EXIT_PASSWORD");
    m_bridge = BasePluginModelDataInterface::singleInstance();
}

void TstBasePluginModelDataInterface::cleanupTestCase()
{
    BasePluginModelDataInterface::UninitInstance(true);
    SettingPluginModelDataInterface::UninitInstance(true);
    UpgradePluginModelDataInterface::UninitInstance(true);
    MessageCenterPluginModelDataInterface::UninitInstance(true);
    VerifyPluginModelDataInterface::UninitInstance(true);
}

void TstBasePluginModelDataInterface::versionSplit_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QStringList>("parts");
    QStringList const junk{QString(), QString(), QString()};
    QTest::newRow("client") << "3.0.2.7550" << QStringList{"3.0", "2", "7550"};
    QTest::newRow("two-digit major") << "10.0.0.7550" << QStringList{"10.0", "0", "7550"};
    QTest::newRow("leading V") << "V3.0.2.7550" << QStringList{"3.0", "2", "7550"};
    QTest::newRow("blanks around") << " 3.0.2.7550 \n" << QStringList{"3.0", "2", "7550"};
    QTest::newRow("three parts") << "3.0.2" << QStringList{"3.0", "2", ""};
    QTest::newRow("two parts") << "3.0" << QStringList{"3.0", "", ""};
    QTest::newRow("one part") << "3" << QStringList{"3", "", ""};
    QTest::newRow("empty") << "" << junk;
    QTest::newRow("five parts") << "3.0.2.7550.1" << junk;
    QTest::newRow("empty part") << "3..2.7550" << junk;
    QTest::newRow("trailing dot") << "3.0.2." << junk;
    QTest::newRow("letters") << "a.b.c.d" << junk;
    QTest::newRow("letters in build") << "3.0.2.75x0" << junk;
    QTest::newRow("suffix") << "3.0.2.7550 beta" << junk;
    QTest::newRow("negative") << "-1.0.0.0" << junk;
    QTest::newRow("ten-digit part") << "1234567890.0.0.1" << junk;
    QTest::newRow("full-width digits") << "３.０.２.７５５０" << junk;
    QTest::newRow("only a V") << "V" << junk;
}

void TstBasePluginModelDataInterface::versionSplit()
{
    QFETCH(QString, version);
    QFETCH(QStringList, parts);
    // Outputs hold leftovers on purpose: they must be overwritten.
    QString first = QStringLiteral("old"), second = QStringLiteral("old"), third = QStringLiteral("old");
    m_bridge->myVersion2QuorixVersion(version, first, second, third);
    QCOMPARE((QStringList{first, second, third}), parts);
}

void TstBasePluginModelDataInterface::displayText_data()
{
    QTest::addColumn<QStringList>("parts");
    QTest::addColumn<QString>("text");
    QTest::newRow("full") << QStringList{"3.0", "2", "7550"} << "V3.0.2 (build 7550)";
    QTest::newRow("no build") << QStringList{"3.0", "2", ""} << "V3.0.2";
    QTest::newRow("major only") << QStringList{"3", "", ""} << "V3";
    QTest::newRow("build without second") << QStringList{"3.0", "", "7550"} << "V3.0 (build 7550)";
    QTest::newRow("nothing") << QStringList{"", "", ""} << "";
    QTest::newRow("no first part") << QStringList{"", "2", "7550"} << "";
}

void TstBasePluginModelDataInterface::displayText()
{
    QFETCH(QStringList, parts);
    QFETCH(QString, text);
    QCOMPARE(m_bridge->quorixVersionDisplayText(parts.at(0), parts.at(1), parts.at(2)), text);
}

void TstBasePluginModelDataInterface::updateDataArrivesAfterTheCall()
{
    QSignalSpy client(m_bridge, &BasePluginModelDataInterface::sig_setClientVersionInfo);
    QSignalSpy virus(m_bridge, &BasePluginModelDataInterface::sig_setVirusDataVersionInfo);
    QSignalSpy baseInfo(m_bridge, &BasePluginModelDataInterface::sig_base_info);
    QSignalSpy days(m_bridge, &BasePluginModelDataInterface::sig_CumulativeGuardDays);

    QCOMPARE(m_bridge->requestUpdateData(), 0);
    QCOMPARE(client.count() + virus.count() + baseInfo.count() + days.count(), 0);
    QTRY_COMPARE(days.count(), 1);
    QCOMPARE(client.count(), 1);
    QCOMPARE(client.at(0).at(0).toString(), QStringLiteral("3.0.2.7550"));
    QCOMPARE(virus.at(0).at(0).toString(), QStringLiteral("2026.11.20.01"));
    uint const dayCount = days.at(0).at(0).toUInt();
    QCOMPARE(dayCount, 1u);   // a fresh configuration started today
    QCOMPARE(baseInfo.count(), 1);
    QCOMPARE(baseInfo.at(0).at(0).value<__sBaseModuleBaseInfo>().value & 0xFFFFFFFFull, quint64(dayCount));
}

void TstBasePluginModelDataInterface::versionInfoHasNoDays()
{
    QSignalSpy client(m_bridge, &BasePluginModelDataInterface::sig_setClientVersionInfo);
    QSignalSpy virus(m_bridge, &BasePluginModelDataInterface::sig_setVirusDataVersionInfo);
    QSignalSpy days(m_bridge, &BasePluginModelDataInterface::sig_CumulativeGuardDays);
    QCOMPARE(m_bridge->requestVersionInfo(), 0);
    QCOMPARE(client.count(), 0);
    QVERIFY(virus.wait(5000));
    QCOMPARE(client.count(), 1);
    QCOMPARE(days.count(), 0);
}

void TstBasePluginModelDataInterface::baseInfoCrossesThreads()
{
    QThread thread;
    ThreadReceiver receiver;
    receiver.moveToThread(&thread);
    thread.start();
    connect(m_bridge, &BasePluginModelDataInterface::sig_base_info, &receiver, &ThreadReceiver::slot_base_info,
            Qt::QueuedConnection);
    QSignalSpy done(&receiver, &ThreadReceiver::sig_done);
    m_bridge->requestUpdateData();
    QVERIFY(done.wait(5000));
    QCOMPARE(receiver.thread, &thread);
    QCOMPARE(receiver.baseInfo, 1ull);
    disconnect(m_bridge, nullptr, &receiver, nullptr);
    thread.quit();
    thread.wait();
}

void TstBasePluginModelDataInterface::weakPasswdCheckIsAcknowledgedLater()
{
    QSignalSpy ack(m_bridge, &BasePluginModelDataInterface::sig_weakPasswdCheckRecieved);
    QCOMPARE(m_bridge->requestWeakPasswdCheck(), 0);
    QCOMPARE(ack.count(), 0);
    QVERIFY(ack.wait(5000));
}

void TstBasePluginModelDataInterface::powerOrdersDoNothingVisible_data()
{
    QTest::addColumn<int>("method");   // -1: restart order
    QTest::addColumn<int>("result");
    QTest::newRow("shut down") << 0 << 0;
    QTest::newRow("shut down, forced") << 1 << 0;
    QTest::newRow("restart") << -1 << 0;
    QTest::newRow("restart value given as shutdown method") << 2 << -1;
    QTest::newRow("nonsense method") << 77 << -1;
}

void TstBasePluginModelDataInterface::powerOrdersDoNothingVisible()
{
    QFETCH(int, method);
    QFETCH(int, result);
    QSignalSpy quit(m_bridge, &BasePluginModelDataInterface::sig_appQuit);
    QSignalSpy notice(m_bridge, &BasePluginModelDataInterface::sig_shutdown_reboot_notice);
    QSignalSpy virus(m_bridge, &BasePluginModelDataInterface::sig_setVirusDataVersionInfo);
    QCOMPARE(method < 0 ? m_bridge->requestReboot() : m_bridge->requestShutdown(method), result);
    // Anything the order queued would arrive before this answer.
    m_bridge->requestVersionInfo();
    QVERIFY(virus.wait(5000));
    QCOMPARE(quit.count(), 0);
    QCOMPARE(notice.count(), 0);
}

void TstBasePluginModelDataInterface::backendEventsReachTheGuiThreadIntact()
{
    __sDeviceMgrPopup popup;
    popup.winTitle = QStringLiteral("设备管控");
    popup.title = QStringLiteral("U盘已禁用");
    popup.content = QStringLiteral("content");
    popup.btnText = QStringLiteral("知道了");
    popup.time = 30;
    popup.text5 = QStringLiteral("extra");
    __sUniNoticeMsgInfo notice;
    notice.id = QStringLiteral("n-1");
    notice.value1 = (quint64(7) << 32) | 2;
    notice.number1 = 1;
    notice.number2 = 2;
    notice.number3 = 3;
    notice.number4 = 4;
    notice.text5 = QStringLiteral("jump");

    QList<QThread*> threads;
    auto noteThread = [&threads]() { threads.append(QThread::currentThread()); };
    connect(m_bridge, &BasePluginModelDataInterface::sig_device_mgr_msg, this, noteThread, Qt::DirectConnection);
    connect(m_bridge, &BasePluginModelDataInterface::sig_UniNotifyMsg, this, noteThread, Qt::DirectConnection);
    QSignalSpy popups(m_bridge, &BasePluginModelDataInterface::sig_device_mgr_msg);
    QSignalSpy notices(m_bridge, &BasePluginModelDataInterface::sig_UniNotifyMsg);
    QSignalSpy boots(m_bridge, &BasePluginModelDataInterface::sig_shutdown_reboot_notice);

    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    runOnWorker([&]() {
        emit backend->sig_device_mgr_msg(popup);
        emit backend->sig_UniNotifyMsg(notice);
        emit backend->sig_shutdown_reboot_notice(1, 60);
    });
    QTRY_COMPARE(boots.count(), 1);
    disconnect(m_bridge, nullptr, this, nullptr);

    QCOMPARE(popups.count(), 1);
    __sDeviceMgrPopup const gotPopup = popups.at(0).at(0).value<__sDeviceMgrPopup>();
    QCOMPARE(gotPopup.winTitle, popup.winTitle);
    QCOMPARE(gotPopup.title, popup.title);
    QCOMPARE(gotPopup.time, 30);
    QCOMPARE(gotPopup.text5, popup.text5);
    __sUniNoticeMsgInfo const gotNotice = notices.at(0).at(0).value<__sUniNoticeMsgInfo>();
    QCOMPARE(gotNotice.id, notice.id);
    QCOMPARE(gotNotice.value1, notice.value1);
    QCOMPARE((QList<int>{gotNotice.number1, gotNotice.number2, gotNotice.number3, gotNotice.number4}),
             (QList<int>{1, 2, 3, 4}));
    QCOMPARE(boots.at(0).at(0).toInt(), 1);
    QCOMPARE(boots.at(0).at(1).toInt(), 60);
    QCOMPARE(threads, (QList<QThread*>{QThread::currentThread(), QThread::currentThread()}));
}

void TstBasePluginModelDataInterface::settingsStoredFromWorkerAnnounceChange()
{
    SettingPluginModelDataInterface* settings = SettingPluginModelDataInterface::singleInstance();
    QSignalSpy changed(settings, &SettingPluginModelDataInterface::sig_updateData);
    bool stored = false;
    runOnWorker([&]() { stored = settings->setSettingData(QVariant::fromValue(_SETTING_COMMON_{0})); });
    QVERIFY(stored);
    QVERIFY(changed.wait(5000));
    __sSettingData const data = settings->getSettingData(QStringLiteral("SETTING_COMMON"));
    QCOMPARE(data.key, 0);
    QCOMPARE(data.value.value<_SETTING_COMMON_>().closeAction, 0);
    QVERIFY(!settings->setSettingData(QVariant(QStringLiteral("junk"))));
    QCOMPARE(settings->getSettingData(QStringLiteral("SETTING_NOPE")).key, -1);
}

void TstBasePluginModelDataInterface::upgradeAnswersWithBothLibraries()
{
    UpgradePluginModelDataInterface* upgrade = UpgradePluginModelDataInterface::singleInstance();
    QString const userId = upgrade->getUserID();
    QVERIFY(!userId.isEmpty());
    QSignalSpy info(upgrade, &UpgradePluginModelDataInterface::sig_checkUpdateInfo);
    QCOMPARE(upgrade->checkUpdate(userId, 7), 0);
    QCOMPARE(info.count(), 0);
    QVERIFY(info.wait(5000));
    QCOMPARE(info.at(0).at(0).toString(), userId);
    QList<int> kinds;
    for (_VERINFO_ const& entry : info.at(0).at(1).value<QList<_VERINFO_>>())
        kinds.append(entry.kind);
    QCOMPARE(kinds, (QList<int>{1, 4}));
}

QTEST_GUILESS_MAIN(TstBasePluginModelDataInterface)
#include "tst_basepluginmodeldatainterface.moc"
