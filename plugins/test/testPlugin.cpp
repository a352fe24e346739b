#include "testPlugin.h"

#include "clogdebug.h"
#include "spluginregisteritem.h"

#include <QAction>
#include <QWidget>

namespace {
constexpr char kLogModule[] = "plugins/test/testPlugin";
} // namespace

TestPlugin::TestPlugin(QObject* parent)
    : CQBasePlugin(parent)
{
}

// No command leaves from here: the plugin manager has already stopped routing
// this plugin's signals. unInit has taken the entry out.
TestPlugin::~TestPlugin()
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[TestPlugin] delete TestPlugin obj");
}

int TestPlugin::unInit(QVariant const& para)
{
    Q_UNUSED(para);
    unMountEntry();
    m_pAction = nullptr;
    return 0;
}

QVariant TestPlugin::execCmd(QString cmd, QVariant const& para)
{
    if (cmd == QLatin1String(TESTPLUGIN_CMDTYPE_ADDITEM)) {
        addItem(para);
    } else if (cmd == QLatin1String(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW)) {
        mountEntry();
    } else if (cmd == QLatin1String(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE)) {
        unMountEntry();
    } else if (cmd == QLatin1String(PLUGINMANAGE_CMDTYPE_UNSTALL)
               && para.toString() == QLatin1String(EPLUGIN_ID_BASE)) {
        // The menu went with the base plugin, and the action goes too.
        m_pAction = nullptr;
    }
    return QVariant();
}

void TestPlugin::addItem(QVariant const& para)
{
    QAction* action = actionOf(para);
    if (!action)
        return;
    // The base plugin sends its entry again whenever it learns of this plugin;
    // the same action is only mounted again, another one replaces it.
    if (m_pAction && m_pAction != action)
        unMountEntry();
    m_pAction = action;
    mountEntry();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TestPlugin] test entry [%s] mounted at [%d]",
                qUtf8Printable(action->objectName()), kMenuIndex);
}

// Unlike a widget, an action cannot be checked against the live ones: as with
// every action on the bus, the sender keeps it alive while it is registered.
QAction* TestPlugin::actionOf(QVariant const& para) const
{
    if (para.userType() != qMetaTypeId<sPluginRegisterItem>()) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[TestPlugin] add item payload is [%s], not sPluginRegisterItem, ignored",
                    para.typeName() ? para.typeName() : "invalid");
        return nullptr;
    }
    QObject* object = para.value<sPluginRegisterItem>().object;
    if (!object) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[TestPlugin] add item without an object, ignored");
        return nullptr;
    }
    auto* action = qobject_cast<QAction*>(object);
    if (!action) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[TestPlugin] add item object of class [%s] is not a menu action, ignored",
                    object->metaObject()->className());
        return nullptr;
    }
    return action;
}

void TestPlugin::mountEntry()
{
    if (m_pAction)
        sendToBase(BASEPLUGIN_CMD_REGISTER_MENUITEM);
}

void TestPlugin::unMountEntry()
{
    if (m_pAction)
        sendToBase(BASEPLUGIN_CMD_UNREGISTER_MENUITEM);
}

void TestPlugin::sendToBase(char const* cmd)
{
    sPluginRegisterItem item;
    item.object = m_pAction.data();
    item.index = kMenuIndex;
    emit sig1(QStringLiteral(EPLUGIN_ID_BASE), QString::fromLatin1(cmd), QVariant::fromValue(item));
}
