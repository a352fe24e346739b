// The Wayland pointer monitor: what it reads out of busctl's output, and that
// it keeps trying when busctl cannot even be started.

#include "monitorButtonReleasePosThread.h"
#include "testLogCapture.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

// One signal as `busctl monitor` prints it into a pipe.
QString busctlSignal(QString const& member, QStringList const& values)
{
    QString text = QStringLiteral("‣ Type=signal  Endian=l  Flags=1  Version=1 Cookie=12  Timestamp=\"Sun 2024-03-03 "
                                  "10:00:00.000000 UTC\"\n  Sender=:1.5  Path=/com/deepin/daemon/KWayland/Output  "
                                  "Interface=com.deepin.daemon.KWayland.Output  Member=%1\n  UniqueName=:1.5\n"
                                  "  MESSAGE \"uuu\" {\n")
                       .arg(member);
    for (QString const& value : values)
        text += QStringLiteral("          UINT32 %1;\n").arg(value);
    return text + QStringLiteral("  };\n\n");
}

QString const kPress = QStringLiteral("ButtonPress");

} // namespace

class TstMonitorButtonReleasePosThread : public QObject
{
    Q_OBJECT

private slots:
    void parseButtonPress_data()
    {
        QTest::addColumn<QString>("chunk");
        QTest::addColumn<bool>("press");
        QTest::addColumn<QPoint>("pos");
        QTest::newRow("press") << busctlSignal(kPress, {"1", "812", "1050"}) << true << QPoint(812, 1050);
        QTest::newRow("release only") << busctlSignal("ButtonRelease", {"1", "812", "1050"}) << false << QPoint();
        QTest::newRow("member is case-sensitive") << busctlSignal("buttonpress", {"1", "2", "3"}) << false << QPoint();
        QTest::newRow("press without values") << busctlSignal(kPress, {}) << true << QPoint(0, 0);
        QTest::newRow("two values") << busctlSignal(kPress, {"1", "300"}) << true << QPoint(300, 0);
        QTest::newRow("first signal of the chunk")
            << busctlSignal(kPress, {"1", "10", "20"}) + busctlSignal(kPress, {"1", "30", "40"}) << true
            << QPoint(10, 20);
        QTest::newRow("values of an earlier signal count")
            << busctlSignal("ButtonRelease", {"1", "5", "6"}) + busctlSignal(kPress, {"1", "7", "8"}) << true
            << QPoint(5, 6);
        QTest::newRow("not a number") << busctlSignal(kPress, {"1", "abc", "90"}) << true << QPoint(0, 90);
        QTest::newRow("beyond int") << busctlSignal(kPress, {"1", "4294967295", "90"}) << true << QPoint(0, 90);
        QTest::newRow("cut before the last semicolon") << busctlSignal(kPress, {"1", "812"}) + "UINT32 1050" << true
                                                       << QPoint(812, 0);
        QTest::newRow("nothing") << QString() << false << QPoint();
    }
    void parseButtonPress()
    {
        QFETCH(QString, chunk);
        QFETCH(bool, press);
        QFETCH(QPoint, pos);
        QPoint parsed(-1, -1);
        QCOMPARE(MonitorButtonReleasePosThread::parseButtonPress(chunk, parsed), press);
        if (press)
            QCOMPARE(parsed, pos);
        else
            QCOMPARE(parsed, QPoint(-1, -1));
    }

    // A start that fails is tried again from the event loop, over and over;
    // deleting the monitor ends it.
    void restartsAfterFailedStart()
    {
        TestLogCapture log;
        QTemporaryDir emptyPath;
        QByteArray const savedPath = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(emptyPath.path()));
        auto* monitor = new MonitorButtonReleasePosThread;
        QSignalSpy destroyed(monitor, &QObject::destroyed);
        monitor->start(QThread::InheritPriority);
        QString const failed = QStringLiteral("QProcess MonitorButtonReleasePosThread::slot_processError error "
                                              "occurred[%1]")
                                   .arg(int(QProcess::FailedToStart));
        QTRY_VERIFY(log.count(failed) >= 3);
        qputenv("PATH", savedPath);
        QCOMPARE(log.count(QStringLiteral("[TrayWidget] MonitorButtonReleasePosThread::setupProcess")), 1);
        QCOMPARE(monitor->getLastButtonReleasePos(), QPoint(0, 0));
        delete monitor;
        QCOMPARE(destroyed.count(), 1);
    }
};

QTEST_GUILESS_MAIN(TstMonitorButtonReleasePosThread)
#include "tst_monitorButtonReleasePosThread.moc"
