// "EPLUGIN_ID_BRIDGE_BASE" loaded from build/lib/plugins-gui: the bridges it
// brings up and releases, and the start-up the base plugin runs when it hears
// that the bridge is installed.

#include "basepluginmodeldatainterface.h"
#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "settingpluginmodeldatainterface.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString const kBridgeId = QStringLiteral("EPLUGIN_ID_BRIDGE_BASE");

QString const kBridgeModule = qEnvironmentVariable("QUORIX_ROOT") + "/lib/plugins-gui/libui_bridge_plugin.so";

// Does what the base plugin does when the bridge arrives: connect the bridge's
// signals and ask it for data.
class BaseStandIn : public CQBasePlugin
{
public:
    QStringList heard;

    QVariant execCmd(QString cmd, QVariant const& para) override
    {
        if (cmd != QLatin1String(PLUGINMANAGE_CMDTYPE_INSTALL) || para.toString() != kBridgeId)
            return QVariant();
        heard.append(QStringLiteral("bridge installed"));
        BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
        connect(bridge, &BasePluginModelDataInterface::sig_CumulativeGuardDays, this,
                [this](unsigned int days) { heard.append(QString::number(days) + QStringLiteral(" days")); });
        bridge->requestUpdateData();
        return QVariant();
    }
};

} // namespace

class TstBridgePlugin : public QObject
{
    Q_OBJECT

    QTemporaryDir m_config;

private slots:
    void initTestCase()
    {
        if (!QFile::exists(kBridgeModule))
            QSKIP("the bridge plugin module is not built");
        QVERIFY(m_config.isValid());
        qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
    }

    void bridgesComeUpWithThePluginAndGoWithIt()
    {
        CQPluginManager* manager = CQPluginManager::singleInstance();
        auto* base = new BaseStandIn;
        QVERIFY(manager->addPlugin(base, QStringLiteral("EPLUGIN_ID_BASE")));
        QVERIFY(manager->loadPlugin(kBridgeModule));
        // The answers come from the event loop, never inside the request.
        QCOMPARE(base->heard, QStringList{QStringLiteral("bridge installed")});
        QTRY_COMPARE(base->heard, (QStringList{"bridge installed", "1 days"}));

        QPointer<BasePluginModelDataInterface> bridge = BasePluginModelDataInterface::singleInstance();
        QPointer<SettingPluginModelDataInterface> settings = SettingPluginModelDataInterface::singleInstance();
        QVERIFY(manager->unloadPlugin(kBridgeId));
        QTRY_VERIFY(!bridge && !settings);
        // A later user gets fresh bridges.
        QVERIFY(BasePluginModelDataInterface::singleInstance());
        BasePluginModelDataInterface::UninitInstance(true);
        CQPluginManager::UninitInstance(true);
    }
};

QTEST_GUILESS_MAIN(TstBridgePlugin)
#include "tst_bridgeplugin.moc"
