#include "sampleCollectedContributions.h"

#include "baseCmdDefine.h"
#include "cqmenuitem.h"
#include "sampleBus.h"
#include "sampleMainWindowContributions.h"
#include "sampleSettingPage.h"
#include "sampleWidgets.h"
#include "settingsubitemwidget.h"

#include <QLabel>
#include <QWidgetAction>

namespace {

// Right-top menu keys: the frame's settings entry is 0 and its about entry
// 40; 30 puts the sample's entry between them.
int const kMenuKey = 30;
// The about window's badge row holds the short version under 10; 20 stands
// right of it.
int const kAboutBadgeKey = 20;

QWidgetAction* createMenuAction()
{
    auto* item = new CQMenuItem(QString(), QString::fromUtf8("示例：打开示例页面"));
    auto* action = new QWidgetAction(nullptr);
    action->setObjectName(QStringLiteral("SampleMenuAction"));
    action->setDefaultWidget(item);
    QObject::connect(item, &CQMenuItem::sig_clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::triggered, action, [action]() {
        // A widget action does not close its menu by itself.
        for (QWidget* w : action->associatedWidgets())
            w->hide();
        SampleMainWindowContributions::openPage();
    });
    return action;
}

} // namespace

SampleCollectedContributions::SampleCollectedContributions(SampleBus& bus)
    : m_bus(bus)
{
}

SampleCollectedContributions::~SampleCollectedContributions()
{
    unmount();
}

// An action is the one payload the frame takes on trust: a widget's address is
// looked up among the live widgets, an action's is not. So the action stays
// alive at least until it has been unregistered.
void SampleCollectedContributions::mountMenuItem()
{
    if (!m_pMenuAction)
        m_pMenuAction = createMenuAction();
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_MENUITEM, m_pMenuAction, kMenuKey);
}

void SampleCollectedContributions::unmountMenuItem()
{
    if (m_pMenuAction)
        m_bus.sendRecord(BASEPLUGIN_CMD_UNREGISTER_MENUITEM, m_pMenuAction, kMenuKey);
}

// The about window is deleted when it closes and hands the badge back alive;
// the next window gets the same badge again.
void SampleCollectedContributions::mountAboutBadge()
{
    if (!m_pAboutBadge)
        m_pAboutBadge = SampleWidgets::plainLabel(QStringLiteral("SampleAboutBadge"), QString::fromUtf8("示例徽章"),
                                                  QSize(72, 24));
    m_bus.sendRecord(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, m_pAboutBadge, kAboutBadgeKey);
}

// Both take raw pointers: the page as a SettingItemWidget*, the general
// page's row as a SettingSubItemWidget*.
void SampleCollectedContributions::mountSettings()
{
    if (!m_pSettingPage)
        m_pSettingPage = new SampleSettingPage();
    if (!m_pGeneralRow)
        m_pGeneralRow = SampleSettingPage::createRow(
            QStringLiteral("SampleGeneralSettingRow"),
            QString::fromUtf8("示例插件：常规设置里的一行，由 BASEPLUGIN_CMDTYPE_REGISTER_BASESETTINGPAGE 注册"));
    m_bus.sendPointer(BASEPLUGIN_CMD_REGISTER_SETTING, static_cast<SettingItemWidget*>(m_pSettingPage.data()));
    m_bus.sendPointer(BASEPLUGIN_CMDTYPE_REGISTER_BASESETTINGPAGE, m_pGeneralRow.data());
}

void SampleCollectedContributions::unmount()
{
    unmountMenuItem();
    // A closed about window has handed the badge back already.
    if (SampleWidgets::isPlaced(m_pAboutBadge))
        m_bus.sendKey(BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, kAboutBadgeKey);
    if (m_pSettingPage)
        m_bus.sendPointer(BASEPLUGIN_CMDTYPE_UNREGISTER_SETTING, static_cast<SettingItemWidget*>(m_pSettingPage.data()));
    if (m_pGeneralRow)
        m_bus.sendPointer(BASEPLUGIN_CMDTYPE_UNREGISTER_BASESETTINGPAGE, m_pGeneralRow.data());
    SampleWidgets::dispose(m_pMenuAction);
    SampleWidgets::dispose(m_pAboutBadge);
    SampleWidgets::dispose(m_pSettingPage);
    SampleWidgets::dispose(m_pGeneralRow);
}
