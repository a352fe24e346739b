#include "msgMgrScreenWatcher.h"

#include "clogdebug.h"

#include <QGuiApplication>
#include <QScreen>

namespace {
constexpr char kLogModule[] = "plugins/msgmgr/msgMgrScreenWatcher";
} // namespace

MsgMgrScreenWatcher::MsgMgrScreenWatcher(QObject* parent)
    : QObject(parent)
{
}

MsgMgrScreenWatcher::~MsgMgrScreenWatcher()
{
    stop();
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                "[MsgMgrScreenWatcher] delete MsgMgrScreenWatcher obj");
}

void MsgMgrScreenWatcher::start()
{
    if (m_watching)
        return;
    auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (!app) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrScreenWatcher] no GUI application, screens not watched");
        return;
    }
    m_watching = true;
    connect(app, &QGuiApplication::primaryScreenChanged, this, &MsgMgrScreenWatcher::slot_recheck);
    connect(app, &QGuiApplication::screenAdded, this, &MsgMgrScreenWatcher::slot_screenAdded);
    connect(app, &QGuiApplication::screenRemoved, this, &MsgMgrScreenWatcher::slot_screenRemoved);
    // Every screen, not only the primary one: when the primary screen goes,
    // another becomes primary, and its later changes must be heard as well.
    for (QScreen* screen : QGuiApplication::screens())
        watchScreen(screen);
    m_lastAvailable = primaryAvailableGeometry();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "[MsgMgrScreenWatcher] watching screens, available area %d,%d %dx%d", m_lastAvailable.x(),
                m_lastAvailable.y(), m_lastAvailable.width(), m_lastAvailable.height());
}

void MsgMgrScreenWatcher::stop()
{
    if (!m_watching)
        return;
    m_watching = false;
    if (QCoreApplication* app = QCoreApplication::instance())
        disconnect(app, nullptr, this, nullptr);
    for (QScreen* screen : QGuiApplication::screens())
        disconnect(screen, nullptr, this, nullptr);
}

bool MsgMgrScreenWatcher::isWatching() const
{
    return m_watching;
}

QRect MsgMgrScreenWatcher::availableGeometry() const
{
    return m_watching ? m_lastAvailable : primaryAvailableGeometry();
}

void MsgMgrScreenWatcher::slot_screenAdded(QScreen* screen)
{
    if (!m_watching)
        return;
    watchScreen(screen);
    slot_recheck();
}

void MsgMgrScreenWatcher::slot_screenRemoved(QScreen* screen)
{
    if (screen)
        disconnect(screen, nullptr, this, nullptr);
    slot_recheck();
}

void MsgMgrScreenWatcher::slot_recheck()
{
    if (!m_watching)
        return;
    QRect const available = primaryAvailableGeometry();
    if (available == m_lastAvailable)
        return;
    m_lastAvailable = available;
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "[MsgMgrScreenWatcher] available area now %d,%d %dx%d", available.x(), available.y(),
                available.width(), available.height());
    emit sig_availableGeometryChanged(available);
}

void MsgMgrScreenWatcher::watchScreen(QScreen* screen)
{
    if (!screen)
        return;
    // Unique: a screen announced twice must not call twice per change.
    connect(screen, &QScreen::availableGeometryChanged, this, &MsgMgrScreenWatcher::slot_recheck,
            Qt::UniqueConnection);
    connect(screen, &QScreen::geometryChanged, this, &MsgMgrScreenWatcher::slot_recheck, Qt::UniqueConnection);
}

QRect MsgMgrScreenWatcher::primaryAvailableGeometry()
{
    QScreen const* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}
