// What the taskbar, Alt+Tab and the window list show for the client: its
// desktop entry and the product's icon, drawn for every size asked.

#include "clientIdentity.h"
#include "cqmainwindow.h"
#include "quorixGuiHost.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

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
};

QTEST_MAIN(TestHostIdentity)
#include "tst_host_identity.moc"
