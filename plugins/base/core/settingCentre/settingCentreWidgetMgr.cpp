#include "settingCentreWidgetMgr.h"

#include "clogdebug.h"
#include "settingCentreWidget.h"
#include "settingitemwidget.h"

#include <QMutexLocker>

namespace {
constexpr char kLogModule[] = "plugins/base/core/settingCentre/settingCentreWidgetMgr";
// The name the frame opens the settings centre by.
constexpr char kMountName[] = "CSettingCenterWidgetMgr";

CSettingCenterWidgetMgr* s_pInstance = nullptr;
} // namespace

CSettingCenterWidgetMgr* CSettingCenterWidgetMgr::singleInstance()
{
    if (!s_pInstance) {
        s_pInstance = new CSettingCenterWidgetMgr();
        QObject::connect(s_pInstance, &QObject::destroyed, []() { s_pInstance = nullptr; });
    }
    return s_pInstance;
}

void CSettingCenterWidgetMgr::UninitInstance(bool now)
{
    if (!s_pInstance)
        return;
    if (now) {
        delete s_pInstance;
        s_pInstance = nullptr;
    } else {
        s_pInstance->deleteLater();
    }
}

CSettingCenterWidgetMgr::CSettingCenterWidgetMgr()
    : QObject(nullptr)
{
    setObjectName(QStringLiteral("CSettingCenterWidgetMgr"));
    if (!mount(QString::fromLatin1(kMountName), nullptr))
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "[CSettingCenterWidgetMgr] mount %s failed",
                    kMountName);
}

CSettingCenterWidgetMgr::~CSettingCenterWidgetMgr()
{
    unmount();
    unInitUIMainWin();
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                "[CSettingCenterWidgetMgr] delete CSettingCenterWidgetMgr obj");
}

void CSettingCenterWidgetMgr::InitUIMainWin()
{
    QMutexLocker locker(&m_mutex);
    if (m_pSettingCentreWidget)
        return;
    auto* window = new SettingCentreWidget(nullptr);
    // The pointer is a QPointer: a window destroyed by anyone reads as null.
    connect(window, &SettingCentreWidget::sig_close, this, &CSettingCenterWidgetMgr::hideUIMainWin);
    m_pSettingCentreWidget = window;
}

void CSettingCenterWidgetMgr::unInitUIMainWin()
{
    QPointer<SettingCentreWidget> window;
    {
        QMutexLocker locker(&m_mutex);
        window = m_pSettingCentreWidget;
    }
    // Closing may run page hooks; the mutex is not held across them.
    if (window) {
        window->close();
        window->deleteLater();
    }
}

void CSettingCenterWidgetMgr::hideUIMainWin()
{
    QPointer<SettingCentreWidget> window;
    {
        QMutexLocker locker(&m_mutex);
        window = m_pSettingCentreWidget;
    }
    // The hide may ask about unsaved edits in a modal dialog.
    if (window)
        window->tryHide();
}

bool CSettingCenterWidgetMgr::gotoChildObject(QString const&)
{
    InitUIMainWin();
    QPointer<SettingCentreWidget> window;
    {
        QMutexLocker locker(&m_mutex);
        window = m_pSettingCentreWidget;
    }
    if (window)
        window->activateShow();
    // Every open asks the plugins again, since the window may be brand new.
    emit sig_registerItem();
    return true;
}

void CSettingCenterWidgetMgr::registerItem(SettingItemWidget* page)
{
    QMutexLocker locker(&m_mutex);
    if (m_pSettingCentreWidget)
        m_pSettingCentreWidget->addItem(page);
}

void CSettingCenterWidgetMgr::unRegisterItem(SettingItemWidget* page)
{
    if (!page)
        return;
    bool hadWindow = false;
    bool empty = false;
    {
        QMutexLocker locker(&m_mutex);
        if (m_pSettingCentreWidget) {
            hadWindow = true;
            m_pSettingCentreWidget->removeItem(page->getBarName());
            empty = m_pSettingCentreWidget->itemCount() == 0;
        }
    }
    if (hadWindow && empty)
        unInitUIMainWin();
}

SettingCentreWidget* CSettingCenterWidgetMgr::window() const
{
    QMutexLocker locker(&m_mutex);
    return m_pSettingCentreWidget.data();
}
