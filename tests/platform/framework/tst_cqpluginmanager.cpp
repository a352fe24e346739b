// CQPluginManager against real plugin modules (metadata, load order, broken
// files, install and uninstall announcements) and command routing between
// plugins, including plugins that vanish while a command is delivered.

#include "cqpluginmanager.h"
#include "recorderPlugin.h"

#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString const kBase = QStringLiteral("EPLUGIN_ID_BASE");
QString const kBridge = QStringLiteral("EPLUGIN_ID_BRIDGE_BASE");
QString const kAlpha = QStringLiteral("EPLUGIN_ID_TEST_ALPHA");
QString const kA = QStringLiteral("EPLUGIN_ID_TEST_A");
QString const kB = QStringLiteral("EPLUGIN_ID_TEST_B");
QString const kC = QStringLiteral("EPLUGIN_ID_TEST_C");
QStringList const kAllStems{"tst_a_alpha", "tst_b_bridge", "tst_c_base"};   // sorted unlike the load order

QString builtModule(QString const& stem)
{
    return QStringLiteral(TST_PLUGIN_DIR "/lib%1.so").arg(stem);
}

// The ids that journalled exactly `what`, in order.
QStringList said(QString const& what)
{
    QStringList ids;
    for (QString const& line : RecorderPlugin::journal()) {
        if (line.section(QLatin1Char(' '), 1) == what)
            ids.append(line.section(QLatin1Char(' '), 0, 0));
    }
    return ids;
}

} // namespace

class TstCQPluginManager : public QObject
{
    Q_OBJECT

    CQPluginManager* m_manager = nullptr;
    QScopedPointer<QTemporaryDir> m_dir;
    QPointer<RecorderPlugin> m_a, m_b, m_c;

    // A fresh plugin folder (each copy is a library of its own for the loader).
    QString makePluginDir(QStringList const& stems, QMap<QString, QByteArray> const& extra = {})
    {
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

    // Three recorders A, B, C registered in that order, journal cleared.
    void addRecorders()
    {
        m_a = new RecorderPlugin;
        m_b = new RecorderPlugin;
        m_c = new RecorderPlugin;
        QVERIFY(m_manager->addPlugin(m_a, kA) && m_manager->addPlugin(m_b, kB) && m_manager->addPlugin(m_c, kC));
        RecorderPlugin::journal().clear();
    }

private slots:
    void init()
    {
        RecorderPlugin::journal().clear();
        m_manager = CQPluginManager::singleInstance();
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
    }

    void cleanup()
    {
        CQPluginManager::UninitInstance(true);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!m_a && !m_b && !m_c);
    }

    void readPluginId_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("id");
        QTest::newRow("never loaded") << builtModule("tst_e_omega") << "EPLUGIN_ID_TEST_OMEGA";
        QTest::newRow("not a CQBasePlugin") << builtModule("tst_d_notbase") << "EPLUGIN_ID_TEST_NOTBASE";
        QTest::newRow("executable without metadata") << QCoreApplication::applicationFilePath() << "";
        QTest::newRow("missing file") << "/nonexistent/libnothere.so" << "";
        QTest::newRow("folder") << QStringLiteral(TST_PLUGIN_DIR) << "";
        QTest::newRow("empty name") << "" << "";
    }

    void readPluginId()
    {
        QFETCH(QString, file);
        QFETCH(QString, id);
        QCOMPARE(CQPluginManager::readPluginId(file), id);
        QCOMPARE(RecorderPlugin::journal().filter(QStringLiteral("code loaded")), QStringList());
    }

    void loadOrderAndInstallAnnouncements()
    {
        QObject host;
        host.setObjectName(QStringLiteral("tstHost"));
        m_manager->setHost(&host);
        QSignalSpy loaded(m_manager, &CQPluginManager::sig_pluginLoaded);
        QCOMPARE(m_manager->loadPlugins(makePluginDir(kAllStems)), 3);
        // A second module with a taken id is refused before its init runs.
        QVERIFY(!m_manager->loadPlugin(builtModule(QStringLiteral("tst_a_alpha"))));

        QStringList const order{kBase, kBridge, kAlpha};
        QCOMPARE(m_manager->pluginIds(), order);
        QCOMPARE(loaded.count(), 3);
        QCOMPARE(said(QStringLiteral("init host=tstHost")), order);
        // Registered before init: the command each sent to itself from init arrived.
        QCOMPARE(said(QStringLiteral("TST_SELF_PING")), order);
        for (QString const& installed : order)
            QCOMPARE(said(QStringLiteral(PLUGINMANAGE_CMDTYPE_INSTALL " ") + installed), order);
    }

    void brokenFilesAreSkipped()
    {
        QMap<QString, QByteArray> extra;
        extra.insert(QStringLiteral("libaaa_garbage.so"), QByteArray(4096, '\x5a'));
        extra.insert(QStringLiteral("libempty.so"), QByteArray());
        extra.insert(QStringLiteral("README.txt"), QByteArray("not a plugin\n"));
        QString const dir = makePluginDir({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_d_notbase")}, extra);

        QCOMPARE(m_manager->loadPlugins(dir), 1);
        QCOMPARE(m_manager->pluginIds(), QStringList{kAlpha});
        QCOMPARE(m_manager->loadPlugins(m_dir->filePath(QStringLiteral("no-such-folder"))), 0);
        m_manager->sendCmd(kAlpha, QStringLiteral("STILL_ALIVE"), QVariant());
        QCOMPARE(said(QStringLiteral("STILL_ALIVE")), QStringList{kAlpha});
    }

    void unloadAnnouncesAndDeletesInReverseOrder()
    {
        QCOMPARE(m_manager->loadPlugins(makePluginDir(kAllStems)), 3);
        QSignalSpy unloaded(m_manager, &CQPluginManager::sig_pluginUnloaded);
        RecorderPlugin::journal().clear();
        QVERIFY(m_manager->unloadPlugin(kAlpha));
        QVERIFY(!m_manager->unloadPlugin(kAlpha));
        QString const gone = QStringLiteral(" " PLUGINMANAGE_CMDTYPE_UNSTALL " ") + kAlpha;
        QCOMPARE(RecorderPlugin::journal(),
                 (QStringList{kAlpha + " unInit", kBase + gone, kBridge + gone, kAlpha + " deleted"}));
        QCOMPARE(unloaded.count(), 1);

        RecorderPlugin::journal().clear();
        CQPluginManager::UninitInstance(true);
        QCOMPARE(said(QStringLiteral("unInit")), (QStringList{kBridge, kBase}));
        QCOMPARE(said(QStringLiteral("deleted")), (QStringList{kBridge, kBase}));
    }

    void routing_data()
    {
        QTest::addColumn<QStringList>("order");   // what A is told to do
        QTest::addColumn<QStringList>("receivers");
        QTest::newRow("sig reaches every plugin, sender too")
            << QStringList{"TST_CMD_BROADCAST", "X_CMD", "p"} << QStringList{kA, kB, kC};
        QTest::newRow("sig1 reaches only its target") << QStringList{"TST_CMD_SEND", kB, "X_CMD", "p"} << QStringList{kB};
        QTest::newRow("sig1 to all plugins, sender included")
            << QStringList{"TST_CMD_SEND", EPLUGIN_ID_ALL_PLUGIN, "X_CMD", "p"} << QStringList{kA, kB, kC};
        QTest::newRow("sig1 to an unknown plugin is dropped")
            << QStringList{"TST_CMD_SEND", "EPLUGIN_ID_MSGMGR", "X_CMD", "p"} << QStringList{};
        QTest::newRow("target ids are case-sensitive")
            << QStringList{"TST_CMD_SEND", kB.toLower(), "X_CMD", "p"} << QStringList{};
    }

    void routing()
    {
        QFETCH(QStringList, order);
        QFETCH(QStringList, receivers);
        addRecorders();
        m_manager->sendCmd(kA, order.first(), QStringList(order.mid(1)));
        // Synchronous on the GUI thread: everything happened inside sendCmd.
        QCOMPARE(said(QStringLiteral("X_CMD p")), receivers);
    }

    void emittedOnWorkerThreadIsDeliveredOnGuiThread()
    {
        addRecorders();
        QThread* worker = QThread::create([a = m_a.data()]() {
            emit a->sig1(kB, QStringLiteral("FROM_WORKER"), 1);
            CQPluginManager::singleInstance()->sendCmd(kC, QStringLiteral("FROM_WORKER"), 2);
        });
        worker->start();
        QVERIFY(worker->wait(5000));
        delete worker;
        QTRY_COMPARE(RecorderPlugin::journal(), (QStringList{kB + " FROM_WORKER 1", kC + " FROM_WORKER 2"}));
        QCOMPARE(m_b->lastThread, thread());
        QCOMPARE(m_c->lastThread, thread());
    }

    void pluginDeletedDuringBroadcastIsSkipped()
    {
        addRecorders();
        QSignalSpy unloaded(m_manager, &CQPluginManager::sig_pluginUnloaded);
        // A, first in line, deletes B before the broadcast reaches it.
        m_manager->broadcast(QStringLiteral("TST_CMD_DELETE"), kB);
        QVERIFY(!m_b);
        QCOMPARE(said("TST_CMD_DELETE " + kB), (QStringList{kA, kC}));
        QCOMPARE(m_manager->pluginIds(), (QStringList{kA, kC}));
        QCOMPARE(unloaded.count(), 1);
        QCOMPARE(said(QStringLiteral(PLUGINMANAGE_CMDTYPE_UNSTALL " ") + kB), (QStringList{kA, kC}));
    }

    void pluginsGoingAwayOutsideABroadcast()
    {
        addRecorders();
        // B's own execCmd is on the stack: it must survive until the command returns.
        m_manager->sendCmd(kB, QStringLiteral("TST_CMD_UNLOAD"), kB);
        QVERIFY(m_b);
        QVERIFY(!CQPluginManager::plugin(kB));
        QTRY_VERIFY(!m_b);
        delete m_c.data();   // behind the manager's back
        QCOMPARE(m_manager->pluginIds(), QStringList{kA});
        m_manager->broadcast(QStringLiteral("AFTER"), QVariant());
        m_manager->sendCmd(kC, QStringLiteral("AFTER"), QVariant());
        QCOMPARE(said(QStringLiteral("AFTER")), QStringList{kA});
    }
};

QTEST_GUILESS_MAIN(TstCQPluginManager)
#include "tst_cqpluginmanager.moc"
