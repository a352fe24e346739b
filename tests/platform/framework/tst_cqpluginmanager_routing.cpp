// Command routing of CQPluginManager: sig, sig1, the all-plugins target,
// delivery thread, and plugins that vanish while a command is delivered.

#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "recorderPlugin.h"
#include "testJournal.h"

#include <QPointer>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

namespace {

QString const kA = QStringLiteral("EPLUGIN_ID_TEST_A");
QString const kB = QStringLiteral("EPLUGIN_ID_TEST_B");
QString const kC = QStringLiteral("EPLUGIN_ID_TEST_C");

// Which of A, B, C journalled `cmd`.
QStringList receiversOf(QString const& cmd)
{
    QStringList receivers;
    for (QString const& line : TestJournal::lines()) {
        if (line.section(QLatin1Char(' '), 1, 1) == cmd)
            receivers.append(line.section(QLatin1Char(' '), 0, 0));
    }
    return receivers;
}

} // namespace

class TstCQPluginManagerRouting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void routing_data();
    void routing();
    void commandsAreSeenByTheHost();
    void emittedOnWorkerThreadIsDeliveredOnGuiThread();
    void pluginDeletedDuringBroadcastIsSkipped();
    void pluginUnloadingItselfFromACommand();
    void pluginDeletedBehindTheManagersBack();

private:
    QPointer<RecorderPlugin> m_a, m_b, m_c;
};

void TstCQPluginManagerRouting::init()
{
    CQPluginManager* manager = CQPluginManager::singleInstance();
    m_a = new RecorderPlugin;
    m_b = new RecorderPlugin;
    m_c = new RecorderPlugin;
    QVERIFY(manager->addPlugin(m_a, kA));
    QVERIFY(manager->addPlugin(m_b, kB));
    QVERIFY(manager->addPlugin(m_c, kC));
    TestJournal::clear();
}

void TstCQPluginManagerRouting::cleanup()
{
    CQPluginManager::UninitInstance(true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!m_a && !m_b && !m_c);
}

void TstCQPluginManagerRouting::routing_data()
{
    QTest::addColumn<QStringList>("order");   // what A is told to do
    QTest::addColumn<QStringList>("receivers");
    QTest::newRow("sig reaches every plugin, sender too")
        << QStringList{QStringLiteral("TST_CMD_BROADCAST"), QStringLiteral("X_CMD"), QStringLiteral("p")}
        << QStringList{kA, kB, kC};
    QTest::newRow("sig1 reaches only its target")
        << QStringList{QStringLiteral("TST_CMD_SEND"), kB, QStringLiteral("X_CMD"), QStringLiteral("p")}
        << QStringList{kB};
    QTest::newRow("sig1 to itself")
        << QStringList{QStringLiteral("TST_CMD_SEND"), kA, QStringLiteral("X_CMD"), QStringLiteral("p")}
        << QStringList{kA};
    QTest::newRow("sig1 to all plugins, sender included")
        << QStringList{QStringLiteral("TST_CMD_SEND"), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), QStringLiteral("X_CMD"),
                       QStringLiteral("p")}
        << QStringList{kA, kB, kC};
    QTest::newRow("sig1 to an unknown plugin is dropped")
        << QStringList{QStringLiteral("TST_CMD_SEND"), QStringLiteral("EPLUGIN_ID_MSGMGR"), QStringLiteral("X_CMD"),
                       QStringLiteral("p")}
        << QStringList{};
    QTest::newRow("sig1 with an empty target is dropped")
        << QStringList{QStringLiteral("TST_CMD_SEND"), QString(), QStringLiteral("X_CMD"), QStringLiteral("p")}
        << QStringList{};
    QTest::newRow("target ids are case-sensitive")
        << QStringList{QStringLiteral("TST_CMD_SEND"), kB.toLower(), QStringLiteral("X_CMD"), QStringLiteral("p")}
        << QStringList{};
}

void TstCQPluginManagerRouting::routing()
{
    QFETCH(QStringList, order);
    QFETCH(QStringList, receivers);
    CQPluginManager::singleInstance()->sendCmd(kA, order.first(), QStringList(order.mid(1)));
    QCOMPARE(receiversOf(QStringLiteral("X_CMD")), receivers);
    // Synchronous on the GUI thread: everything happened inside sendCmd.
    for (QString const& line : TestJournal::lines()) {
        if (line.section(QLatin1Char(' '), 1, 1) == QLatin1String("X_CMD"))
            QCOMPARE(line.section(QLatin1Char(' '), 2), QStringLiteral("p"));
    }
}

void TstCQPluginManagerRouting::commandsAreSeenByTheHost()
{
    QSignalSpy commands(CQPluginManager::singleInstance(), &CQPluginManager::sig_command);
    emit m_b->sig1(kC, QStringLiteral("Y_CMD"), 42);
    emit m_c->sig(QStringLiteral("EPLUGIN_ID_BASE_CMD_MAINEXIT"), QVariant());
    QCOMPARE(commands.count(), 2);
    QCOMPARE(commands.at(0).at(0).toString(), kC);
    QCOMPARE(commands.at(0).at(1).toString(), QStringLiteral("Y_CMD"));
    QCOMPARE(commands.at(0).at(2).toInt(), 42);
    QCOMPARE(commands.at(1).at(0).toString(), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN));
    QCOMPARE(commands.at(1).at(1).toString(), QStringLiteral("EPLUGIN_ID_BASE_CMD_MAINEXIT"));
}

void TstCQPluginManagerRouting::emittedOnWorkerThreadIsDeliveredOnGuiThread()
{
    QPointer<RecorderPlugin> a = m_a;
    QThread* worker = QThread::create([a]() {
        emit a->sig1(kB, QStringLiteral("FROM_WORKER"), 1);
        CQPluginManager::singleInstance()->sendCmd(kC, QStringLiteral("FROM_WORKER"), 2);
    });
    worker->start();
    QVERIFY(worker->wait(5000));
    delete worker;
    QTRY_COMPARE(receiversOf(QStringLiteral("FROM_WORKER")).size(), 2);
    QCOMPARE(m_b->threads().last(), QCoreApplication::instance()->thread());
    QCOMPARE(m_c->threads().last(), QCoreApplication::instance()->thread());
}

void TstCQPluginManagerRouting::pluginDeletedDuringBroadcastIsSkipped()
{
    QSignalSpy unloaded(CQPluginManager::singleInstance(), &CQPluginManager::sig_pluginUnloaded);
    // A, first in line, deletes B before the broadcast reaches it.
    CQPluginManager::singleInstance()->broadcast(QStringLiteral("TST_CMD_DELETE"), kB);
    QVERIFY(!m_b);
    QCOMPARE(receiversOf(QStringLiteral("TST_CMD_DELETE")), (QStringList{kA, kC}));
    QCOMPARE(CQPluginManager::singleInstance()->pluginIds(), (QStringList{kA, kC}));
    QCOMPARE(unloaded.count(), 1);
    QCOMPARE(TestJournal::count(kC + QStringLiteral(" " PLUGINMANAGE_CMDTYPE_UNSTALL " ") + kB), 1);
}

void TstCQPluginManagerRouting::pluginUnloadingItselfFromACommand()
{
    // B's own execCmd is on the stack: it must survive until the command returns.
    CQPluginManager::singleInstance()->sendCmd(kB, QStringLiteral("TST_CMD_UNLOAD"), kB);
    QVERIFY(m_b);
    QVERIFY(!CQPluginManager::plugin(kB));
    QTRY_VERIFY(!m_b);
    CQPluginManager::singleInstance()->broadcast(QStringLiteral("AFTER"), QVariant());
    QCOMPARE(receiversOf(QStringLiteral("AFTER")), (QStringList{kA, kC}));
}

void TstCQPluginManagerRouting::pluginDeletedBehindTheManagersBack()
{
    delete m_c.data();
    QVERIFY(!CQPluginManager::plugin(kC));
    QCOMPARE(CQPluginManager::singleInstance()->pluginIds(), (QStringList{kA, kB}));
    CQPluginManager::singleInstance()->sendCmd(kC, QStringLiteral("LOST"), QVariant());
    QVERIFY(receiversOf(QStringLiteral("LOST")).isEmpty());
}

QTEST_GUILESS_MAIN(TstCQPluginManagerRouting)
#include "tst_cqpluginmanager_routing.moc"
