// Which extra plugin folders the host loads, and in which order: those of
// --plugin-dir as given, then those of $QUORIX_PLUGIN_DIRS, each once, never
// the main plugin folder again.

#include "hostPluginLoader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestHostPluginDirs : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // "@" stands for the scratch folder, which holds main/, a/, b/ and
    // link -> a.
    QString expand(QString text) const { return text.replace(QLatin1Char('@'), m_dir.path()); }
    QStringList expand(QStringList list) const
    {
        for (QString& entry : list)
            entry = expand(entry);
        return list;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        for (char const* name : {"main", "a", "b"})
            QVERIFY(QDir(m_dir.path()).mkpath(QString::fromLatin1(name)));
        QVERIFY(QFile::link(m_dir.filePath(QStringLiteral("a")), m_dir.filePath(QStringLiteral("link"))));
        QVERIFY(QDir::setCurrent(m_dir.path()));
    }

    void extraFolders_data()
    {
        QTest::addColumn<QStringList>("requested");
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("none") << QStringList{} << "" << QStringList{};
        QTest::newRow("command line first, in its order, then the variable")
            << QStringList{"@/b", "@/a"} << "@/x:@/y" << QStringList{"@/b", "@/a", "@/x", "@/y"};
        QTest::newRow("empty entries of the variable") << QStringList{} << ":@/a::@/b:" << QStringList{"@/a", "@/b"};
        QTest::newRow("blank entry") << QStringList{"  "} << "" << QStringList{};
        QTest::newRow("repeats, however spelt") << QStringList{"@/a", "@/a/", "@/b/../a"} << "@/a:@/link"
                                                << QStringList{"@/a"};
        QTest::newRow("the main folder is not loaded twice") << QStringList{"@/main/"} << "@/b:@/main"
                                                             << QStringList{"@/b"};
        QTest::newRow("relative to the working folder") << QStringList{"b", "./missing"} << "a"
                                                        << QStringList{"@/b", "@/missing", "@/a"};
        QTest::newRow("a missing folder is kept, to be logged") << QStringList{"@/missing"} << ""
                                                                << QStringList{"@/missing"};
    }

    void extraFolders()
    {
        QFETCH(QStringList, requested);
        QFETCH(QString, variable);
        QFETCH(QStringList, expected);
        QCOMPARE(HostPluginLoader::extraFolders(expand(requested), expand(variable), expand(QStringLiteral("@/main"))),
                 expand(expected));
    }
};

QTEST_GUILESS_MAIN(TestHostPluginDirs)
#include "tst_host_plugindirs.moc"
