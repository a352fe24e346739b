#include "cqgtaskmutexmap.h"

#include <QtTest>
#include <thread>
#include <vector>

// The registry of running tasks that the quit flow consults.
class TstKitTaskMap : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void operations_data();
    void operations();
    void snapshotAppendsAndOutlivesRemoval();
    void concurrentWorkers();
};

void TstKitTaskMap::init()
{
    CQGTaskMutexMap::singleInstance()->clear();
}

void TstKitTaskMap::operations_data()
{
    // Steps: "add <name> <allowQuit 0|1>", "remove <name>"; "" names the empty name.
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QList<bool>>("results");
    QTest::addColumn<QStringList>("listed");   // name:allowQuit, in name order

    QTest::newRow("name order") << QStringList{"add scan 0", "add backup 1", "add update 1"} << QList<bool>{true, true, true}
                                << QStringList{"backup:1", "scan:0", "update:1"};
    QTest::newRow("same name replaces") << QStringList{"add scan 1", "add scan 0"} << QList<bool>{true, true}
                                        << QStringList{"scan:0"};
    QTest::newRow("empty name refused") << QStringList{"add  0"} << QList<bool>{false} << QStringList{};
    QTest::newRow("remove known") << QStringList{"add scan 0", "add fix 1", "remove scan"} << QList<bool>{true, true, true}
                                  << QStringList{"fix:1"};
    QTest::newRow("remove unknown") << QStringList{"add scan 0", "remove nope", "remove scan", "remove scan"}
                                    << QList<bool>{true, false, true, false} << QStringList{};
}

void TstKitTaskMap::operations()
{
    QFETCH(QStringList, steps);
    QFETCH(QList<bool>, results);
    QFETCH(QStringList, listed);
    CQGTaskMutexMap* map = CQGTaskMutexMap::singleInstance();
    QList<bool> got;
    for (QString const& step : steps) {
        QStringList const parts = step.split(QLatin1Char(' '));
        if (parts.at(0) == QLatin1String("add")) {
            CQTaskInfo task;
            task.name = parts.at(1);
            task.allowQuit = parts.at(2) == QLatin1String("1");
            got << map->addTaskInfo(task);
        } else {
            got << map->removeTaskInfo(parts.at(1));
        }
    }
    QCOMPARE(got, results);
    QVector<CQTaskInfo> tasks;
    QCOMPARE(map->isExistTaskInfo(tasks), !listed.isEmpty());
    QStringList names;
    for (CQTaskInfo const& task : tasks)
        names << task.name + QLatin1Char(':') + (task.allowQuit ? QLatin1Char('1') : QLatin1Char('0'));
    QCOMPARE(names, listed);
    QCOMPARE(map->count(), listed.size());
}

void TstKitTaskMap::snapshotAppendsAndOutlivesRemoval()
{
    CQGTaskMutexMap* map = CQGTaskMutexMap::singleInstance();
    int calls = 0;
    CQTaskInfo task;
    task.name = QStringLiteral("scan");
    task.allowQuit = false;
    task.action = [&calls]() { return ++calls > 0; };
    QVERIFY(map->addTaskInfo(task));

    QVector<CQTaskInfo> tasks(1);   // the caller's vector is appended to
    QVERIFY(map->isExistTaskInfo(tasks));
    QCOMPARE(tasks.size(), 2);
    QVERIFY(map->removeTaskInfo(QStringLiteral("scan")));
    // The snapshot holds its own copy: the action is callable after removal.
    QVERIFY(tasks.at(1).action());
    QCOMPARE(calls, 1);
    QVector<CQTaskInfo> none;
    QVERIFY(!map->isExistTaskInfo(none));
    QVERIFY(none.isEmpty());
}

void TstKitTaskMap::concurrentWorkers()
{
    CQGTaskMutexMap* map = CQGTaskMutexMap::singleInstance();
    int const workers = 4;
    int const perWorker = 500;
    std::vector<std::thread> threads;
    for (int w = 0; w < workers; ++w) {
        threads.emplace_back([map, w]() {
            for (int i = 0; i < perWorker; ++i) {
                CQTaskInfo task;
                task.name = QStringLiteral("w%1-%2").arg(w).arg(i);
                map->addTaskInfo(task);
                QVector<CQTaskInfo> snapshot;
                map->isExistTaskInfo(snapshot);
                // Every other task finishes again.
                if (i % 2 == 0)
                    map->removeTaskInfo(task.name);
            }
        });
    }
    for (std::thread& t : threads)
        t.join();
    QCOMPARE(map->count(), workers * perWorker / 2);
    QVERIFY(map->contains(QStringLiteral("w3-499")));
    QVERIFY(!map->contains(QStringLiteral("w3-498")));
}

QTEST_GUILESS_MAIN(TstKitTaskMap)
#include "tst_kit_taskmap.moc"
