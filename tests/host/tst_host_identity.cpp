// What the taskbar, Alt+Tab and the window list show for the client: its
// desktop entry, the product's icon on every window and a title of their own.

#include "clientIdentity.h"
#include "cWinAbout.h"
#include "cqmainwindow.h"
#include "mainExitAskWin.h"
#include "promotwin.h"
#include "quorixGuiHost.h"
#include "settingCentreWidget.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using WindowFactory = std::function<QWidget*()>;
Q_DECLARE_METATYPE(WindowFactory)

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

    void windows_data()
    {
        QTest::addColumn<WindowFactory>("make");
        QTest::addColumn<QString>("title");
        QTest::newRow("about") << WindowFactory([] { return new CWinAbout(nullptr); }) << "关于";
        QTest::newRow("settings centre") << WindowFactory([] { return new SettingCentreWidget; }) << "设置中心";
        QTest::newRow("prompt") << WindowFactory([] { return new PromotWin; }) << "提示";
        QTest::newRow("quit question") << WindowFactory([] { return new MainExitAskWin; }) << "关闭";
    }

    void windows()
    {
        QFETCH(WindowFactory, make);
        QFETCH(QString, title);
        std::unique_ptr<QWidget> window(make());
        QCOMPARE(window->windowTitle(), title);
        QVERIFY(!window->windowIcon().isNull());
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
