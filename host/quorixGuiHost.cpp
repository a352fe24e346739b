#include "quorixGuiHost.h"

#include "clientIdentity.h"
#include "clogdebug.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "firstPaintWatcher.h"
#include "framelinkproxy.h"
#include "hostPluginLoader.h"
#include "screenshotTaker.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QTimer>

#include <cstdio>

namespace {

char const* const kModule = "host/quorixGuiHost";

QString const kBodyMountName = QStringLiteral("NavigateWidget_MainWindow");
QString const kBaseId = QStringLiteral("EPLUGIN_ID_BASE");
QString const kCmdMainExit = QStringLiteral("EPLUGIN_ID_BASE_CMD_MAINEXIT");
QString const kCmdSilentStartup = QStringLiteral("EPLUGIN_ID_BASE_CMD_SILENT_STARTUP");
QString const kCmdMainWindowShow = QStringLiteral("EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW");
// What the title bar's close button does; the base plugin runs its quit flow.
QString const kCmdCloseRequest = QStringLiteral("EPLUGIN_ID_BASE_CMD_TMP_QUIT");
int const kWindowWidth = 1000;
int const kWindowHeight = 580;
// A window that is not painted at once (mapped minimised, say) must not keep
// second starts unanswered for good.
int const kClientUpLatestMs = 1000;

} // namespace

QString QuorixGuiHost::resolveRoot(QString const& requested, QString const& applicationDir)
{
    QString root = requested;
    if (root.isEmpty())
        root = qEnvironmentVariable("QUORIX_ROOT");
    if (root.isEmpty())
        root = applicationDir + QStringLiteral("/..");
    return QDir::cleanPath(QDir(root).absolutePath());
}

QuorixGuiHost::QuorixGuiHost(Options options, QObject* parent)
    : QObject(parent)
    , m_options(std::move(options))
{
    InitVars();
}

QuorixGuiHost::~QuorixGuiHost()
{
    stop();
}

void QuorixGuiHost::InitVars()
{
    m_root = resolveRoot(m_options.root, QCoreApplication::applicationDirPath());
    QString const mainFolder = pluginDir();
    QStringList const extraFolders = HostPluginLoader::extraFolders(
        m_options.pluginDirs, qEnvironmentVariable(HostPluginLoader::kEnvironmentVariable), mainFolder);
    m_pPluginLoader = std::make_unique<HostPluginLoader>(mainFolder, extraFolders);
}

QString QuorixGuiHost::pluginDir() const
{
    return m_root + QStringLiteral("/lib/plugins-gui");
}

CQMainWindow* QuorixGuiHost::mainWindow() const
{
    return m_pMainWindow.data();
}

void QuorixGuiHost::InitUIMainWindow()
{
    m_pMainWindow = new CQMainWindow;
    m_pMainWindow->setObjectName(QStringLiteral("m_pMainWindow"));
    m_pMainWindow->setWindowFlags(m_pMainWindow->windowFlags() | Qt::Window | Qt::FramelessWindowHint);
    m_pMainWindow->setWindowTitle(ClientIdentity::productName());
    m_pMainWindow->setFixedSize(kWindowWidth, kWindowHeight);
    m_pMainWindow->setBodyMountName(kBodyMountName);
    m_pMainWindow->installEventFilter(this);
    if (!m_options.screenshotDir.isEmpty()) {
        auto* watcher = new FirstPaintWatcher(m_pMainWindow, this);
        auto* taker = new ScreenshotTaker(m_pMainWindow, m_options.screenshotDir, this);
        connect(watcher, &FirstPaintWatcher::sig_firstPaint, taker, &ScreenshotTaker::slot_takeAll);
        connect(taker, &ScreenshotTaker::sig_done, this, [this]() { requestQuit("screenshots taken"); });
    }
    if (m_options.silent)
        return;
    m_pFirstPaintWatcher = new FirstPaintWatcher(m_pMainWindow, this);
    if (m_options.quitAfterShow) {
        connect(m_pFirstPaintWatcher, &FirstPaintWatcher::sig_firstPaint, this, [this]() {
            // The benchmark times the start-up up to this line on stdout, so
            // it comes before what the first paint sets going.
            std::fputs("quorix-gui: main window painted\n", stdout);
            std::fflush(stdout);
            requestQuit("main window painted");
        });
    }
    connect(m_pFirstPaintWatcher, &FirstPaintWatcher::sig_firstPaint, this, &QuorixGuiHost::slot_firstPaint);
}

void QuorixGuiHost::InitControl()
{
    CQPluginManager* manager = CQPluginManager::singleInstance();
    manager->setHost(m_pMainWindow);
    connect(manager, &CQPluginManager::sig_command, this, &QuorixGuiHost::slot_command);
    connect(manager, &CQPluginManager::sig_pluginLoaded, this, &QuorixGuiHost::slot_pluginLoaded);
}

int QuorixGuiHost::start()
{
    if (m_started)
        return 0;
    m_started = true;
    m_startClock.start();
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] quorix-gui starting, root [%s]", qUtf8Printable(m_root));
    InitUIMainWindow();
    InitControl();
    // Every plugin is in before the window shows: the first paint already
    // holds what they add, the bridge's data included.
    int const loaded = m_pPluginLoader->loadAll();
    m_msPluginsLoaded = m_startClock.elapsed();
    // After the extra folders too: the line tells that every plugin is in.
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] %d plugins loaded from [%s]", loaded, qUtf8Printable(pluginDir()));
    QTimer::singleShot(kClientUpLatestMs, this, &QuorixGuiHost::slot_clientUp);

    if (m_options.silent) {
        // From the event loop, once every plugin has finished its start-up.
        QTimer::singleShot(0, this, &QuorixGuiHost::slot_silentStartup);
    } else if (m_pMainWindow) {
        m_pMainWindow->show();
    }
    if (m_options.quitAfterShow && m_options.silent)
        requestQuit("silent start, nothing to show");
    return loaded;
}

void QuorixGuiHost::slot_firstPaint()
{
    BFLOG(BFLOG_DEBUG, kModule, "[QuorixGuiHost] main window painted %lld ms after start (plugins loaded at %lld ms)",
          static_cast<long long>(m_startClock.elapsed()), static_cast<long long>(m_msPluginsLoaded));
    slot_clientUp();
}

void QuorixGuiHost::slot_silentStartup()
{
    CQPluginManager::singleInstance()->sendCmd(kBaseId, kCmdSilentStartup, QVariant());
    slot_clientUp();
}

void QuorixGuiHost::slot_clientUp()
{
    if (m_clientUp || m_stopped)
        return;
    m_clientUp = true;
    emit sig_clientUp();
}

void QuorixGuiHost::slot_pluginLoaded(QString id)
{
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] plugin [%s] installed", qUtf8Printable(id));
}

void QuorixGuiHost::slot_command(QString target, QString cmd, QVariant para)
{
    Q_UNUSED(target);
    Q_UNUSED(para);
    if (cmd == kCmdMainExit)
        requestQuit("main exit command");
    else if (cmd == kCmdMainWindowShow)
        showMainWindow();
}

// What the tray's left click and a second start ask for: the window back in
// front of the user, whether it was hidden, minimised or behind others.
void QuorixGuiHost::showMainWindow()
{
    if (!m_pMainWindow)
        return;
    m_pMainWindow->setWindowState((m_pMainWindow->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    m_pMainWindow->show();
    m_pMainWindow->raise();
    m_pMainWindow->activateWindow();
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] main window shown on request");
}

void QuorixGuiHost::slot_secondStart(bool silent)
{
    if (silent) {
        BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] second start (silent) handed over, nothing to show");
        return;
    }
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] second start handed over, showing the main window");
    showMainWindow();
}

bool QuorixGuiHost::eventFilter(QObject* watched, QEvent* event)
{
    // Spontaneous: the window system asked. A close the client makes itself
    // (close() in code) is its own decision and goes through untouched.
    // The type first: while the window is being destroyed it still sends
    // events, and comparing it with the guard would downcast a dying object.
    if (event->type() == QEvent::Close && event->spontaneous() && watched == m_pMainWindow) {
        event->ignore();
        slot_windowManagerClose();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void QuorixGuiHost::slot_windowManagerClose()
{
    if (!CQPluginManager::plugin(kBaseId)) {
        // No base plugin, no tray and no quit flow: closing the window is quitting.
        requestQuit("main window closed without the base plugin");
        return;
    }
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] main window closed by the window manager, asking the quit flow");
    CQPluginManager::singleInstance()->sendCmd(kBaseId, kCmdCloseRequest, QVariant());
}

void QuorixGuiHost::requestQuit(char const* why)
{
    if (m_quitRequested)
        return;
    m_quitRequested = true;
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] quitting: %s", why);
    // Queued: the command may arrive inside a plugin's call stack, or before
    // the event loop runs at all.
    QTimer::singleShot(0, this, &QuorixGuiHost::sig_quitRequested);
}

void QuorixGuiHost::stop()
{
    if (!m_started || m_stopped)
        return;
    m_stopped = true;
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] quorix-gui stopping");
    CQPluginManager::singleInstance()->unloadAll();
    // Plugins tear down with deleteLater; a deletion may schedule another one.
    for (int round = 0; round < 3; ++round)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete m_pMainWindow.data();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    CQPluginManager::UninitInstance(true);
    FrameLinkProxy::UninitInstance(true);
    BFLOG(BFLOG_INFO, kModule, "[QuorixGuiHost] quorix-gui stopped");
}
