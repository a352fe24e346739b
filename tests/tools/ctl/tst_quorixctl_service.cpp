// The control service, run in this process on a bus of the test's own: what
// bin/quorix-ctl sends arrives as the bridge signal the base plugin listens
// to, every field where it belongs; what any other caller on the bus sends is
// held to the limits, and a refusal emits nothing.

#include "backendControlService.h"
#include "basepluginmodeldatainterface.h"
#include "privateSessionBus.h"
#include "recordText.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int const kCallTimeoutMs = 20000;
QString const kServiceConnection = QStringLiteral("tst_quorixctl_service");
QString const kClientConnection = QStringLiteral("tst_quorixctl_client");

QString ctlPath()
{
    return qEnvironmentVariable("QUORIX_ROOT", QStringLiteral(TST_BUILD_ROOT)) + QStringLiteral("/bin/quorix-ctl");
}

QString text(int length)
{
    return QString(length, QLatin1Char('x'));
}

QVariantList notice(qlonglong level, QString const& title, int countdown, int button, QString const& target, int jump)
{
    return {QString(), level, QString(), title, countdown, button, QString(), QString(), target, jump};
}

} // namespace

class TstQuorixCtlService : public QObject
{
    Q_OBJECT

    QTemporaryDir m_config;
    QScopedPointer<PrivateSessionBus> m_bus;
    QScopedPointer<BackendControlService> m_service;
    QStringList m_heard;
    QVector<QMetaObject::Connection> m_links;

    void listenToBridge()
    {
        using Bridge = BasePluginModelDataInterface;
        Bridge* bridge = Bridge::singleInstance();
        auto const hear = [this](QString const& text) { m_heard.append(text); };
        m_links = {
            connect(bridge, &Bridge::sig_UniNotifyMsg, this, [hear](__sUniNoticeMsgInfo i) { hear(RecordText::of(i)); }),
            connect(bridge, &Bridge::sig_device_mgr_msg, this, [hear](__sDeviceMgrPopup i) { hear(RecordText::of(i)); }),
            connect(bridge, &Bridge::sig_noticeWin, this, [hear](_sNoticeWinInfo_ i) { hear(RecordText::of(i)); }),
            connect(bridge, &Bridge::sig_shutdown_reboot_notice, this,
                    [hear](int method, int time) { hear(RecordText::power(method, time)); }),
            connect(bridge, &Bridge::sig_CumulativeGuardDays, this,
                    [hear](unsigned int days) { hear(QStringLiteral("days|%1").arg(days)); }),
            connect(bridge, &Bridge::sig_Jump, this, [hear](QString name) { hear(QStringLiteral("jump|") + name); }),
            connect(bridge, &Bridge::sig_centerShow, this, [hear]() { hear(QStringLiteral("show")); }),
            connect(bridge, &Bridge::sig_hide, this, [hear]() { hear(QStringLiteral("hide")); }),
            connect(bridge, &Bridge::sig_appQuit, this, [hear]() { hear(QStringLiteral("quit")); }),
        };
    }

    // Asynchronous: the service answers from this thread's event loop.
    QDBusMessage call(QString const& method, QVariantList const& arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(QLatin1String(QuorixControl::kServiceName),
                                                              QLatin1String(QuorixControl::kObjectPath),
                                                              QLatin1String(QuorixControl::kInterface), method);
        message.setArguments(arguments);
        QDBusPendingCall pending = QDBusConnection(kClientConnection).asyncCall(message);
        if (!QTest::qWaitFor([&pending]() { return pending.isFinished(); }, kCallTimeoutMs))
            return QDBusMessage();
        return pending.reply();
    }

private slots:
    void initTestCase()
    {
        if (!QFile::exists(ctlPath()))
            QSKIP("quorix-ctl is not built");
        QVERIFY(m_config.isValid());
        qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
    }

    void init()
    {
        m_bus.reset(new PrivateSessionBus);
        QVERIFY2(m_bus->isUp(), "dbus-daemon did not start");
        QDBusConnection const connection = QDBusConnection::connectToBus(m_bus->address(), kServiceConnection);
        QVERIFY(QDBusConnection::connectToBus(m_bus->address(), kClientConnection).isConnected());
        m_service.reset(new BackendControlService(connection));
        QVERIFY(m_service->start());
        listenToBridge();
    }

    void cleanup()
    {
        // What a failed row left on its way to the bridge lands here, not in the next row.
        QCoreApplication::sendPostedEvents();
        for (QMetaObject::Connection const& link : qAsConst(m_links))
            disconnect(link);
        m_links.clear();
        m_heard.clear();
        m_service.reset();
        QDBusConnection::disconnectFromBus(kServiceConnection);
        QDBusConnection::disconnectFromBus(kClientConnection);
        m_bus.reset();
    }

    void cleanupTestCase() { BasePluginModelDataInterface::UninitInstance(true); }

    void commandArrivesAsBridgeSignal_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("heard");
        QTest::newRow("notice")
            << QStringList{"notice", "--title", "T", "--body", "B", "--heading", "H", "--id", "n1", "--level", "2",
                           "--countdown", "30", "--button", "4", "--link-text", "L", "--url", "https://example.org/"}
            << "notice|n1|2|H|T|30|4|B|-1|L|https://example.org/|0";
        QTest::newRow("notice with a page") << QStringList{"notice", "--title", "T", "--page", "m_pHomePage"}
                                            << "notice||0||T|15|3||-1||m_pHomePage|1";
        QTest::newRow("device")
            << QStringList{"device", "--win-title", "W", "--title", "Ti", "--content", "C", "--button-text", "Bt",
                           "--countdown", "20", "--details", "D"}
            << "device|W|Ti|C|Bt|20|D";
        QTest::newRow("power restart") << QStringList{"power", "restart", "--countdown", "5"} << "power|2|5";
        QTest::newRow("prompt") << QStringList{"prompt", "--type", "3", "a", "b", "c", "d"} << "prompt|3|a|b|c|d";
        QTest::newRow("days") << QStringList{"days", "42"} << "days|42";
        QTest::newRow("show") << QStringList{"show"} << "show";
        QTest::newRow("hide") << QStringList{"hide"} << "hide";
        QTest::newRow("jump") << QStringList{"jump", "m_pSettingCentre"} << "jump|m_pSettingCentre";
        QTest::newRow("quit") << QStringList{"quit"} << "quit";
    }

    void commandArrivesAsBridgeSignal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, heard);
        QProcess ctl;
        ctl.setProcessEnvironment(PrivateSessionBus::environment(m_bus->address()));
        ctl.start(ctlPath(), arguments);
        QTRY_VERIFY_WITH_TIMEOUT(ctl.state() == QProcess::NotRunning, kCallTimeoutMs);
        QVERIFY2(ctl.exitCode() == 0, ctl.readAllStandardError().constData());
        QTRY_COMPARE(m_heard, QStringList{heard});
    }

    // Each limit from both sides, as a caller that is not quorix-ctl sees it.
    void callerHeldToLimits_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QVariantList>("arguments");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("notice at every limit")
            << "Notice" << notice(9, text(256), 86400, 99, "https://example.org/" + text(2000), 0) << true;
        QTest::newRow("notice level 10") << "Notice" << notice(10, "T", 15, 3, "", -1) << false;
        QTest::newRow("notice title too long") << "Notice" << notice(0, text(257), 15, 3, "", -1) << false;
        QTest::newRow("notice count-down past a day") << "Notice" << notice(0, "T", 86401, 3, "", -1) << false;
        QTest::newRow("notice opening a file") << "Notice" << notice(0, "T", 15, 3, "file:///etc/passwd", 0) << false;
        QTest::newRow("notice running a script") << "Notice" << notice(0, "T", 15, 3, "javascript:alert(1)", 0) << false;
        QTest::newRow("notice, page of a path") << "Notice" << notice(0, "T", 15, 3, "../m_pHome", 1) << false;
        QTest::newRow("notice, jump kind 2") << "Notice" << notice(0, "T", 15, 3, "m_pHome", 2) << false;
        QTest::newRow("notice, arguments missing") << "Notice" << QVariantList{QString(), "T"} << false;
        QTest::newRow("device at every limit")
            << "DevicePopup" << QVariantList{text(256), text(256), text(4096), text(256), -1, text(4096)} << true;
        QTest::newRow("device time -2") << "DevicePopup" << QVariantList{"W", "T", "C", "B", -2, ""} << false;
        QTest::newRow("power method 3") << "PowerOrder" << QVariantList{3, 60} << false;
        QTest::newRow("power without count-down") << "PowerOrder" << QVariantList{0, 0} << false;
        QTest::newRow("prompt type 4, longest text") << "Prompt" << QVariantList{4, text(4096), "", "", ""} << true;
        QTest::newRow("prompt type 5") << "Prompt" << QVariantList{5, "a", "", "", ""} << false;
        QTest::newRow("days, a century") << "GuardDays" << QVariantList{QVariant::fromValue(36500u)} << true;
        QTest::newRow("days past a century") << "GuardDays" << QVariantList{QVariant::fromValue(36501u)} << false;
        QTest::newRow("jump, empty name") << "Jump" << QVariantList{QString()} << false;
        QTest::newRow("jump, name too long") << "Jump" << QVariantList{text(129)} << false;
    }

    void callerHeldToLimits()
    {
        QFETCH(QString, method);
        QFETCH(QVariantList, arguments);
        QFETCH(bool, accepted);
        QDBusMessage const reply = call(method, arguments);
        if (accepted) {
            QVERIFY2(reply.type() == QDBusMessage::ReplyMessage, qPrintable(reply.errorMessage()));
            QTRY_COMPARE(m_heard.size(), 1);
            return;
        }
        QCOMPARE(reply.type(), QDBusMessage::ErrorMessage);
        // A wrong signature is turned away by Qt before the service runs.
        if (arguments.size() > 2)
            QCOMPARE(reply.errorName(), QDBusError::errorString(QDBusError::InvalidArgs));
        // Anything emitted would be on its way to the bridge by now: a call
        // that follows the refused one is heard alone.
        QCOMPARE(call(QStringLiteral("Hide"), {}).type(), QDBusMessage::ReplyMessage);
        QTRY_COMPARE(m_heard, QStringList{QStringLiteral("hide")});
    }
};

QTEST_GUILESS_MAIN(TstQuorixCtlService)
#include "tst_quorixctl_service.moc"
