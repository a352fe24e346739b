#pragma once

#include <QProcess>

// A server or client the test starts: it dies with the test process, even
// when a time-out or a crash ends the test before its clean-up runs.
class ChildProcess : public QProcess
{
    Q_OBJECT
public:
    using QProcess::QProcess;

protected:
    void setupChildProcess() override;
};
