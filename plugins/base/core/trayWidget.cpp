#include "trayWidget.h"
#include "trayWidget_p.h"

#include "basepluginmodeldatainterface.h"
#include "clogdebug.h"
#include "cstr.h"
#include "dravoguiconfig.h"
#include "menuWidget.h"
#include "monitorButtonReleasePosThread.h"

#include <QIcon>

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
constexpr char kDefaultIcon[] = ":/img/logo.ico";
constexpr char kDefaultProductName[] = "Quorix终端安全管理系统";

TrayWidget* s_pTrayWidget = nullptr;
} // namespace

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
    TrayDesktop::systemInfo(d_ptr->m_sysInfo);
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
    // The caller gets its widget back on its own, whoever held it, even one
    // the menu had refused; the index is freed in any case.
    w->setParent(nullptr);
    m_pMenu->removeItem(w, index);
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

MonitorButtonReleasePosThread* TrayWidget::waylandMonitor() const
{
    return d_ptr ? d_ptr->m_pMonitorThread.data() : nullptr;
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
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] wayland start monitor");
    auto* monitor = new MonitorButtonReleasePosThread(nullptr);
    d_ptr->m_pMonitorThread = monitor;
    monitor->start(QThread::InheritPriority);
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
