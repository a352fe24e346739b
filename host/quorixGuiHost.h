#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class CQMainWindow;
class FirstPaintWatcher;
class HostPluginLoader;

// The GUI host: the main window, the plugins of <root>/lib/plugins-gui/ and of
// any extra plugin folders, and the way out. Command routing itself belongs to
// CQPluginManager; the host only watches the bus for the commands addressed to
// it.
class QuorixGuiHost : public QObject
{
    Q_OBJECT
public:
    struct Options {
        QString root;          // "" = QUORIX_ROOT, else the folder above bin/
        bool silent = false;   // start in the tray, main window hidden
        bool quitAfterShow = false;
        QString screenshotDir; // render the windows into this folder, then quit
        QStringList pluginDirs; // extra plugin folders (--plugin-dir), before $QUORIX_PLUGIN_DIRS
    };

    // The install root: `requested`, else $QUORIX_ROOT, else the parent of the
    // folder holding the executable.
    static QString resolveRoot(QString const& requested, QString const& applicationDir);

    explicit QuorixGuiHost(Options options, QObject* parent = nullptr);
    ~QuorixGuiHost() override;

    // Creates the main window, loads the plugins (those of the extra folders
    // too), shows the window (unless silent). Returns how many plugins were
    // loaded from <root>/lib/plugins-gui.
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
    // The client is up: its plugins are loaded and its main window painted (or,
    // silent, the base plugin told). Work that nothing on screen waits for
    // starts here. Emitted once, at the latest a second after start().
    void sig_clientUp();

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
    void slot_firstPaint();
    void slot_clientUp();
    void slot_silentStartup();
    void showMainWindow();
    void slot_windowManagerClose();
    void requestQuit(char const* why);

    Options m_options;
    QString m_root;
    QPointer<CQMainWindow> m_pMainWindow;
    FirstPaintWatcher* m_pFirstPaintWatcher = nullptr;
    std::unique_ptr<HostPluginLoader> m_pPluginLoader;
    // Since start(): a debug record tells where the start-up time went.
    QElapsedTimer m_startClock;
    qint64 m_msPluginsLoaded = 0;
    bool m_quitRequested = false;
    bool m_clientUp = false;
    bool m_started = false;
    bool m_stopped = false;
};
