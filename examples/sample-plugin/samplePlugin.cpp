#include "samplePlugin.h"

#include "baseCmdDefine.h"
#include "clogdebug.h"
#include "sampleBus.h"
#include "sampleCollectedContributions.h"
#include "sampleHomePageContributions.h"
#include "sampleMainWindowContributions.h"
#include "sampleTrayContributions.h"

namespace {
char const* const kModule = "examples/sample-plugin/samplePlugin";
} // namespace

SamplePlugin::SamplePlugin(QObject* parent)
    : CQBasePlugin(parent)
    , m_pBus(std::make_unique<SampleBus>(this))
    , m_pMainWindow(std::make_unique<SampleMainWindowContributions>(*m_pBus))
    , m_pHomePage(std::make_unique<SampleHomePageContributions>(*m_pBus))
    , m_pTray(std::make_unique<SampleTrayContributions>(*m_pBus))
    , m_pCollected(std::make_unique<SampleCollectedContributions>(*m_pBus))
{
}

// Normally unInit has run; the groups' destructors unmount anything left.
SamplePlugin::~SamplePlugin()
{
    BFLOG(BFLOG_DEBUG, kModule, "[SamplePlugin] delete SamplePlugin obj");
}

// Nothing is mounted here: the frame may not exist yet (a plugin can be
// loaded before the base plugin), and "PLUGINMANAGE_CMDTYPE_INSTALL" with
// "EPLUGIN_ID_BASE" reaches this plugin in either order.
int SamplePlugin::init(QVariant const& host)
{
    Q_UNUSED(host);
    BFLOG(BFLOG_INFO, kModule, "[SamplePlugin] init");
    return 0;
}

// The plugin manager calls this while the bus still routes this plugin's
// commands, so the frame can still be told to let go of everything.
int SamplePlugin::unInit(QVariant const& para)
{
    Q_UNUSED(para);
    unmountAll();
    BFLOG(BFLOG_INFO, kModule, "[SamplePlugin] unInit, every contribution taken out");
    return 0;
}

QVariant SamplePlugin::execCmd(QString cmd, QVariant const& para)
{
    if (cmd == QLatin1String(PLUGINMANAGE_CMDTYPE_INSTALL))
        onInstall(para.toString());
    else if (cmd == QLatin1String(PLUGINMANAGE_CMDTYPE_UNSTALL))
        onUninstall(para.toString());
    else if (cmd == QLatin1String(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW))
        m_pCollected->mountMenuItem();
    else if (cmd == QLatin1String(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE))
        m_pCollected->unmountMenuItem();
    else if (cmd == QLatin1String(EPLUGIN_ID_BASE_CMD_ABOUTWIN_SHOW))
        m_pCollected->mountAboutBadge();
    else if (cmd == QLatin1String(EPLUGIN_ID_SETTINGCENTER_CMD_OPEN))
        m_pCollected->mountSettings();
    else if (cmd == QLatin1String(EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_SHOW))
        m_pTray->trayMenuOpening();
    return QVariant();
}

void SamplePlugin::onInstall(QString const& id)
{
    if (id == QLatin1String(EPLUGIN_ID_BASE))
        mountFrame();
}

// The frame goes with the base plugin and nobody is left to tell: our widgets
// are only taken out of its widget tree before it is deleted (the frame would
// delete whatever is still its child). A base plugin loaded again announces
// itself and gets everything anew.
void SamplePlugin::onUninstall(QString const& id)
{
    if (id == QLatin1String(EPLUGIN_ID_BASE))
        unmountAll();
}

void SamplePlugin::mountFrame()
{
    BFLOG(BFLOG_INFO, kModule, "[SamplePlugin] base plugin installed, mounting");
    m_pMainWindow->mount();
    m_pHomePage->mount();
    m_pTray->mount();
}

void SamplePlugin::unmountAll()
{
    m_pCollected->unmount();
    m_pTray->unmount();
    m_pHomePage->unmount();
    m_pMainWindow->unmount();
}
