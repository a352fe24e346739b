#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

class CQMainWindow;
class FirstPaintWatcher;

// The GUI host: the main window, the plugins of <root>/lib/plugins-gui/ and
// the way out. Command routing itself belongs to CQPluginManager; the host
// only watches the bus for the commands addressed to it.
class QuorixGuiHost : public QObject
{
    Q_OBJECT
public:
    struct Options {
        QString root;          // "" = QUORIX_ROOT, else the folder above bin/
        bool silent = false;   // start in the tray, main window hidden
        bool quitAfterShow = false;
        QString screenshotDir; // render the windows into this folder, then quit
    };

    // The install root: `requested`, else $QUORIX_ROOT, else the parent of the
    // folder holding the executable.
    static QString resolveRoot(QString const& requested, QString const& applicationDir);

    explicit QuorixGuiHost(Options options, QObject* parent = nullptr);
    ~QuorixGuiHost() override;

    // Creates the main window, loads the plugins, shows the window (unless
    // silent). Returns how many plugins were loaded.
    int start();
    // After the event loop: unloads every plugin and lets their deferred
    // deletions run while the main window still exists, then drops the window.
    void stop();

    CQMainWindow* mainWindow() const;
    QString pluginDir() const;

    // A second start handed over to this client: it wants the main window in
    // front of the user, or, with --silent, nothing to change.
    void slot_secondStart(bool silent);

signals:
    // The host wants the event loop to end.
    void sig_quitRequested();

protected:
    // The window manager's close (Alt+F4, a taskbar's close) goes where the
    // title bar's close button goes: the base plugin's quit flow decides.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void InitVars();
    void InitUIMainWindow();
    void InitControl();
    void slot_command(QString target, QString cmd, QVariant para);
    void slot_pluginLoaded(QString id);
    void slot_silentStartup();
    void showMainWindow();
    void slot_windowManagerClose();
    void requestQuit(char const* why);

    Options m_options;
    QString m_root;
    QPointer<CQMainWindow> m_pMainWindow;
    FirstPaintWatcher* m_pFirstPaintWatcher = nullptr;
    bool m_quitRequested = false;
    bool m_started = false;
    bool m_stopped = false;
};
