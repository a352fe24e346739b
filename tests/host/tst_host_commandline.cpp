// quorix-gui's command line as a real process. The answers must come without
// a display: Qt is pointed at X11 with no DISPLAY, where creating the GUI
// application would abort the process.

#include "hostProcess.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

class TstHostCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void answersWithoutDisplay_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("out");   // pattern; "" = nothing on stdout
        QTest::addColumn<QString>("err");   // pattern; "" = nothing on stderr
        QString const usage = "Usage: \\S*quorix-gui \\[options\\].*--silent.*--root <DIR>.*--plugin-dir <DIR>.*--screenshot <DIR>";
        QString const version = "^quorix-gui \\d+\\.\\d+\\.\\d+\\n$";
        QTest::newRow("--help") << QStringList{"--help"} << 0 << usage << "";
        QTest::newRow("-h among other options") << QStringList{"--silent", "-h"} << 0 << usage << "";
        QTest::newRow("--version") << QStringList{"--version"} << 0 << version << "";
        QTest::newRow("Qt's own options are known") << QStringList{"-platform", "xcb", "-reverse", "-v"} << 0 << version << "";
        QTest::newRow("unknown option") << QStringList{"--bogus"} << 2 << "" << "^quorix-gui: Unknown option 'bogus'\\.\\n\\n" + usage;
        QTest::newRow("unknown option after --help") << QStringList{"--help", "--bogus"} << 2 << "" << usage;
        QTest::newRow("--root without its folder") << QStringList{"--root"} << 2 << "" << "Missing value after '--root'.*" + usage;
        QTest::newRow("--screenshot= empty") << QStringList{"--screenshot="} << 2 << "" << "Empty value.*screenshot";
        QTest::newRow("--plugin-dir without its folder") << QStringList{"--plugin-dir"} << 2 << ""
                                                         << "Missing value after '--plugin-dir'.*" + usage;
        QTest::newRow("one of several --plugin-dir empty") << QStringList{"--plugin-dir", "/a", "--plugin-dir="} << 2
                                                            << "" << "Empty value for option 'plugin-dir'.*" + usage;
        QTest::newRow("stray argument") << QStringList{"--silent", "stray"} << 2 << "" << "Unexpected argument 'stray'.*" + usage;
    }

    void answersWithoutDisplay()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, out);
        QFETCH(QString, err);
        QTemporaryDir dir;
        HostProcess host(dir.path());
        host.env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        host.env.remove(QStringLiteral("DISPLAY"));
        QVERIFY(host.start(arguments));
        QCOMPARE(host.waitForExit(), exitCode);
        auto const matches = [](QString const& pattern, QByteArray const& text) {
            return pattern.isEmpty() ? text.isEmpty()
                                     : QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption)
                                           .match(QString::fromLocal8Bit(text)).hasMatch();
        };
        QVERIFY(matches(out, host.process.readAllStandardOutput()));
        QVERIFY(matches(err, host.process.readAllStandardError()));
        QVERIFY(QDir(host.runtimeDir).isEmpty());   // no client, no lock
    }
};

QTEST_GUILESS_MAIN(TstHostCommandLine)
#include "tst_host_commandline.moc"
