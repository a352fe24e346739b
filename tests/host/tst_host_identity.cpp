// What the taskbar, Alt+Tab and the window list show for the client: its
// desktop entry and the product's icon, drawn for every size asked, and drawn
// from the pictures decoded on demand exactly as QIcon draws them decoded up
// front.

#include "clientIconEngine.h"
#include "clientIdentity.h"
#include "cqmainwindow.h"
#include "quorixGuiHost.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int const kSides[] = {16, 22, 24, 32, 48, 64, 128, 256};

QString builtInPicture(int side)
{
    return QStringLiteral(":/quorix-gui/icons/%1.png").arg(side);
}

// The icon as QIcon builds it when every file is added with its size.
QIcon eagerIcon(QMap<int, QString> const& files)
{
    QIcon icon;
    for (auto it = files.cbegin(); it != files.cend(); ++it)
        icon.addFile(it.value(), QSize(it.key(), it.key()));
    return icon;
}

QMap<int, QString> builtInFiles()
{
    QMap<int, QString> files;
    for (int const side : kSides)
        files.insert(side, builtInPicture(side));
    return files;
}

} // namespace

class TestHostIdentity : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        qputenv("QUORIX_CONFIG_DIR", QFile::encodeName(m_dir.filePath(QStringLiteral("config"))));
        ClientIdentity::apply();
        QCOMPARE(QGuiApplication::desktopFileName(), QStringLiteral("quorix-gui"));
        QCOMPARE(QGuiApplication::applicationDisplayName(), QStringLiteral("Quorix终端安全管理系统"));
    }

    // Every size a taskbar or Alt+Tab asks for, drawn for that size.
    void mainWindow()
    {
        QuorixGuiHost::Options options;
        options.root = m_dir.path();
        QuorixGuiHost host(options);
        host.start();
        QCOMPARE(host.mainWindow()->windowTitle(), QStringLiteral("Quorix终端安全管理系统"));
        for (int const size : {16, 32, 48, 256}) {
            QImage const image = host.mainWindow()->windowIcon().pixmap(size, size).toImage();
            QCOMPARE(image.size(), QSize(size, size));
            QVERIFY(image.pixelColor(size / 2, size / 2).alpha() > 0);
        }
        host.stop();
    }

    void drawnLikeQIcon_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("missingPicture");   // a file that does not load, "" = none
        for (QSize const size : {QSize(16, 16), QSize(20, 20), QSize(256, 256), QSize(300, 300), QSize(32, 16)})
            QTest::addRow("%dx%d", size.width(), size.height()) << size << int(QIcon::Normal) << int(QIcon::Off) << "";
        QTest::newRow("disabled") << QSize(48, 48) << int(QIcon::Disabled) << int(QIcon::Off) << "";
        QTest::newRow("selected, on") << QSize(30, 30) << int(QIcon::Selected) << int(QIcon::On) << "";
        QTest::newRow("active") << QSize(64, 64) << int(QIcon::Active) << int(QIcon::Off) << "";
        QTest::newRow("unreadable picture: the next size") << QSize(40, 40) << int(QIcon::Normal) << int(QIcon::Off)
                                                           << "/nonexistent/40.png";
    }

    void drawnLikeQIcon()
    {
        QFETCH(QSize, size);
        QFETCH(int, mode);
        QFETCH(int, state);
        QFETCH(QString, missingPicture);
        QMap<int, QString> files = builtInFiles();
        if (!missingPicture.isEmpty())
            files.insert(40, missingPicture);
        QIcon const expected = eagerIcon(files);
        QIcon const lazy(new ClientIconEngine(files));
        auto const m = QIcon::Mode(mode);
        auto const st = QIcon::State(state);
        QCOMPARE(lazy.actualSize(size, m, st), expected.actualSize(size, m, st));
        QImage const image = lazy.pixmap(size, m, st).toImage();
        QVERIFY(!image.isNull());
        QCOMPARE(image, expected.pixmap(size, m, st).toImage());
        QCOMPARE(lazy.availableSizes(m, st), expected.availableSizes(m, st));
    }

    void emptyEngineIsNull()
    {
        QVERIFY(QIcon(new ClientIconEngine({})).isNull());
        QVERIFY(QIcon(new ClientIconEngine({})).pixmap(32, 32).isNull());
        QVERIFY(!QIcon(new ClientIconEngine(builtInFiles())).isNull());
    }
};

QTEST_MAIN(TestHostIdentity)
#include "tst_host_identity.moc"
