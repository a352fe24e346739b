#include "trayWidget.h"
#include "trayWidget_p.h"

#include "basepluginmodeldatainterface.h"
#include "clogdebug.h"
#include "cstr.h"
#include "dravoguiconfig.h"
#include "menuWidget.h"

#include <QCursor>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
constexpr char kDefaultIcon[] = ":/img/logo.ico";
constexpr char kDefaultProductName[] = "Quorix终端安全管理系统";
constexpr int kDefaultPanelSide = 3;
constexpr int kDefaultPanelThickness = 40;

TrayWidget* s_pTrayWidget = nullptr;
} // namespace

// ---------------------------------------------------------------- private part

TrayWidgetPrivate::TrayWidgetPrivate(TrayWidget* q)
    : q_ptr(q)
{
}

TrayWidgetPrivate::~TrayWidgetPrivate()
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[TrayWidgetPrivate] delete TrayWidgetPrivate obj");
}

QPoint TrayWidgetPrivate::placeAtCursor(QPoint const& cursor, QSize const& menu, QSize const& screen)
{
    int x = cursor.x() - menu.width() / 2;
    if (x < 0)
        x = cursor.x();
    else if (x + menu.width() >= screen.width())
        x = cursor.x() - menu.width();
    int y = cursor.y() - menu.height();
    if (y < 0)
        y = cursor.y();
    return QPoint(x, y);
}

QPoint TrayWidgetPrivate::placeByPanel(int side, int thickness, QSize const& menu, QSize const& screen)
{
    int const w = menu.width();
    int const h = menu.height();
    switch (side) {
    case 0:
        return QPoint(thickness, screen.height() - h);
    case 1:
        return QPoint(screen.width() - w, thickness);
    case 2:
        return QPoint(screen.width() - thickness - w, screen.height() - h);
    case 3:
        return QPoint(screen.width() - w, screen.height() - thickness - h);
    default:
        return QPoint(0, 0);
    }
}

void TrayWidgetPrivate::trayMenuPos(int& x, int& y)
{
    QScreen const* primary = QGuiApplication::primaryScreen();
    QSize const screen = primary ? primary->geometry().size() : QSize();
    QSize const menu = q_ptr->m_pMenu ? q_ptr->m_pMenu->size() : QSize();
    QPoint pos = QCursor::pos();
    if (q_ptr->m_nDisplayProtocol == TrayWidget::EDISPLAY_WAYLAND) {
        // Under Wayland the pointer position may be unknown (reported as 0);
        // the panel's corner is the fallback then.
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] second QCursor::pos = %d, %d",
                    pos.x(), pos.y());
        if (pos.x() == 0 || pos.y() == 0) {
            pos = placeByPanel(kDefaultPanelSide, kDefaultPanelThickness, menu, screen);
            x = pos.x();
            y = pos.y();
            return;
        }
    }
    pos = placeAtCursor(pos, menu, screen);
    x = pos.x();
    y = pos.y();
}

// ---------------------------------------------------------------- singleton

TrayWidget* TrayWidget::singleInstance()
{
    if (!s_pTrayWidget) {
        s_pTrayWidget = new TrayWidget();
        QObject::connect(s_pTrayWidget, &QObject::destroyed, []() { s_pTrayWidget = nullptr; });
    }
    return s_pTrayWidget;
}

void TrayWidget::UninitInstance(bool now)
{
    if (!s_pTrayWidget)
        return;
    if (now) {
        delete s_pTrayWidget;
        s_pTrayWidget = nullptr;
    } else {
        s_pTrayWidget->deleteLater();
    }
}

void TrayWidget::setPtr(void* p)
{
    s_pTrayWidget = static_cast<TrayWidget*>(p);
}

TrayWidget::TrayWidget()
    : QObject(nullptr)
    , d_ptr(new TrayWidgetPrivate(this))
{
#ifdef UI_BASE_HAS_PROBE_SYSINFO
    CProbeSysInfo::getPlatformSystemInfo(d_ptr->m_sysInfo, nullptr);
#endif
    d_ptr->m_sysInfo.os_name = CStr::toLower(d_ptr->m_sysInfo.os_name);
    updateDisplayProtocol();
    startWaylandMonitor();
}

TrayWidget::~TrayWidget()
{
    delete d_ptr;
    d_ptr = nullptr;
    if (m_pTrayIcon) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] hide and del Tray Icon !");
        m_pTrayIcon->hide();
        m_pTrayIcon->deleteLater();
    }
    if (m_pMenu)
        m_pMenu->deleteLater();
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] delete TrayWidget obj");
}

// ---------------------------------------------------------------- operations

void TrayWidget::init()
{
    if (!m_pMenu) {
        m_pMenu = new MenuWidget(nullptr);
        connect(m_pMenu, &MenuWidget::sig_hide, this,
                []() { emit BasePluginModelDataInterface::singleInstance()->sig_trayPopHide(); });
    }
    m_pMenu->hide();
}

void TrayWidget::showTrayIcon()
{
    if (!m_pTrayIcon)
        initSystemTrayIcon();
    else if (!m_pTrayIcon->isVisible())
        m_pTrayIcon->show();
}

void TrayWidget::registMenu(QWidget* w, int index)
{
    if (!m_pMenu || !w)
        return;
    // The menu re-parents the widget itself, and only when it takes it, so a
    // refused duplicate is left where its owner put it.
    m_pMenu->addItem(w, index);
}

void TrayWidget::unRegistMenu(QWidget* w, int index)
{
    if (!m_pMenu || !w)
        return;
    m_pMenu->removeItem(w, index);
    if (w->parentWidget() == m_pMenu)
        w->setParent(nullptr);
}

MenuWidget* TrayWidget::menu() const
{
    return m_pMenu;
}

QSystemTrayIcon* TrayWidget::trayIcon() const
{
    return m_pTrayIcon;
}

int TrayWidget::displayProtocol() const
{
    return m_nDisplayProtocol;
}

std::string TrayWidget::osName() const
{
    return d_ptr ? d_ptr->m_sysInfo.os_name : std::string();
}

bool TrayWidget::osNameContains(char const* needle) const
{
    return d_ptr && CStr::contains(d_ptr->m_sysInfo.os_name, needle);
}

void TrayWidget::updateDisplayProtocol()
{
    m_nDisplayProtocol = EDISPLAY_UNKNOWN;
    QByteArray const session = qgetenv("XDG_SESSION_TYPE");
    if (session == "wayland") {
        m_nDisplayProtocol = EDISPLAY_WAYLAND;
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[TrayWidget] Display protocol: Wayland (XDG_SESSION_TYPE)");
        return;
    }
    if (session == "x11") {
        m_nDisplayProtocol = EDISPLAY_X11;
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[TrayWidget] Display protocol: X11 (XDG_SESSION_TYPE)");
        return;
    }
    // Any other session type (tty, an upper-case Wayland, ...) is not trusted:
    // the display variables decide.
    bool const wayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    bool const x11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    if (wayland && !x11) {
        m_nDisplayProtocol = EDISPLAY_WAYLAND;
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[TrayWidget] Display protocol: Wayland (WAYLAND_DISPLAY only)");
    } else if (!wayland && x11) {
        m_nDisplayProtocol = EDISPLAY_X11;
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[TrayWidget] Display protocol: X11 (DISPLAY only)");
    } else if (wayland && x11) {
        m_nDisplayProtocol = EDISPLAY_WAYLAND;
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[TrayWidget] Display protocol: Wayland (both present, preferring Wayland)");
    } else {
        m_nDisplayProtocol = EDISPLAY_X11;
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                    "[TrayWidget] No display protocol detected, defaulting to X11");
    }
}

void TrayWidget::startWaylandMonitor()
{
    // The pointer monitor exists only for the Deepin desktop's Wayland session;
    // everywhere else the cursor and the panel geometry place the menu.
    if (m_nDisplayProtocol != EDISPLAY_WAYLAND || !osNameContains("uos"))
        return;
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "[TrayWidget] wayland pointer monitor not built in, the menu follows the cursor");
}

void TrayWidget::initSystemTrayIcon()
{
    if (m_pTrayIcon)
        return;
    m_pTrayIcon = new QSystemTrayIcon(this);

    std::string iconPath = kDefaultIcon;
    int const ret = DravoGuiConfig::logoIconPath(iconPath);
    if (ret != 0)
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] get icon failed, ret is [%d]", ret);
    QIcon icon(QString::fromStdString(iconPath));
    if (icon.isNull() || icon.availableSizes().isEmpty()) {
        // A branding path that does not load must not leave an empty tray slot.
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] icon [%s] not loadable, use [%s]",
                    iconPath.c_str(), kDefaultIcon);
        icon = QIcon(QString::fromLatin1(kDefaultIcon));
    }
    m_pTrayIcon->setIcon(icon);

    std::string productName = kDefaultProductName;
    int const r = DravoGuiConfig::productName(productName);
    if (r != 0)
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] get product name failed, r = %d", r);
    if (CStr::trimed(productName).empty())
        productName = kDefaultProductName;
    m_pTrayIcon->setToolTip(tr(productName.c_str()));

    connect(m_pTrayIcon, &QSystemTrayIcon::activated, this, &TrayWidget::slot_iconActivated);
    connect(m_pTrayIcon, &QObject::destroyed, this, [this]() { m_pTrayIcon = nullptr; });
    m_pTrayIcon->show();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] ===================== create tray icon");
}

void TrayWidget::slot_iconActivated(QSystemTrayIcon::ActivationReason reason)
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] QSystemTrayIcon::ActivationReason reason = %d",
                int(reason));
    bool const menuVisible = m_pMenu && m_pMenu->isVisible();
    switch (reason) {
    case QSystemTrayIcon::Context:
        if (!menuVisible)
            rightClick();
        break;
    case QSystemTrayIcon::Trigger:
        leftClick();
        // On Ubuntu a left click both brings up the main window and opens the menu.
        if (osNameContains("ubuntu") && !(m_pMenu && m_pMenu->isVisible()))
            rightClick();
        break;
    default:
        break;
    }
}

void TrayWidget::leftClick()
{
    emit BasePluginModelDataInterface::singleInstance()->sig_centerShow();
}

void TrayWidget::rightClick()
{
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    // Lets every plugin refresh its entries before the menu is measured.
    emit bridge->sig_trayPopShow();
    if (!m_pMenu)
        return;
    m_pMenu->adjustSize();
    m_pMenu->update();
    int x = 0;
    int y = 0;
    d_ptr->trayMenuPos(x, y);
    bridge->notifyTrayMenuShow();
    m_pMenu->setGeometry(x, y, m_pMenu->width(), m_pMenu->height());
    m_pMenu->raise();
    m_pMenu->show();
    m_pMenu->activateWindow();
}
