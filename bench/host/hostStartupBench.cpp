// Start-up of bin/quorix-gui (plugins loaded, main window painted once)
// against a bare Qt program that paints a window of the same size holding one
// label in the client's CJK font. Runs both alternately, headless, and prints
// the medians and their ratio.
//
// A third series runs the host over an empty plugin folder, which separates
// the host and framework from what the plugins' start-up costs.
//
//   bench_host_startup [--runs N] [--host PATH] [--bare PATH]

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVector>

#include <algorithm>
#include <cstdio>

namespace {

struct Sample {
    double paintMs = 0;   // start to the "painted" line on stdout
    double totalMs = 0;   // start to process exit
    bool ok = false;
};

struct Series {
    QString name;
    QVector<double> paint;
    QVector<double> total;
    int failures = 0;
};

double percentile(QVector<double> values, double p)
{
    if (values.isEmpty())
        return 0;
    std::sort(values.begin(), values.end());
    int const index = qBound(0, int(p * (values.size() - 1) + 0.5), values.size() - 1);
    return values.at(index);
}

Sample runOnce(QString const& program, QStringList const& arguments, QProcessEnvironment const& env)
{
    Sample sample;
    QProcess process;
    process.setProcessEnvironment(env);
    process.setProcessChannelMode(QProcess::SeparateChannels);
    QElapsedTimer clock;
    clock.start();
    process.start(program, arguments);
    if (!process.waitForStarted(10000))
        return sample;
    QByteArray out;
    while (!out.contains("painted") && process.waitForReadyRead(30000))
        out += process.readAllStandardOutput();
    sample.paintMs = clock.nsecsElapsed() / 1e6;
    if (!process.waitForFinished(30000)) {
        process.kill();
        process.waitForFinished();
        return sample;
    }
    sample.totalMs = clock.nsecsElapsed() / 1e6;
    sample.ok = out.contains("painted") && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return sample;
}

void record(Series& series, Sample const& sample)
{
    if (!sample.ok) {
        ++series.failures;
        return;
    }
    series.paint.append(sample.paintMs);
    series.total.append(sample.totalMs);
}

void printSeries(QTextStream& out, Series const& series)
{
    out << QStringLiteral("%1  runs %2  failed %3\n").arg(series.name, -24).arg(series.paint.size()).arg(series.failures);
    out << QStringLiteral("    to first paint  median %1 ms  min %2  p90 %3  max %4\n")
               .arg(percentile(series.paint, 0.5), 0, 'f', 1)
               .arg(percentile(series.paint, 0.0), 0, 'f', 1)
               .arg(percentile(series.paint, 0.9), 0, 'f', 1)
               .arg(percentile(series.paint, 1.0), 0, 'f', 1);
    out << QStringLiteral("    to exit         median %1 ms\n").arg(percentile(series.total, 0.5), 0, 'f', 1);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    int runs = 30;
    QString host = QStringLiteral(BENCH_HOST_PROGRAM);
    QString bare = QStringLiteral(BENCH_BARE_PROGRAM);
    QStringList const args = QCoreApplication::arguments();
    for (int i = 1; i + 1 < args.size(); i += 2) {
        if (args.at(i) == QLatin1String("--runs"))
            runs = qMax(1, args.at(i + 1).toInt());
        else if (args.at(i) == QLatin1String("--host"))
            host = args.at(i + 1);
        else if (args.at(i) == QLatin1String("--bare"))
            bare = args.at(i + 1);
    }

    QTemporaryDir scratch;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("QUORIX_LOG_STDERR"), QStringLiteral("0"));
    env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("2"));
    env.insert(QStringLiteral("QUORIX_LOG_FILE"), scratch.filePath(QStringLiteral("quorix-gui.log")));
    env.insert(QStringLiteral("QUORIX_CONFIG_DIR"), scratch.filePath(QStringLiteral("config")));

    QProcessEnvironment noPlugins = env;
    noPlugins.insert(QStringLiteral("QUORIX_ROOT"), scratch.filePath(QStringLiteral("empty-root")));

    QStringList const hostArgs{QStringLiteral("--quit-after-show")};
    // Warm the page cache and the font cache first; those runs are not counted.
    for (int i = 0; i < 2; ++i) {
        runOnce(host, hostArgs, env);
        runOnce(bare, {}, env);
    }
    Series hostSeries{QStringLiteral("quorix-gui"), {}, {}, 0};
    Series bareSeries{QStringLiteral("bare Qt window"), {}, {}, 0};
    Series emptySeries{QStringLiteral("quorix-gui, no plugins"), {}, {}, 0};
    for (int i = 0; i < runs; ++i) {
        // Alternate which goes first so drift in machine load hits both alike.
        if (i % 2 == 0) {
            record(hostSeries, runOnce(host, hostArgs, env));
            record(bareSeries, runOnce(bare, {}, env));
        } else {
            record(bareSeries, runOnce(bare, {}, env));
            record(hostSeries, runOnce(host, hostArgs, env));
        }
        record(emptySeries, runOnce(host, hostArgs, noPlugins));
    }

    QTextStream out(stdout);
    out << QStringLiteral("host start-up to main window painted, offscreen, %1 runs each, alternating\n").arg(runs);
    printSeries(out, hostSeries);
    printSeries(out, bareSeries);
    printSeries(out, emptySeries);
    double const bareMedian = percentile(bareSeries.paint, 0.5);
    if (bareMedian > 0) {
        out << QStringLiteral("ratio of medians (host / bare), to first paint: %1\n")
                   .arg(percentile(hostSeries.paint, 0.5) / bareMedian, 0, 'f', 2);
        out << QStringLiteral("ratio of medians (host / bare), to exit:        %1\n")
                   .arg(percentile(hostSeries.total, 0.5) / percentile(bareSeries.total, 0.5), 0, 'f', 2);
        out << QStringLiteral("ratio of medians (host without plugins / bare), to first paint: %1\n")
                   .arg(percentile(emptySeries.paint, 0.5) / bareMedian, 0, 'f', 2);
    }
    out.flush();
    return hostSeries.failures + bareSeries.failures + emptySeries.failures == 0 ? 0 : 1;
}
