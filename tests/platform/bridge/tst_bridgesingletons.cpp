// The bridge singletons: one instance each, release now or later, a fresh one
// afterwards, meta-type names, and a backend swapped under running bridges.

#include "basepluginmodeldatainterface.h"
#include "bridgemetatypes.h"
#include "messagecenterpluginmodeldatainterface.h"
#include "quorixbackendregistry.h"
#include "settingpluginmodeldatainterface.h"
#include "simulatedbackend.h"
#include "upgradepluginmodeldatainterface.h"
#include "verifypluginmodeldatainterface.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace {

struct BridgeAccess {
    std::function<QObject*()> instance;
    std::function<void(bool)> release;
};

template <typename Bridge>
BridgeAccess accessOf()
{
    return {[]() -> QObject* { return Bridge::singleInstance(); }, [](bool now) { Bridge::UninitInstance(now); }};
}

BridgeAccess bridgeNamed(QString const& name)
{
    if (name == QLatin1String("base"))
        return accessOf<BasePluginModelDataInterface>();
    if (name == QLatin1String("setting"))
        return accessOf<SettingPluginModelDataInterface>();
    if (name == QLatin1String("upgrade"))
        return accessOf<UpgradePluginModelDataInterface>();
    if (name == QLatin1String("messagecenter"))
        return accessOf<MessageCenterPluginModelDataInterface>();
    return accessOf<VerifyPluginModelDataInterface>();
}

// A backend with fixed answers, to see which backend a bridge asks.
class FixedBackend : public SimulatedBackend
{
public:
    using SimulatedBackend::SimulatedBackend;
    QString clientVersion() override { return QStringLiteral("9.9.9.9999"); }
    int verifyPolicy(int) override { return 2; }
};

} // namespace

class TstBridgeSingletons : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void lifecycle_data();
    void lifecycle();
    void metaTypeNames_data();
    void metaTypeNames();
    void backendSwapReachesRunningBridges();

private:
    QTemporaryDir m_config;
};

void TstBridgeSingletons::initTestCase()
{
    QVERIFY(m_config.isValid());
    qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
    qunsetenv("QUORIX_EXIT_PASSWORD");
}

void TstBridgeSingletons::cleanup()
{
    QuorixBackendRegistry::setBackend(nullptr);
}

void TstBridgeSingletons::lifecycle_data()
{
    QTest::addColumn<QString>("bridge");
    for (char const* name : {"base", "setting", "upgrade", "messagecenter", "verify"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TstBridgeSingletons::lifecycle()
{
    QFETCH(QString, bridge);
    BridgeAccess const access = bridgeNamed(bridge);

    QPointer<QObject> first = access.instance();
    QVERIFY(first);
    QCOMPARE(access.instance(), first.data());

    access.release(true);
    QVERIFY(!first);
    QPointer<QObject> second = access.instance();
    QVERIFY(second);

    // Released for later: gone from the accessor at once, deleted by the loop.
    access.release(false);
    QVERIFY(second);
    QPointer<QObject> third = access.instance();
    QVERIFY(third != second);
    QTRY_VERIFY(!second);
    QVERIFY(third);

    // Deleted by somebody else: never handed out again.
    delete third.data();
    QPointer<QObject> fourth = access.instance();
    QVERIFY(fourth);
    access.release(true);
    access.release(true);   // twice is harmless
    QVERIFY(!fourth);
}

void TstBridgeSingletons::metaTypeNames_data()
{
    QTest::addColumn<QByteArray>("alias");
    QTest::addColumn<QByteArray>("cppName");
    QTest::newRow("notice") << QByteArray("sNoticeWinInfo") << QByteArray("_sNoticeWinInfo_");
    QTest::newRow("uninstall") << QByteArray("UNINSTALL_RESULT") << QByteArray("UNINSTALL_RESULT");
    QTest::newRow("unified notice") << QByteArray("sUniNoticeMsgInfo") << QByteArray("__sUniNoticeMsgInfo");
    QTest::newRow("setting data") << QByteArray("sSettingData") << QByteArray("__sSettingData");
    QTest::newRow("device pop-up") << QByteArray("sDeviceMgrPopup") << QByteArray("__sDeviceMgrPopup");
    QTest::newRow("base info") << QByteArray("sBaseModuleBaseInfo") << QByteArray("__sBaseModuleBaseInfo");
    QTest::newRow("power action") << QByteArray("eDevMgr") << QByteArray("eDevMgr");
    QTest::newRow("common setting") << QByteArray("SETTING_COMMON") << QByteArray("_SETTING_COMMON_");
    QTest::newRow("version list") << QByteArray("QLIST_VERINFO") << QByteArray("QList<_VERINFO_>");
}

void TstBridgeSingletons::metaTypeNames()
{
    QFETCH(QByteArray, alias);
    QFETCH(QByteArray, cppName);
    // Creating any bridge registers them all.
    VerifyPluginModelDataInterface::singleInstance();
    int const byAlias = QMetaType::type(alias.constData());
    QVERIFY2(byAlias != QMetaType::UnknownType, alias.constData());
    QCOMPARE(byAlias, QMetaType::type(cppName.constData()));
    VerifyPluginModelDataInterface::UninitInstance(true);
}

void TstBridgeSingletons::backendSwapReachesRunningBridges()
{
    BasePluginModelDataInterface* base = BasePluginModelDataInterface::singleInstance();
    QCOMPARE(VerifyPluginModelDataInterface::singleInstance()->getVerifyPolicy(1), 1);
    std::shared_ptr<QuorixBackend> const old = QuorixBackendRegistry::backend();

    QuorixBackendRegistry::setBackend(std::make_shared<FixedBackend>(m_config.path()));
    QCOMPARE(VerifyPluginModelDataInterface::singleInstance()->getVerifyPolicy(1), 2);
    QSignalSpy version(base, &BasePluginModelDataInterface::sig_setClientVersionInfo);
    base->requestVersionInfo();
    QVERIFY(version.wait(5000));
    QCOMPARE(version.at(0).at(0).toString(), QStringLiteral("9.9.9.9999"));

    // Events of the new backend are forwarded, those of the old one no longer.
    QSignalSpy hide(base, &BasePluginModelDataInterface::sig_hide);
    QSignalSpy centerShow(base, &BasePluginModelDataInterface::sig_centerShow);
    emit old->sig_hide();
    emit QuorixBackendRegistry::backend()->sig_centerShow();
    QVERIFY(centerShow.wait(5000));
    // Queued in emission order: a forwarded hide would have arrived first.
    QCOMPARE(hide.count(), 0);
    BasePluginModelDataInterface::UninitInstance(true);
    VerifyPluginModelDataInterface::UninitInstance(true);
}

QTEST_GUILESS_MAIN(TstBridgeSingletons)
#include "tst_bridgesingletons.moc"
