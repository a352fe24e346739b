#include "basePlugin_p.h"

#include "asyncInvoker.h"
#include "authMgr.h"
#include "baseCmdDefine.h"
#include "baseTestWin.h"
#include "clientUpgradeItemWin.h"
#include "clogdebug.h"
#include "closeMainPanelSettingSubItem.h"
#include "commonSetting.h"
#include "cqframe.h"
#include "cqlabel.h"
#include "cqlabelmultifontsize.h"
#include "cqmainwindow.h"
#include "cqmenu.h"
#include "cqmenuitem.h"
#include "cqpluginmanager.h"
#include "cqthreadobjprecisiontimer.h"
#include "goodsShelf.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "messageTip.h"
#include "navigatewidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingpluginmodeldatainterface.h"
#include "trayWidget.h"
#include "versionStatusCardWin.h"

#include <QTimer>
#include <QVBoxLayout>
#include <QWidgetAction>
#include <QtConcurrent>

#include <memory>

namespace {

char const* const kModule = "plugins/base/interface/basePlugin";
char const* const kHomeBarName = "安全总览";
char const* const kTitleColour = "#DAE9FF";
char const* const kTitleColourOther = "#EBF3FF";
int const kNavigateHeight = 534;

template <typename T>
void scheduleDelete(QPointer<T> const& p)
{
    if (p)
        p->deleteLater();
}

// The quit-mode answer arrives on the GUI thread after the worker is done; the
// plugin may be gone by then, hence the guarded context.
void deliverQuitMode(void* context, void* result)
{
    std::unique_ptr<QPointer<BasePlugin>> plugin(static_cast<QPointer<BasePlugin>*>(context));
    if (*plugin && result)
        emit (*plugin)->sig_updateQuitMode(*static_cast<__sSettingData*>(result));
}

} // namespace

BasePluginPrivate::BasePluginPrivate(BasePlugin* q)
    : q_ptr(q)
{
    InitVars();
}

// Widgets go through deleteLater: the host may still be delivering events to
// them while the plugin is torn down.
BasePluginPrivate::~BasePluginPrivate()
{
    scheduleDelete(m_pNavigateWidget);
    scheduleDelete(m_pMainWinTitleBar);
    scheduleDelete(m_pNavigateBackWin);
    if (m_pGlobalTimer) {
        m_pGlobalTimer->stop();
        m_pGlobalTimer->deleteLater();
    }
    scheduleDelete(m_pGoodsShelf);
    TrayWidget::UninitInstance(false);
    stopGlobalTimer();
    unInitTestActionEntry();
    unInitUpgradeWin();
    // Created without a parent, or handed back by the containers they were
    // registered in (containers never delete what they hold), so nothing
    // else would release them: one whole home page per load and unload.
    scheduleDelete(m_pHomePageWidget);
    scheduleDelete(m_pMessageTip);
    scheduleDelete(m_pVersionStatusCardWin);
    scheduleDelete(m_pCommonSetting);
    scheduleDelete(m_pCloseMainPanelItem);
    scheduleDelete(m_pAuthMgr);
    scheduleDelete(m_pGuardDaysLabel);
    scheduleDelete(m_pTestWin);
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[BasePluginPrivate] delete BasePluginPrivate obj");
}

void BasePluginPrivate::registerMetaType()
{
    qRegisterMetaType<_sNoticeWinInfo_>("sNoticeWinInfo");
    qRegisterMetaType<UNINSTALL_RESULT>("UNINSTALL_RESULT");
    qRegisterMetaType<__sUniNoticeMsgInfo>("sUniNoticeMsgInfo");
    qRegisterMetaType<__sSettingData>("sSettingData");
    qRegisterMetaType<__sDeviceMgrPopup>("sDeviceMgrPopup");
}

void BasePluginPrivate::InitVars()
{
    Q_Q(BasePlugin);
    m_nSilentStart = 0;
    m_needWeakPassdCheck.storeRelaxed(0);
    m_pGlobalTimer = new QTimer(q);
}

void BasePluginPrivate::InitUINavigate()
{
    m_pNavigateBackWin = new QWidget();
    m_pNavigateBackWin->setObjectName(QStringLiteral("m_pNavigateBackWin"));
    m_pNavigateBackWin->setAttribute(Qt::WA_StyledBackground, true);
    m_pNavigateBackWin->setStyleSheet(QStringLiteral(
        "background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #DCEAFF, stop:1 #EBF3FF);"));

    // The gradient above applies to every widget below the background, and
    // each label would paint its own slice of it; this holder makes whatever
    // has no background of its own transparent, so the one gradient shows.
    auto* holder = new QWidget(m_pNavigateBackWin);
    holder->setObjectName(QStringLiteral("m_pNavigateHolder"));
    holder->setStyleSheet(QStringLiteral("*{background:transparent;}"));
    m_pNavigateWidget = new NavigateWidget(kNavigateHeight, holder);
    auto* holderLayout = new QVBoxLayout(holder);
    holderLayout->setContentsMargins(0, 0, 0, 0);
    holderLayout->addWidget(m_pNavigateWidget);
    auto* layout = new QVBoxLayout(m_pNavigateBackWin);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(holder);
    m_pNavigateBackWin->setFixedSize(m_pNavigateWidget->size());

    if (!m_pNavigateWidget->mount(QStringLiteral("NavigateWidget_MainWindow"), m_pNavigateBackWin))
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePluginPrivate] mount NavigateWidget_MainWindow failed");
}

void BasePluginPrivate::InitUITray()
{
    TrayWidget* tray = TrayWidget::singleInstance();
    tray->init();
    m_pGoodsShelf = new GoodsShelf();
    tray->registMenu(m_pGoodsShelf, -200);
}

void BasePluginPrivate::InitUITitle()
{
    m_pMainWinTitleBar = new MainWinTitleBar();
    m_pMainWinTitleBar->setBackgroundColor(QString::fromLatin1(kTitleColour), QString::fromLatin1(kTitleColour));
    if (auto* mainWindow = qobject_cast<CQMainWindow*>(m_pMainWindow.data()))
        mainWindow->setTitleWidget(m_pMainWinTitleBar);
}

void BasePluginPrivate::InitUIMenuBar()
{
    Q_Q(BasePlugin);
    q->m_pMenu = new CQMenu();
    q->m_pMenu->setObjectName(QStringLiteral("m_pMenuRightTop"));
}

void BasePluginPrivate::InitUICenterArea()
{
    m_pHomePageWidget = new HomePageWidget();
    m_pNavigateWidget->addItem(m_pHomePageWidget);

    m_pMessageTip = new MessageTip(m_pHomePageWidget);
    m_pMessageTip->move(40, 328);

    m_pCommonSetting = new CommonSetting();
    m_pCloseMainPanelItem = new CloseMainPanelSettingSubItem();
    m_pCommonSetting->registerItem(m_pCloseMainPanelItem);

    registerVersionCardWin();
}

void BasePluginPrivate::InitUIBottomWin()
{
    QWidget* foot = m_pNavigateWidget->bottomArea();
    int const width = (foot ? foot->width() : 148) - 2;

    auto* bar = new CQFrame();
    bar->setObjectName(QStringLiteral("m_pWidgetBottomBar"));
    bar->setFixedSize(width, 42);
    bar->setStyleSheet(QStringLiteral(
        "#m_pWidgetBottomBar{background:transparent;border:none;border-top:1px solid #DFE1E6;}"));
    bar->move(1, 0);
    m_pWidgetBottomBar = bar;

    m_pLabelVersion = new CQLabel(QStringLiteral("--"), bar);
    m_pLabelVersion->setObjectName(QStringLiteral("m_pLabelVersion"));
    m_pLabelVersion->setFixedSize(width - 19 - 8, 18);
    m_pLabelVersion->move(19, 13);

    m_pNavigateWidget->addBottomWidget(bar);
}

void BasePluginPrivate::initAuthMgr()
{
    Q_Q(BasePlugin);
    qRegisterMetaType<sPluginRegisterItem>("sPluginRegisterItem");
    m_pAuthMgr = new AuthMgr();
    // The icon travels through the bus like any other plugin's title-bar widget.
    QObject::connect(m_pAuthMgr, &AuthMgr::sig_registerTitle, q, [q](sPluginRegisterItem item) {
        emit q->sig1(QStringLiteral(EPLUGIN_ID_BASE), QStringLiteral(BASEPLUGIN_CMD_REGISTERWIN2TITLE), QVariant::fromValue(item));
    });
    QObject::connect(m_pAuthMgr, &AuthMgr::sig_unRegisterTitle, q, [q](sPluginRegisterItem item) {
        emit q->sig1(QStringLiteral(EPLUGIN_ID_BASE), QStringLiteral(BASEPLUGIN_CMD_UNREGISTER2TITLE), QVariant::fromValue(item));
    });
}

void BasePluginPrivate::InitControl()
{
    Q_Q(BasePlugin);
    QObject::connect(m_pMainWinTitleBar, &MainWinTitleBar::sig_setting, q, &BasePlugin::slot_setting);
    QObject::connect(m_pMainWinTitleBar, &MainWinTitleBar::sig_minimize, q, &BasePlugin::slot_minimize);
    QObject::connect(m_pMainWinTitleBar, &MainWinTitleBar::sig_close, q, &BasePlugin::slot_close);
    QObject::connect(m_pGlobalTimer, &QTimer::timeout, q, &BasePlugin::slot_update_data);
    QObject::connect(CSettingCenterWidgetMgr::singleInstance(), &CSettingCenterWidgetMgr::sig_registerItem, q, [q]() {
        emit q->sig1(QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), QStringLiteral(EPLUGIN_ID_SETTINGCENTER_CMD_OPEN), QVariant());
    });
    QObject::connect(m_pNavigateWidget, &NavigateWidget::sig_currentBtnChanged, q,
                     [this](QString name) { recolourTitleBar(name); });
}

void BasePluginPrivate::recolourTitleBar(QString const& pageName)
{
    if (!m_pMainWinTitleBar)
        return;
    bool const home = pageName == QString::fromUtf8(kHomeBarName);
    m_pMainWinTitleBar->setBackgroundColor(QString::fromLatin1(home ? kTitleColour : kTitleColourOther),
                                           QString::fromLatin1(kTitleColour));
}

void BasePluginPrivate::registerTest()
{
    Q_Q(BasePlugin);
    if (!CQPluginManager::plugin(QStringLiteral(EPLUGIN_ID_TEST)))
        return;
    if (!m_pActionTest) {
        auto* item = new CQMenuItem(QStringLiteral(":/img/test.png"), QString::fromUtf8("基础测试"));
        m_pActionTest = new QWidgetAction(nullptr);
        m_pActionTest->setObjectName(QStringLiteral("FileDistributionPluginAction"));
        m_pActionTest->setDefaultWidget(item);
        QObject::connect(item, &CQMenuItem::sig_clicked, m_pActionTest, &QAction::trigger);
        QObject::connect(m_pActionTest, &QAction::triggered, q, &BasePlugin::slot_showTestMainWin);
    }
    sPluginRegisterItem record;
    record.object = m_pActionTest;
    record.index = 0;
    emit q->sig1(QStringLiteral(EPLUGIN_ID_TEST), QStringLiteral(TESTPLUGIN_CMDTYPE_ADDITEM), QVariant::fromValue(record));
}

void BasePluginPrivate::registerUpgradeItemWin()
{
    Q_Q(BasePlugin);
    if (!CQPluginManager::plugin(QStringLiteral(EPLUGIN_ID_UPGRADE)))
        return;
    if (!m_pClientUpgradeItemWin)
        m_pClientUpgradeItemWin = new ClientUpgradeItemWin();
    emit q->sig1(QStringLiteral(EPLUGIN_ID_UPGRADE), QStringLiteral(EPLUGIN_ID_UPGRADE_CMD_REGISTER_ITEM),
                 QVariant::fromValue<void*>(static_cast<QWidget*>(m_pClientUpgradeItemWin.data())));
}

void BasePluginPrivate::registerVersionCardWin()
{
    if (m_pVersionStatusCardWin || !m_pHomePageWidget)
        return;
    m_pVersionStatusCardWin = new VersionStatusCardWin();
    sPluginRegisterItem record;
    record.object = m_pVersionStatusCardWin;
    record.index = 1000;
    m_pHomePageWidget->registerItem2CardArea(record);
}

void BasePluginPrivate::startGlobalTimer()
{
    // Creating the clock starts it; a clock stopped by an earlier plugin
    // instance of this process is started again.
    CQThreadObjPrecisionTimer::singleInstance()->startThread();
}

void BasePluginPrivate::stopGlobalTimer()
{
    if (!CQThreadObjPrecisionTimer::hasInstance())
        return;
    CQThreadObjPrecisionTimer::singleInstance()->slot_stopThread();
    CQThreadObjPrecisionTimer::UninitInstance(true);
}

void BasePluginPrivate::unInitTestActionEntry()
{
    if (!m_pActionTest)
        return;
    m_pActionTest->setParent(nullptr);
    m_pActionTest->deleteLater();
    m_pActionTest = nullptr;
}

void BasePluginPrivate::unInitUpgradeWin()
{
    if (!m_pClientUpgradeItemWin)
        return;
    m_pClientUpgradeItemWin->setParent(nullptr);
    m_pClientUpgradeItemWin->deleteLater();
    m_pClientUpgradeItemWin = nullptr;
}

void BasePluginPrivate::getQuitMode()
{
    Q_Q(BasePlugin);
    SettingPluginModelDataInterface* bridge = SettingPluginModelDataInterface::singleInstance();
    if (!bridge) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePluginPrivate] setting bridge is null");
        return;
    }
    QString const typeName = QString::fromLatin1(QVariant::fromValue(_SETTING_COMMON_()).typeName());
    QFuture<__sSettingData> future = QtConcurrent::run(bridge, &SettingPluginModelDataInterface::getSettingData, typeName);
    AsyncInvoker::await(future, &deliverQuitMode, new QPointer<BasePlugin>(q));
}
