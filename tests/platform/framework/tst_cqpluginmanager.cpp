// CQPluginManager against real plugin modules: metadata, load order, failures,
// install and uninstall announcements.

#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "testJournal.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString const kBase = QStringLiteral("EPLUGIN_ID_BASE");
QString const kBridge = QStringLiteral("EPLUGIN_ID_BRIDGE_BASE");
QString const kAlpha = QStringLiteral("EPLUGIN_ID_TEST_ALPHA");

QString builtModule(QString const& stem)
{
    return QStringLiteral(TST_PLUGIN_DIR "/lib%1.so").arg(stem);
}

} // namespace

class TstCQPluginManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void readPluginId_data();
    void readPluginId();
    void readPluginIdRunsNoCode();
    void loadOrderBaseBridgeThenFileName();
    void brokenFilesAreSkipped();
    void initGetsHostAndMetadata();
    void everyPluginHearsEveryInstallOnce_data();
    void everyPluginHearsEveryInstallOnce();
    void duplicateIdIsRefused();
    void unloadAnnouncesAndDeletes();
    void unloadAllGoesInReverseOrder();

private:
    // A plugin folder holding copies of the given built modules plus `extra` files.
    QString makePluginDir(QStringList const& stems, QMap<QString, QByteArray> const& extra = {});

    QScopedPointer<QTemporaryDir> m_dir;
    QTemporaryDir m_fixtures;   // files the data tables point at
};

void TstCQPluginManager::init()
{
    TestJournal::clear();
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

void TstCQPluginManager::cleanup()
{
    CQPluginManager::UninitInstance(true);
    m_dir.reset();
}

QString TstCQPluginManager::makePluginDir(QStringList const& stems, QMap<QString, QByteArray> const& extra)
{
    // A fresh folder per case: each copy is a library of its own for the loader.
    QString const dir = m_dir->filePath(QStringLiteral("plugins-gui"));
    QDir().mkpath(dir);
    for (QString const& stem : stems)
        QFile::copy(builtModule(stem), dir + QStringLiteral("/lib%1.so").arg(stem));
    for (auto it = extra.cbegin(); it != extra.cend(); ++it) {
        QFile file(dir + QLatin1Char('/') + it.key());
        if (file.open(QIODevice::WriteOnly))
            file.write(it.value());
    }
    return dir;
}

void TstCQPluginManager::readPluginId_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("id");
    QString const garbage = m_fixtures.filePath(QStringLiteral("libgarbage.so"));
    QFile file(garbage);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\x7f" "ELF this is not really a shared object"));
    file.close();

    QTest::newRow("base") << builtModule(QStringLiteral("tst_c_base")) << kBase;
    QTest::newRow("bridge") << builtModule(QStringLiteral("tst_b_bridge")) << kBridge;
    QTest::newRow("not a CQBasePlugin still has an id") << builtModule(QStringLiteral("tst_d_notbase"))
                                                         << QStringLiteral("EPLUGIN_ID_TEST_NOTBASE");
    QTest::newRow("garbage") << garbage << QString();
    QTest::newRow("missing file") << m_fixtures.filePath(QStringLiteral("libnothere.so")) << QString();
    QTest::newRow("folder") << m_fixtures.path() << QString();
    QTest::newRow("empty name") << QString() << QString();
}

void TstCQPluginManager::readPluginId()
{
    QFETCH(QString, file);
    QFETCH(QString, id);
    QCOMPARE(CQPluginManager::readPluginId(file), id);
}

void TstCQPluginManager::readPluginIdRunsNoCode()
{
    QCOMPARE(CQPluginManager::readPluginId(builtModule(QStringLiteral("tst_e_omega"))),
             QStringLiteral("EPLUGIN_ID_TEST_OMEGA"));
    QCOMPARE(TestJournal::count(QStringLiteral("EPLUGIN_ID_TEST_OMEGA code loaded")), 0);
}

void TstCQPluginManager::loadOrderBaseBridgeThenFileName()
{
    QString const dir = makePluginDir({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_b_bridge"),
                                       QStringLiteral("tst_c_base")});
    CQPluginManager* manager = CQPluginManager::singleInstance();
    QSignalSpy loaded(manager, &CQPluginManager::sig_pluginLoaded);

    QCOMPARE(manager->loadPlugins(dir), 3);
    QCOMPARE(manager->pluginIds(), (QStringList{kBase, kBridge, kAlpha}));
    QCOMPARE(loaded.count(), 3);
    QCOMPARE(loaded.at(0).at(0).toString(), kBase);
    QStringList inits;
    for (QString const& line : TestJournal::lines()) {
        if (line.contains(QLatin1String(" init ")))
            inits.append(line.section(QLatin1Char(' '), 0, 0));
    }
    QCOMPARE(inits, (QStringList{kBase, kBridge, kAlpha}));
}

void TstCQPluginManager::brokenFilesAreSkipped()
{
    QMap<QString, QByteArray> extra;
    extra.insert(QStringLiteral("libaaa_garbage.so"), QByteArray(4096, '\x5a'));
    extra.insert(QStringLiteral("libempty.so"), QByteArray());
    extra.insert(QStringLiteral("README.txt"), QByteArray("not a plugin\n"));
    QString const dir = makePluginDir({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_d_notbase")}, extra);
    CQPluginManager* manager = CQPluginManager::singleInstance();

    QCOMPARE(manager->loadPlugins(dir), 1);
    QCOMPARE(manager->pluginIds(), QStringList{kAlpha});
    QVERIFY(!manager->loadPlugin(dir + QStringLiteral("/libaaa_garbage.so")));
    QVERIFY(!manager->loadPlugin(dir + QStringLiteral("/libtst_d_notbase.so")));
    QCOMPARE(manager->loadPlugins(m_dir->filePath(QStringLiteral("no-such-folder"))), 0);
    // Still routing after all that.
    manager->sendCmd(kAlpha, QStringLiteral("STILL_ALIVE"), QVariant());
    QCOMPARE(TestJournal::count(kAlpha + QStringLiteral(" STILL_ALIVE")), 1);
}

void TstCQPluginManager::initGetsHostAndMetadata()
{
    QObject host;
    host.setObjectName(QStringLiteral("tstHost"));
    CQPluginManager* manager = CQPluginManager::singleInstance();
    manager->setHost(&host);
    QString const dir = makePluginDir({QStringLiteral("tst_b_bridge")});

    QVERIFY(manager->loadPlugin(dir + QStringLiteral("/libtst_b_bridge.so")));
    // The marker the metadata test relies on does show up once code runs.
    QCOMPARE(TestJournal::count(kBridge + QStringLiteral(" code loaded")), 1);
    QCOMPARE(TestJournal::count(kBridge + QStringLiteral(" init host=tstHost")), 1);
    // Registered before init: its own command sent from init reached it.
    QCOMPARE(TestJournal::count(kBridge + QStringLiteral(" TST_SELF_PING")), 1);
    CQBasePlugin* plugin = CQPluginManager::plugin(kBridge);
    QVERIFY(plugin);
    QVariantMap const info = plugin->info().toMap();
    QCOMPARE(info.value(QStringLiteral("id")).toString(), kBridge);
    QCOMPARE(info.value(QStringLiteral("version")).toString(), QStringLiteral("1.0.0.1"));
    QCOMPARE(info.value(QStringLiteral("path")).toString(), QStringLiteral("libtst_b_bridge.so"));
    QCOMPARE(plugin->pluginId(), kBridge);
}

void TstCQPluginManager::everyPluginHearsEveryInstallOnce_data()
{
    QTest::addColumn<QString>("listener");
    QTest::addColumn<QString>("installed");
    for (QString const& listener : {kBase, kBridge, kAlpha}) {
        for (QString const& installed : {kBase, kBridge, kAlpha})
            QTest::addRow("%s hears %s", qPrintable(listener), qPrintable(installed)) << listener << installed;
    }
}

void TstCQPluginManager::everyPluginHearsEveryInstallOnce()
{
    QFETCH(QString, listener);
    QFETCH(QString, installed);
    QString const dir = makePluginDir({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_b_bridge"),
                                       QStringLiteral("tst_c_base")});
    QCOMPARE(CQPluginManager::singleInstance()->loadPlugins(dir), 3);
    QCOMPARE(TestJournal::count(listener + QStringLiteral(" " PLUGINMANAGE_CMDTYPE_INSTALL " ") + installed), 1);
}

void TstCQPluginManager::duplicateIdIsRefused()
{
    QString const dir = makePluginDir({QStringLiteral("tst_a_alpha")});
    CQPluginManager* manager = CQPluginManager::singleInstance();
    QVERIFY(manager->loadPlugin(dir + QStringLiteral("/libtst_a_alpha.so")));
    QVERIFY(!manager->loadPlugin(builtModule(QStringLiteral("tst_a_alpha"))));
    QCOMPARE(manager->pluginIds(), QStringList{kAlpha});
    QCOMPARE(TestJournal::count(kAlpha + QStringLiteral(" init host=null")), 1);
}

void TstCQPluginManager::unloadAnnouncesAndDeletes()
{
    QString const dir = makePluginDir({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_c_base")});
    CQPluginManager* manager = CQPluginManager::singleInstance();
    QCOMPARE(manager->loadPlugins(dir), 2);
    QSignalSpy unloaded(manager, &CQPluginManager::sig_pluginUnloaded);
    TestJournal::clear();

    QVERIFY(manager->unloadPlugin(kAlpha));
    QVERIFY(!manager->unloadPlugin(kAlpha));
    QCOMPARE(TestJournal::lines(), (QStringList{kAlpha + QStringLiteral(" unInit"),
                                                kBase + QStringLiteral(" " PLUGINMANAGE_CMDTYPE_UNSTALL " ") + kAlpha,
                                                kAlpha + QStringLiteral(" deleted")}));
    QCOMPARE(unloaded.count(), 1);
    QVERIFY(!CQPluginManager::plugin(kAlpha));
    QCOMPARE(manager->pluginIds(), QStringList{kBase});
}

void TstCQPluginManager::unloadAllGoesInReverseOrder()
{
    QString const dir = makePluginDir({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_b_bridge"),
                                       QStringLiteral("tst_c_base")});
    CQPluginManager* manager = CQPluginManager::singleInstance();
    QCOMPARE(manager->loadPlugins(dir), 3);
    TestJournal::clear();

    CQPluginManager::UninitInstance(true);
    QStringList uninits;
    for (QString const& line : TestJournal::lines()) {
        if (line.endsWith(QLatin1String(" unInit")))
            uninits.append(line.section(QLatin1Char(' '), 0, 0));
    }
    QCOMPARE(uninits, (QStringList{kAlpha, kBridge, kBase}));
    QVERIFY(!CQPluginManager::plugin(kBase));
}

QTEST_GUILESS_MAIN(TstCQPluginManager)
#include "tst_cqpluginmanager.moc"
