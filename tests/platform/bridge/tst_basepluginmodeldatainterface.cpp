// The bridges over the simulated backend: version split, answers that arrive
// later (never inside the call), records that cross threads intact, and a
// backend swapped under running bridges.

#include "basepluginmodeldatainterface.h"
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

using Base = BasePluginModelDataInterface;

void runOnWorker(std::function<void()> work)
{
    QThread* worker = QThread::create(std::move(work));
    worker->start();
    worker->wait();
    delete worker;
}

// The arguments of the answer to `request`, which must come from the event
// loop and not inside the call; empty if it failed or never came.
template <typename Bridge, typename Signal>
QList<QVariant> answerLater(Bridge* bridge, Signal signal, std::function<int()> const& request)
{
    QSignalSpy spy(bridge, signal);
    if (request() != 0 || !spy.isEmpty() || !spy.wait(5000))
        return {};
    return spy.takeFirst();
}

// A backend with fixed answers, to see which backend a bridge asks.
class FixedBackend : public SimulatedBackend
{
public:
    using SimulatedBackend::SimulatedBackend;
    QString clientVersion() override { return QStringLiteral("9.9.9.9999"); }
    int verifyPolicy(int) override { return 2; }
};

} // namespace

class TstBasePluginModelDataInterface : public QObject
{
    Q_OBJECT

    QTemporaryDir m_config;
    Base* m_bridge = nullptr;

private slots:
    void initTestCase()
    {
        QVERIFY(m_config.isValid());
        qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
        qunsetenv("QUORIX_EXIT_PASSWORD");
        m_bridge = Base::singleInstance();
    }

    void cleanupTestCase()
    {
        Base::UninitInstance(true);
        SettingPluginModelDataInterface::UninitInstance(true);
        UpgradePluginModelDataInterface::UninitInstance(true);
        VerifyPluginModelDataInterface::UninitInstance(true);
    }

    void versionSplit_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QStringList>("parts");
        QTest::addColumn<QString>("text");   // what the about window shows of them
        QStringList const junk{QString(), QString(), QString()};
        QTest::newRow("client") << "3.0.2.7550" << QStringList{"3.0", "2", "7550"} << "V3.0.2.7550";
        QTest::newRow("leading V") << "V3.0.2.7550" << QStringList{"3.0", "2", "7550"} << "V3.0.2.7550";
        QTest::newRow("blanks around") << " 3.0.2.7550 \n" << QStringList{"3.0", "2", "7550"} << "V3.0.2.7550";
        QTest::newRow("three parts") << "3.0.2" << QStringList{"3.0", "2", ""} << "V3.0.2";
        QTest::newRow("one part") << "3" << QStringList{"3", "", ""} << "V3";
        QTest::newRow("empty") << "" << junk << "";
        QTest::newRow("five parts") << "3.0.2.7550.1" << junk << "";
        QTest::newRow("empty part") << "3..2.7550" << junk << "";
        QTest::newRow("letters in build") << "3.0.2.75x0" << junk << "";
        QTest::newRow("full-width digits") << "３.０.２.７５５０" << junk << "";
    }

    void versionSplit()
    {
        QFETCH(QString, version);
        QFETCH(QStringList, parts);
        QFETCH(QString, text);
        // Outputs hold leftovers on purpose: they must be overwritten.
        QString first = QStringLiteral("old"), second = QStringLiteral("old"), third = QStringLiteral("old");
        m_bridge->myVersion2QuorixVersion(version, first, second, third);
        QCOMPARE((QStringList{first, second, third}), parts);
        QCOMPARE(m_bridge->quorixVersionDisplayText(first, second, third), text);
    }

    void updateDataArrivesAfterTheCall()
    {
        QSignalSpy client(m_bridge, &Base::sig_setClientVersionInfo);
        QSignalSpy virus(m_bridge, &Base::sig_setVirusDataVersionInfo);
        QSignalSpy baseInfo(m_bridge, &Base::sig_base_info);
        QList<QVariant> const days =
            answerLater(m_bridge, &Base::sig_CumulativeGuardDays, [this]() { return m_bridge->requestUpdateData(); });
        QCOMPARE(days.value(0).toUInt(), 1u);   // a fresh configuration started today
        QCOMPARE(client.value(0).value(0).toString(), QStringLiteral("3.0.2.7550"));
        QCOMPARE(virus.value(0).value(0).toString(), QStringLiteral("2026.11.20.01"));
        QCOMPARE(baseInfo.value(0).value(0).value<__sBaseModuleBaseInfo>().value & 0xFFFFFFFFull, 1ull);
    }

    void otherAnswersArriveAfterTheCall()
    {
        QSignalSpy days(m_bridge, &Base::sig_CumulativeGuardDays);
        QVERIFY(!answerLater(m_bridge, &Base::sig_setVirusDataVersionInfo, [this]() {
                     return m_bridge->requestVersionInfo();
                 }).isEmpty());
        QCOMPARE(days.count(), 0);   // the about window's request carries no days
        QSignalSpy ack(m_bridge, &Base::sig_weakPasswdCheckRecieved);
        QCOMPARE(m_bridge->requestWeakPasswdCheck(), 0);
        QCOMPARE(ack.count(), 0);
        QVERIFY(ack.wait(5000));

        UpgradePluginModelDataInterface* upgrade = UpgradePluginModelDataInterface::singleInstance();
        QString const userId = upgrade->getUserID();
        QList<QVariant> const info = answerLater(upgrade, &UpgradePluginModelDataInterface::sig_checkUpdateInfo,
                                                 [&]() { return upgrade->checkUpdate(userId, 7); });
        QCOMPARE(info.value(0).toString(), userId);
        QList<int> kinds;
        for (_VERINFO_ const& entry : info.value(1).value<QList<_VERINFO_>>())
            kinds.append(entry.kind);
        QCOMPARE(kinds, (QList<int>{1, 4}));
    }

    void backendEventsReachTheGuiThreadIntact()
    {
        __sDeviceMgrPopup popup;
        popup.title = QStringLiteral("U盘已禁用");
        popup.time = 30;
        __sUniNoticeMsgInfo notice;
        notice.id = QStringLiteral("n-1");
        notice.value1 = (quint64(7) << 32) | 2;
        QList<QThread*> threads;
        auto noteThread = [&threads]() { threads.append(QThread::currentThread()); };
        QObject guard;   // ends the connections with this function
        connect(m_bridge, &Base::sig_device_mgr_msg, &guard, noteThread, Qt::DirectConnection);
        connect(m_bridge, &Base::sig_UniNotifyMsg, &guard, noteThread, Qt::DirectConnection);
        connect(SettingPluginModelDataInterface::singleInstance(), &SettingPluginModelDataInterface::sig_updateData,
                &guard, noteThread, Qt::DirectConnection);
        QSignalSpy popups(m_bridge, &Base::sig_device_mgr_msg);
        QSignalSpy notices(m_bridge, &Base::sig_UniNotifyMsg);
        QSignalSpy boots(m_bridge, &Base::sig_shutdown_reboot_notice);

        std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
        runOnWorker([&]() {
            emit backend->sig_device_mgr_msg(popup);
            emit backend->sig_UniNotifyMsg(notice);
            emit backend->sig_settingsChanged();
            emit backend->sig_shutdown_reboot_notice(1, 60);
        });
        QTRY_COMPARE(boots.count(), 1);

        __sDeviceMgrPopup const gotPopup = popups.value(0).value(0).value<__sDeviceMgrPopup>();
        QCOMPARE(gotPopup.title, popup.title);
        QCOMPARE(gotPopup.time, 30);
        __sUniNoticeMsgInfo const gotNotice = notices.value(0).value(0).value<__sUniNoticeMsgInfo>();
        QCOMPARE(gotNotice.id, notice.id);
        QCOMPARE(gotNotice.value1, notice.value1);
        QCOMPARE(boots.at(0), (QList<QVariant>{1, 60}));
        QCOMPARE(threads, (QList<QThread*>{thread(), thread(), thread()}));
    }

    void backendSwapReachesRunningBridges()
    {
        QCOMPARE(VerifyPluginModelDataInterface::singleInstance()->getVerifyPolicy(1), 1);
        std::shared_ptr<QuorixBackend> const old = QuorixBackendRegistry::backend();
        QuorixBackendRegistry::setBackend(std::make_shared<FixedBackend>(m_config.path()));
        QCOMPARE(VerifyPluginModelDataInterface::singleInstance()->getVerifyPolicy(1), 2);
        QList<QVariant> const version = answerLater(m_bridge, &Base::sig_setClientVersionInfo,
                                                    [this]() { return m_bridge->requestVersionInfo(); });
        QCOMPARE(version.value(0).toString(), QStringLiteral("9.9.9.9999"));

        // Events of the new backend are forwarded, those of the old one no longer.
        QSignalSpy hide(m_bridge, &Base::sig_hide);
        QSignalSpy centerShow(m_bridge, &Base::sig_centerShow);
        emit old->sig_hide();
        emit QuorixBackendRegistry::backend()->sig_centerShow();
        QVERIFY(centerShow.wait(5000));
        // Queued in emission order: a forwarded hide would have arrived first.
        QCOMPARE(hide.count(), 0);
        QuorixBackendRegistry::setBackend(nullptr);
    }
};

QTEST_GUILESS_MAIN(TstBasePluginModelDataInterface)
#include "tst_basepluginmodeldatainterface.moc"
