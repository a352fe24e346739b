#include "sampleMainWindowContributions.h"

#include "authmgritem.h"
#include "baseCmdDefine.h"
#include "cqpluginmanager.h"
#include "framelinkproxy.h"
#include "sampleAssetPage.h"
#include "sampleBus.h"
#include "sampleNavigatePage.h"
#include "sampleWidgets.h"

#include <QLabel>
#include <QPoint>
#include <QVBoxLayout>

namespace {

// Title-bar sides (the record's extra) and positions (its index). The right
// side already holds the day counter (50), the authentication icon (100), the
// menu button (250), minimise (300) and close (350); 150 stands between the
// icon and the menu button. The left side is free for plugins.
int const kTitleLeftSide = 0;
int const kTitleRightSide = 1;
int const kTitleLeftPos = 10;
int const kTitleRightPos = 150;

// The bottom bar is 146 x 42 and keeps the version label at (19, 13); the
// mark goes to its right end, past the version text.
QPoint const kBottomBarPos(128, 14);

// Authentication items are keyed by their id, which the status icon shares
// with every other plugin's items. One good item is enough for the icon's
// normal look; the failed one shows how a broken service is reported.
int const kAuthGoodId = 9001;
int const kAuthFailedId = 9002;
// The icon's pop-up is 202 wide.
QSize const kAuthItemSize(200, 32);

} // namespace

SampleMainWindowContributions::SampleMainWindowContributions(SampleBus& bus)
    : m_bus(bus)
{
}

SampleMainWindowContributions::~SampleMainWindowContributions()
{
    unmount();
}

QString SampleMainWindowContributions::pageName()
{
    return QStringLiteral("SampleNavigatePage");
}

// The frame is reached by page name only: the navigation mounted on the
// FrameLinkProxy finds the page among its own. The main window is what the
// host handed every plugin at init; it may be hidden in the tray.
void SampleMainWindowContributions::openPage()
{
    if (auto* window = qobject_cast<QWidget*>(CQPluginManager::singleInstance()->host())) {
        window->show();
        window->raise();
    }
    FrameLinkProxy::singleInstance()->gotoPageByObjName(pageName());
}

void SampleMainWindowContributions::mount()
{
    mountPages();
    mountBottomBarWidget();
    mountTitleBarWidgets();
    mountAuthItems();
}

void SampleMainWindowContributions::unmount()
{
    for (NavigateItemWidget* page : {static_cast<NavigateItemWidget*>(m_pPage.data()),
                                     static_cast<NavigateItemWidget*>(m_pAssetPage.data())}) {
        if (page)
            m_bus.sendPointer(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_ITEM, page);
    }
    if (m_pBottomBarWidget)
        m_bus.sendRecord(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, m_pBottomBarWidget, 0);
    // The title bar takes a widget out by side and position, not by address.
    if (SampleWidgets::isPlaced(m_pTitleLeft))
        m_bus.sendRecord(BASEPLUGIN_CMD_UNREGISTER2TITLE, m_pTitleLeft, kTitleLeftPos, kTitleLeftSide);
    if (SampleWidgets::isPlaced(m_pTitleRight))
        m_bus.sendRecord(BASEPLUGIN_CMD_UNREGISTER2TITLE, m_pTitleRight, kTitleRightPos, kTitleRightSide);
    for (AuthMgritem* item : {m_pAuthGood.data(), m_pAuthFailed.data()}) {
        if (item)
            m_bus.sendKey(BASEPLUGIN_CMD_UNREGISTER_REALAUTH_TEM, item->id());
    }
    SampleWidgets::dispose(m_pPage);
    SampleWidgets::dispose(m_pAssetPage);
    SampleWidgets::dispose(m_pBottomBarWidget);
    SampleWidgets::dispose(m_pTitleLeft);
    SampleWidgets::dispose(m_pTitleRight);
    SampleWidgets::dispose(m_pAuthGood);
    SampleWidgets::dispose(m_pAuthFailed);
}

// The navigation takes a page by raw pointer; cast to the documented class
// before the address goes into the payload. Pages show in the order they
// arrive, after the home page.
void SampleMainWindowContributions::mountPages()
{
    if (!m_pPage) {
        m_pPage = new SampleNavigatePage(
            pageName(), QString::fromUtf8("示例页面"),
            QString::fromUtf8("示例插件：导航页，由 BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM 注册"));
    }
    if (!m_pAssetPage)
        m_pAssetPage = new SampleAssetPage();
    m_bus.sendPointer(BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM, static_cast<NavigateItemWidget*>(m_pPage.data()));
    m_bus.sendPointer(BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM, static_cast<NavigateItemWidget*>(m_pAssetPage.data()));
}

void SampleMainWindowContributions::mountBottomBarWidget()
{
    if (!m_pBottomBarWidget)
        m_pBottomBarWidget = SampleWidgets::plainLabel(QStringLiteral("SampleBottomBarWidget"), QStringLiteral("S"),
                                                       QSize(14, 14));
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, m_pBottomBarWidget, 0, kBottomBarPos);
}

void SampleMainWindowContributions::mountTitleBarWidgets()
{
    if (!m_pTitleLeft)
        m_pTitleLeft = SampleWidgets::plainLabel(QStringLiteral("SampleTitleBarLeft"),
                                                 QString::fromUtf8("示例：标题栏左侧"), QSize(110, 24));
    if (!m_pTitleRight)
        m_pTitleRight = SampleWidgets::plainLabel(QStringLiteral("SampleTitleBarRight"),
                                                  QString::fromUtf8("示例：右侧"), QSize(70, 24));
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTERWIN2TITLE, m_pTitleLeft, kTitleLeftPos, kTitleLeftSide);
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTERWIN2TITLE, m_pTitleRight, kTitleRightPos, kTitleRightSide);
}

// The frame's status icon appears with the first item and goes with the last;
// a later setStatus() on an item re-colours it.
void SampleMainWindowContributions::mountAuthItems()
{
    if (!m_pAuthGood)
        m_pAuthGood = createAuthItem(kAuthGoodId, 1, QStringLiteral("SampleAuthItemGood"),
                                     QString::fromUtf8("示例认证项：正常"));
    if (!m_pAuthFailed)
        m_pAuthFailed = createAuthItem(kAuthFailedId, 0, QStringLiteral("SampleAuthItemFailed"),
                                       QString::fromUtf8("示例认证项：失败"));
    m_bus.sendPointer(BASEPLUGIN_CMD_REGISTER_REALAUTH_TEM, m_pAuthGood.data());
    m_bus.sendPointer(BASEPLUGIN_CMD_REGISTER_REALAUTH_TEM, m_pAuthFailed.data());
}

AuthMgritem* SampleMainWindowContributions::createAuthItem(int id, int status, QString const& objectName,
                                                           QString const& text)
{
    auto* item = new AuthMgritem(id);
    item->setObjectName(objectName);
    item->setStatus(status);
    item->setFixedSize(kAuthItemSize);
    auto* layout = new QVBoxLayout(item);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(SampleWidgets::plainLabel(objectName + QStringLiteral("_Label"), text, kAuthItemSize));
    return item;
}
