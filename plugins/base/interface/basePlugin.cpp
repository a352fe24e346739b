#include "basePlugin.h"
#include "basePlugin_p.h"

#include "authMgr.h"
#include "baseCmdDefine.h"
#include "basePluginCmd.h"
#include "clogdebug.h"
#include "commonSetting.h"
#include "cqlabel.h"
#include "cqlogotitle.h"
#include "cqmenu.h"
#include "cqmenuitem.h"
#include "cWinAbout.h"
#include "dravoguiconfig.h"
#include "framelinkproxy.h"
#include "goodsShelf.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "messageTip.h"
#include "navigatewidget.h"
#include "versionStatusCardWin.h"

#include <QCursor>
#include <QLabel>
#include <QMetaObject>
#include <QThread>
#include <QTimer>
#include <QWidgetAction>

#include <functional>

namespace {

char const* const kModule = "plugins/base/interface/basePlugin";
char const* const kDefaultProductName = "Quorix终端安全管理系统";

QWidgetAction* createMenuAction(QString const& icon, QString const& text, QObject* receiver, std::function<void()> onClick)
{
    auto* item = new CQMenuItem(icon, text);
    auto* action = new QWidgetAction(nullptr);
    action->setDefaultWidget(item);
    QObject::connect(item, &CQMenuItem::sig_clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::triggered, receiver, [action, onClick]() {
        // A widget action does not close its menu by itself.
        for (QWidget* w : action->associatedWidgets())
            w->hide();
        onClick();
    });
    return action;
}

void openSettingCentre()
{
    FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("SettingCentreWidget"));
}

} // namespace

// Resources compiled into a static library are not registered by themselves.
// Q_INIT_RESOURCE has to be used outside any namespace.
static void initBaseResources()
{
#if UI_BASE_HAS_RESOURCES
    Q_INIT_RESOURCE(ui_base);
#endif
}

BasePlugin::BasePlugin(QObject* parent)
    : CQBasePlugin(parent)
    , d_ptr(new BasePluginPrivate(this))
{
    initBaseResources();
    m_pWinAbout = nullptr;
    connect(this, &BasePlugin::sig_updateQuitMode, this, &BasePlugin::slot_updateQuitMode, Qt::QueuedConnection);
}

BasePlugin::~BasePlugin()
{
    delete d_ptr;
    d_ptr = nullptr;

    if (m_pMenu)
        m_pMenu->deleteLater();
    if (m_pActionAbout)
        m_pActionAbout->deleteLater();

    unRegisterRightTopMenu();
    unRegisterMenuSetting();
    unRegisterTray();
    if (m_pActionSetting)
        m_pActionSetting->deleteLater();

    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[BasePlugin] delete BasePlugin obj");
}

int BasePlugin::init(QVariant const& host)
{
    Q_D(BasePlugin);
    BasePluginPrivate::registerMetaType();

    QObject* hostObject = host.canConvert<QObject*>() ? host.value<QObject*>() : nullptr;
    d->m_pMainWindow = qobject_cast<QWidget*>(hostObject);
    if (!d->m_pMainWindow)
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePlugin] main window is null, the frame is built without it");

    d->InitUINavigate();
    d->InitUITray();
    d->InitUITitle();
    d->InitUIMenuBar();
    d->InitUICenterArea();
    d->InitUIBottomWin();
    d->initAuthMgr();
    d->InitControl();
    d->registerTest();
    d->registerUpgradeItemWin();
    registerMenuSetting();
    d->startGlobalTimer();
    registerTray();
    return 0;
}

QVariant BasePlugin::execCmd(QString cmd, QVariant const& para)
{
    // Every command touches widgets; one from another thread is handed over.
    if (QThread::currentThread() != thread()) {
        QPointer<BasePlugin> self(this);
        QMetaObject::invokeMethod(this, [self, cmd, para]() {
            if (self)
                self->execCmd(cmd, para);
        }, Qt::QueuedConnection);
        return QVariant();
    }
    BasePluginCmd(*this).exec(cmd, para);
    return QVariant();
}

QWidget* BasePlugin::mainWindow() const
{
    return d_ptr ? d_ptr->m_pMainWindow.data() : nullptr;
}

NavigateWidget* BasePlugin::navigateWidget() const
{
    return d_ptr ? d_ptr->m_pNavigateWidget.data() : nullptr;
}

MainWinTitleBar* BasePlugin::titleBar() const
{
    return d_ptr ? d_ptr->m_pMainWinTitleBar.data() : nullptr;
}

HomePageWidget* BasePlugin::homePage() const
{
    return d_ptr ? d_ptr->m_pHomePageWidget.data() : nullptr;
}

GoodsShelf* BasePlugin::goodsShelf() const
{
    return d_ptr ? d_ptr->m_pGoodsShelf.data() : nullptr;
}

CQMenu* BasePlugin::rightTopMenu() const
{
    return m_pMenu.data();
}

CWinAbout* BasePlugin::aboutWin() const
{
    return m_pWinAbout.data();
}

QWidget* BasePlugin::bottomBar() const
{
    return d_ptr ? d_ptr->m_pWidgetBottomBar.data() : nullptr;
}

QLabel* BasePlugin::trayHintLabel() const
{
    return m_pLabelHint.data();
}

QTimer* BasePlugin::dataTimer() const
{
    return d_ptr ? d_ptr->m_pGlobalTimer.data() : nullptr;
}

CommonSetting* BasePlugin::commonSetting() const
{
    return d_ptr ? d_ptr->m_pCommonSetting.data() : nullptr;
}

MessageTip* BasePlugin::messageTip() const
{
    return d_ptr ? d_ptr->m_pMessageTip.data() : nullptr;
}

AuthMgr* BasePlugin::authMgr() const
{
    return d_ptr ? d_ptr->m_pAuthMgr.data() : nullptr;
}

VersionStatusCardWin* BasePlugin::versionStatusCard() const
{
    return d_ptr ? d_ptr->m_pVersionStatusCardWin.data() : nullptr;
}

void BasePlugin::slot_setting()
{
    if (!m_pMenu)
        return;
    emit sig1(QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW), QVariant());
    m_pMenu->popup(QCursor::pos() + QPoint(-70, 20));
}

void BasePlugin::registerMenuSetting()
{
    if (!m_pMenu)
        return;
    if (!m_pActionSetting)
        m_pActionSetting = createMenuAction(QStringLiteral(":/img/setting.png"), QString::fromUtf8("设置"), this, &openSettingCentre);
    m_pMenu->myAddAction(m_pActionSetting, 0);
}

void BasePlugin::unRegisterMenuSetting()
{
    if (m_pMenu && m_pActionSetting)
        m_pMenu->myRemoveAction(m_pActionSetting, 0);
}

void BasePlugin::registerRightTopMenu()
{
    if (!m_pActionAbout)
        m_pActionAbout = createMenuAction(QStringLiteral(":/img/about.png"), QString::fromUtf8("关于我们"), this, [this]() { slot_about(); });
    sendToSelf(BASEPLUGIN_CMD_REGISTER_MENUITEM, m_pActionAbout, 40);
}

// Taken out directly: this also runs during teardown, when the bus no longer
// reaches this plugin.
void BasePlugin::unRegisterRightTopMenu()
{
    if (m_pMenu && m_pActionAbout)
        m_pMenu->myRemoveAction(m_pActionAbout, 40);
}

void BasePlugin::slot_about()
{
    Q_D(BasePlugin);
    if (!m_pWinAbout)
        m_pWinAbout = new CWinAbout(d->m_pMainWindow);
    // Plugins answer with their badges, which the window must exist to take.
    emit sig1(QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), QStringLiteral(EPLUGIN_ID_BASE_CMD_ABOUTWIN_SHOW), QVariant());
    if (m_pWinAbout) {
        m_pWinAbout->show();
        m_pWinAbout->raise();
    }
}

void BasePlugin::registerTray()
{
    createTrayRows();
    sendToSelf(BASEPLUGIN_CMD_REGISTER_TRAY, m_pTrayTitleRow, -400);
    sendToSelf(BASEPLUGIN_CMD_REGISTER_TRAY, m_pLabelHint, -300);
    sendToSelf(BASEPLUGIN_CMD_REGISTER_TRAY, m_pTraySettingRow, 20);
    sendToSelf(BASEPLUGIN_CMD_REGISTER_TRAY, m_pTrayQuitRow, 500);
}

void BasePlugin::createTrayRows()
{
    if (!m_pTrayTitleRow)
        m_pTrayTitleRow = createTrayTitleRow();
    if (!m_pLabelHint) {
        m_pLabelHint = new QLabel();
        m_pLabelHint->setObjectName(QStringLiteral("pLabelHint"));
        m_pLabelHint->setFixedHeight(48);
        m_pLabelHint->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        updateProtectDays(0);
    }
    if (!m_pTraySettingRow) {
        auto* row = new CQMenuItem(QStringLiteral(":/img/setting.png"), QString::fromUtf8("设置"));
        connect(row, &CQMenuItem::sig_clicked, this, &openSettingCentre);
        m_pTraySettingRow = row;
    }
    if (!m_pTrayQuitRow) {
        auto* row = new CQMenuItem(QStringLiteral(":/img/quit.png"), QString::fromUtf8("退出"));
        connect(row, &CQMenuItem::sig_clicked, this, &BasePlugin::slot_exit_second_confirm);
        m_pTrayQuitRow = row;
    }
}

void BasePlugin::unRegisterTray()
{
    struct TrayRow {
        QWidget* w;
        int index;
    };
    TrayRow const rows[] = {
        {m_pTrayTitleRow, -400}, {m_pLabelHint, -300}, {m_pTrayQuitRow, 500}, {m_pTraySettingRow, 20}};
    for (TrayRow const& row : rows) {
        if (!row.w)
            continue;
        sendToSelf(BASEPLUGIN_CMD_UNREGISTER_TRAY, row.w, row.index);
        row.w->hide();
        row.w->deleteLater();
    }
}

QWidget* BasePlugin::createTrayTitleRow()
{
    QString theme = QStringLiteral("default");
    QString productName = QString::fromUtf8(kDefaultProductName);
    int const ret1 = DravoGuiConfig::theme(theme);
    if (ret1 != 0)
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePlugin] get theme failed, ret1 is [%d]", ret1);
    QString configured;
    int const ret2 = DravoGuiConfig::productName(configured);
    if (ret2 != 0)
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePlugin] get product name failed, ret2 is [%d]", ret2);
    // A branded build shows its own name; the default theme keeps ours.
    if (ret1 == 0 && ret2 == 0 && theme != QLatin1String("default") && !configured.trimmed().isEmpty())
        productName = configured.trimmed();

    auto* row = new QWidget();
    row->setObjectName(QStringLiteral("m_pWidgetTrayTitle"));
    row->setFixedHeight(32);
    auto* logo = new CQLogoTitle(32, 32, 180, 0, productName, row);
    logo->move(26, 0);
    return row;
}

void BasePlugin::sendToSelf(char const* cmd, QObject* object, int index, QVariant const& extra)
{
    sPluginRegisterItem item;
    item.object = object;
    item.index = index;
    item.extra = extra;
    emit sig1(QStringLiteral(EPLUGIN_ID_BASE), QString::fromLatin1(cmd), QVariant::fromValue(item));
}
