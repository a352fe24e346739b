#include "monitorButtonReleasePosThread.h"

#include "clogdebug.h"
#include "trayDesktop.h"

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
constexpr int kKillTimeoutMs = 30000;
constexpr int kValueCount = 3;   // button, x, y

QString const kPressMember = QStringLiteral("Member=ButtonPress");
QString const kValueKey = QStringLiteral("UINT32 ");
} // namespace

MonitorButtonReleasePosThread::MonitorButtonReleasePosThread(QObject* parent)
    : QThread(parent)
{
    // started() is emitted by the new thread; the automatic connection
    // queues setupProcess() to the thread this object belongs to, and the
    // process with it.
    connect(this, &QThread::started, this, &MonitorButtonReleasePosThread::setupProcess);
    connect(this, &QThread::finished, this, &QObject::deleteLater);
}

MonitorButtonReleasePosThread::~MonitorButtonReleasePosThread()
{
    if (m_process && m_process->state() != QProcess::NotRunning) {
        // The kill is ours: it must not count as busctl going away.
        disconnect(m_process, nullptr, this, nullptr);
        m_process->kill();
        m_process->waitForFinished(kKillTimeoutMs);
        m_process->deleteLater();
        m_process = nullptr;
    }
    quit();
    wait();
}

QPoint MonitorButtonReleasePosThread::getLastButtonReleasePos() const
{
    return m_lastPos;
}

void MonitorButtonReleasePosThread::run()
{
    exec();
}

void MonitorButtonReleasePosThread::setupProcess()
{
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "[TrayWidget] MonitorButtonReleasePosThread::setupProcess");
    m_process = new QProcess(this);
    // Refused by Qt, as the process has a parent: the process stays with the
    // thread that created the monitor, which is where its slots must run.
    m_process->moveToThread(this);
    connect(m_process, &QProcess::readyReadStandardOutput, this, &MonitorButtonReleasePosThread::slot_output);
    connect(m_process, &QProcess::errorOccurred, this, &MonitorButtonReleasePosThread::slot_processError);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &MonitorButtonReleasePosThread::slot_processFinished);
    startProcess();
}

void MonitorButtonReleasePosThread::startProcess()
{
    m_process->start(TrayDesktop::monitorProgram(), TrayDesktop::monitorArguments(), QIODevice::ReadWrite);
}

void MonitorButtonReleasePosThread::restartLater()
{
    // QProcess reports FailedToStart before it cleans up after the failed
    // start, and that clean-up would tear down a process started from inside
    // the report. From the event loop the new start stands.
    QMetaObject::invokeMethod(
        this,
        [this]() {
            if (m_process && m_process->state() == QProcess::NotRunning)
                startProcess();
        },
        Qt::QueuedConnection);
}

void MonitorButtonReleasePosThread::slot_output()
{
    if (!m_process) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "MonitorButtonReleasePosThread::slot_output m_process is null");
        return;
    }
    QByteArray const output = m_process->readAllStandardOutput();
    if (output.isEmpty()) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "MonitorButtonReleasePosThread::slot_output output is empty");
        return;
    }
    QPoint pos;
    if (parseButtonPress(QString::fromUtf8(output), pos))
        m_lastPos = pos;
}

void MonitorButtonReleasePosThread::slot_processError(QProcess::ProcessError error)
{
    if (!m_process) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "MonitorButtonReleasePosThread::slot_processError m_process is null");
        return;
    }
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "QProcess MonitorButtonReleasePosThread::slot_processError error occurred[%d]", int(error));
    if (m_process->state() == QProcess::NotRunning)
        restartLater();
}

void MonitorButtonReleasePosThread::slot_processFinished(int exitCode, QProcess::ExitStatus exitStatus)
{
    if (!m_process) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "MonitorButtonReleasePosThread::slot_processFinished m_process is null");
        return;
    }
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "MonitorButtonReleasePosThread::slot_processFinished QProcess finished with code[%d] status[%d]",
                exitCode, int(exitStatus));
    if (m_process->state() == QProcess::NotRunning)
        restartLater();
}

bool MonitorButtonReleasePosThread::parseButtonPress(QString const& chunk, QPoint& pos)
{
    if (!chunk.contains(kPressMember))
        return false;
    int values[kValueCount] = {0, 0, 0};
    int from = 0;
    for (int& value : values) {
        int const key = chunk.indexOf(kValueKey, from);
        if (key < 0)
            break;
        from = key + kValueKey.size();
        int const end = chunk.indexOf(QLatin1Char(';'), from);
        if (end < 0)
            break;
        value = chunk.mid(from, end - from).toInt(nullptr, 10);
    }
    pos = QPoint(values[1], values[2]);
    return true;
}
