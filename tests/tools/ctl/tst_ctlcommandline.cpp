// quorix-ctl's command line: what each command puts into the backend's
// records, and the wrong command lines the tool turns away with status 2.

#include "ctlCommandLine.h"
#include "recordText.h"

#include <QProcess>
#include <QtTest>

namespace {

using Command = CtlCommandLine::Command;

QString ctlPath()
{
    return qEnvironmentVariable("QUORIX_ROOT", QStringLiteral(TST_BUILD_ROOT)) + QStringLiteral("/bin/quorix-ctl");
}

// Where the request's record is, the record; otherwise the command.
QString describe(CtlCommandLine::Request const& r)
{
    switch (r.command) {
    case Command::Notice:
        return RecordText::of(r.notice);
    case Command::DevicePopup:
        return RecordText::of(r.device);
    case Command::PowerOrder:
        return RecordText::power(r.power.method, r.power.countdown);
    case Command::Prompt:
        return RecordText::of(r.prompt);
    case Command::GuardDays:
        return QStringLiteral("days|%1").arg(r.days);
    case Command::Jump:
        return QStringLiteral("jump|") + r.objectName;
    case Command::Show:
        return QStringLiteral("show");
    case Command::Hide:
        return QStringLiteral("hide");
    case Command::Quit:
        return QStringLiteral("quit");
    case Command::Help:
        break;
    }
    return QStringLiteral("help");
}

} // namespace

class TstCtlCommandLine : public QObject
{
    Q_OBJECT

    QProcess* runCtl(QStringList const& arguments)
    {
        auto* process = new QProcess(this);
        process->start(ctlPath(), arguments);
        process->waitForFinished(10000);
        return process;
    }

private slots:
    void mapsCommandLineToRecord_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("record");
        QTest::newRow("notice keeps the record's defaults") << QStringList{"notice", "--title", "T"}
                                                            << "notice||0||T|15|3||-1|||-1";
        QTest::newRow("notice, every option, --url")
            << QStringList{"notice", "--title", "T", "--body", "B", "--heading", "H", "--id", "n1", "--level", "2",
                           "--countdown", "0", "--button", "9", "--link-text", "L", "--url", "https://example.org/a?b=c"}
            << "notice|n1|2|H|T|0|9|B|-1|L|https://example.org/a?b=c|0";
        QTest::newRow("notice --page, values after '='")
            << QStringList{"notice", "--title=T=1", "--page=m_pHomePage"} << "notice||0||T=1|15|3||-1||m_pHomePage|1";
        QTest::newRow("device, every option")
            << QStringList{"device", "--win-title", "W", "--title", "Ti", "--content", "C", "--button-text", "Bt",
                           "--countdown", "20", "--details", "D"}
            << "device|W|Ti|C|Bt|20|D";
        QTest::newRow("device keeps the record's defaults") << QStringList{"device", "--win-title", ""}
                                                            << "device|||||-1|";
        QTest::newRow("power shutdown, default count-down") << QStringList{"power", "shutdown"} << "power|0|60";
        QTest::newRow("power restart") << QStringList{"power", "--countdown", "1", "restart"} << "power|2|1";
        QTest::newRow("prompt, four texts in order")
            << QStringList{"prompt", "--type", "4", "a", "b", "c", "d"} << "prompt|4|a|b|c|d";
        QTest::newRow("prompt, '--' before a text like an option") << QStringList{"prompt", "--", "--x"}
                                                                   << "prompt|0|--x|||";
        QTest::newRow("days") << QStringList{"days", "36500"} << "days|36500";
        QTest::newRow("jump") << QStringList{"jump", "m_pSettingCentre"} << "jump|m_pSettingCentre";
        QTest::newRow("show") << QStringList{"show"} << "show";
        QTest::newRow("hide") << QStringList{"hide"} << "hide";
        QTest::newRow("quit") << QStringList{"quit"} << "quit";
        QTest::newRow("--help after a command wins") << QStringList{"notice", "--id", "x", "--help"} << "help";
    }

    void mapsCommandLineToRecord()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, record);
        CtlCommandLine::Request request;
        QString error;
        QVERIFY2(CtlCommandLine::parse(arguments, request, error), qPrintable(error));
        QCOMPARE(describe(request), record);
    }

    // Status 2, the reason and the usage on stderr, nothing on stdout; no bus
    // is needed to tell.
    void rejectsWrongCommandLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList{};
        QTest::newRow("unknown command") << QStringList{"frobnicate"};
        QTest::newRow("notice without --title") << QStringList{"notice", "--body", "B"};
        QTest::newRow("missing value") << QStringList{"notice", "--title"};
        QTest::newRow("unknown option") << QStringList{"notice", "--title", "T", "--colour", "red"};
        QTest::newRow("word for a number") << QStringList{"notice", "--title", "T", "--level", "high"};
        QTest::newRow("fraction for a number") << QStringList{"notice", "--title", "T", "--countdown", "1.5"};
        QTest::newRow("number beyond int") << QStringList{"notice", "--title", "T", "--button", "4294967296"};
        QTest::newRow("--url and --page") << QStringList{"notice", "--title", "T", "--url", "https://a.org", "--page", "P"};
        // The client's own limits apply before anything is sent.
        QTest::newRow("--url not on the web") << QStringList{"notice", "--title", "T", "--url", "file:///etc/passwd"};
        QTest::newRow("device without --win-title") << QStringList{"device", "--title", "T"};
        QTest::newRow("power without order") << QStringList{"power"};
        QTest::newRow("power, unknown order") << QStringList{"power", "reboot"};
        QTest::newRow("power, two orders") << QStringList{"power", "shutdown", "restart"};
        QTest::newRow("power, no count-down") << QStringList{"power", "shutdown", "--countdown", "0"};
        QTest::newRow("prompt without text") << QStringList{"prompt", "--type", "1"};
        QTest::newRow("prompt, five texts") << QStringList{"prompt", "a", "b", "c", "d", "e"};
        QTest::newRow("days negative") << QStringList{"days", "-1"};
        QTest::newRow("days past a century") << QStringList{"days", "36501"};
        QTest::newRow("show with an argument") << QStringList{"show", "now"};
        QTest::newRow("jump without page") << QStringList{"jump"};
    }

    void rejectsWrongCommandLine()
    {
        QFETCH(QStringList, arguments);
        CtlCommandLine::Request request;
        QString error;
        QVERIFY(!CtlCommandLine::parse(arguments, request, error));
        QVERIFY(!error.isEmpty() && !error.contains(QLatin1Char('\n')));

        QProcess* ctl = runCtl(arguments);
        QCOMPARE(ctl->exitCode(), 2);
        QString const stderrText = QString::fromLocal8Bit(ctl->readAllStandardError());
        QVERIFY(stderrText.startsWith(QStringLiteral("quorix-ctl: ") + error));
        QVERIFY(stderrText.contains(QStringLiteral("Usage: quorix-ctl")));
        QCOMPARE(ctl->readAllStandardOutput(), QByteArray());
    }

    void helpListsEveryCommand_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("--help") << QStringList{"--help"};
        QTest::newRow("command --help") << QStringList{"power", "--help"};
    }

    void helpListsEveryCommand()
    {
        QFETCH(QStringList, arguments);
        QProcess* ctl = runCtl(arguments);
        QCOMPARE(ctl->exitCode(), 0);
        QString const usage = QString::fromLocal8Bit(ctl->readAllStandardOutput());
        for (char const* command : {"notice", "device", "power", "prompt", "days", "show", "hide", "jump", "quit"})
            QVERIFY2(usage.contains(QStringLiteral("\n  %1 ").arg(QLatin1String(command))), command);
        QCOMPARE(ctl->readAllStandardError(), QByteArray());
    }
};

QTEST_GUILESS_MAIN(TstCtlCommandLine)
#include "tst_ctlcommandline.moc"
