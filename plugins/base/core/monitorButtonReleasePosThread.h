#pragma once

#include <QPoint>
#include <QProcess>
#include <QThread>

// Under Wayland a client cannot read the pointer, so on the Deepin desktop the
// position of the last mouse-button press is taken from the Wayland daemon's
// bus traffic, which `busctl --user monitor` prints. The name says release;
// the daemon's press signal is the one that arrives before the tray's click.
//
// The object belongs to the thread that creates it (the GUI thread): the
// process and its slots run there, and the thread itself only turns an idle
// event loop. Once started it is meant to live as long as the process.
class MonitorButtonReleasePosThread : public QThread
{
    Q_OBJECT
public:
    explicit MonitorButtonReleasePosThread(QObject* parent = nullptr);
    ~MonitorButtonReleasePosThread() override;

    // (0, 0) until a press was seen; a zero coordinate means no position.
    QPoint getLastButtonReleasePos() const;

    // Reads one chunk of busctl's output. False when the chunk holds no
    // press signal; otherwise `pos` is the first press's x and y, a value
    // that is missing or not a number being 0.
    static bool parseButtonPress(QString const& chunk, QPoint& pos);

public slots:
    void setupProcess();
    void slot_output();
    void slot_processError(QProcess::ProcessError error);
    void slot_processFinished(int exitCode, QProcess::ExitStatus exitStatus);

protected:
    void run() override;

private:
    void startProcess();
    void restartLater();

    QPoint m_lastPos;
    QProcess* m_process = nullptr;
};
