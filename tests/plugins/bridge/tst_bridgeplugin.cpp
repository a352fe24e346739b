// "EPLUGIN_ID_BRIDGE_BASE" loaded from build/lib/plugins-gui: metadata, the
// bridges it brings up and releases, and the start-up the base plugin runs
// when it hears that the bridge is installed.

#include "basepluginmodeldatainterface.h"
#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "settingpluginmodeldatainterface.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString const kBridgeId = QStringLiteral("EPLUGIN_ID_BRIDGE_BASE");

QString bridgeModule()
{
    return qEnvironmentVariable("QUORIX_ROOT") + QStringLiteral("/lib/plugins-gui/libui_bridge_plugin.so");
}

// Does what the base plugin does when the bridge arrives: connect the bridge's
// signals and ask it for data.
class BaseStandIn : public CQBasePlugin
{
public:
    QStringList versions;
    QList<uint> days;
    QList<quint64> baseInfo;
    int bridgeInstalls = 0;

    QVariant execCmd(QString cmd, QVariant const& para) override
    {
        if (cmd == QLatin1String(PLUGINMANAGE_CMDTYPE_INSTALL) && para.toString() == kBridgeId) {
            ++bridgeInstalls;
            BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
            connect(bridge, &BasePluginModelDataInterface::sig_setClientVersionInfo, this,
                    [this](QString version) { versions.append(version); });
            connect(bridge, &BasePluginModelDataInterface::sig_CumulativeGuardDays, this,
                    [this](unsigned int count) { days.append(count); });
            connect(bridge, &BasePluginModelDataInterface::sig_base_info, this,
                    [this](__sBaseModuleBaseInfo info) { baseInfo.append(info.value); });
            bridge->requestUpdateData();
            emit sig(QStringLiteral("EPLUGIN_ID_BASE_CMD_INIT_CONNECT"), QVariant());
        }
        return QVariant();
    }
};

} // namespace

class TstBridgePlugin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void metadataIsReadWithoutLoading();
    void basePluginGetsDataOnceTheBridgeIsInstalled();
    void unloadReleasesTheBridges();

private:
    QTemporaryDir m_config;
};

void TstBridgePlugin::initTestCase()
{
    if (!QFile::exists(bridgeModule()))
        QSKIP("the bridge plugin module is not built");
    QVERIFY(m_config.isValid());
    qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
}

void TstBridgePlugin::cleanup()
{
    CQPluginManager::UninitInstance(true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TstBridgePlugin::metadataIsReadWithoutLoading()
{
    QCOMPARE(CQPluginManager::readPluginId(bridgeModule()), kBridgeId);
    CQPluginManager* manager = CQPluginManager::singleInstance();
    QVERIFY(manager->loadPlugin(bridgeModule()));
    QVariantMap const info = CQPluginManager::plugin(kBridgeId)->info().toMap();
    QCOMPARE(info.value(QStringLiteral("path")).toString(), QStringLiteral("lib/plugins-gui/libui_bridge_plugin.so"));
    QVERIFY(!info.value(QStringLiteral("version")).toString().isEmpty());
    QVERIFY(!manager->loadPlugin(bridgeModule()));
}

void TstBridgePlugin::basePluginGetsDataOnceTheBridgeIsInstalled()
{
    CQPluginManager* manager = CQPluginManager::singleInstance();
    auto* base = new BaseStandIn;
    QVERIFY(manager->addPlugin(base, QStringLiteral("EPLUGIN_ID_BASE")));
    QSignalSpy commands(manager, &CQPluginManager::sig_command);
    QVERIFY(manager->loadPlugin(bridgeModule()));

    QCOMPARE(base->bridgeInstalls, 1);
    // The answers come from the event loop, never inside the request.
    QVERIFY(base->versions.isEmpty());
    QTRY_COMPARE(base->days.size(), 1);
    QCOMPARE(base->versions, QStringList{QStringLiteral("3.0.2.7550")});
    QCOMPARE(base->days.first(), 1u);
    QCOMPARE(base->baseInfo.first() & 0xFFFFFFFFull, quint64(base->days.first()));
    bool initConnectSeen = false;
    for (QList<QVariant> const& command : qAsConst(commands))
        initConnectSeen |= command.at(1).toString() == QLatin1String("EPLUGIN_ID_BASE_CMD_INIT_CONNECT");
    QVERIFY(initConnectSeen);
}

void TstBridgePlugin::unloadReleasesTheBridges()
{
    CQPluginManager* manager = CQPluginManager::singleInstance();
    QVERIFY(manager->loadPlugin(bridgeModule()));
    QPointer<BasePluginModelDataInterface> base = BasePluginModelDataInterface::singleInstance();
    QPointer<SettingPluginModelDataInterface> settings = SettingPluginModelDataInterface::singleInstance();

    QVERIFY(manager->unloadPlugin(kBridgeId));
    QTRY_VERIFY(!base && !settings);
    // A later user gets fresh bridges.
    QVERIFY(BasePluginModelDataInterface::singleInstance());
    BasePluginModelDataInterface::UninitInstance(true);
}

QTEST_GUILESS_MAIN(TstBridgePlugin)
#include "tst_bridgeplugin.moc"
