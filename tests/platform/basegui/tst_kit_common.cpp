#include "basegui_common.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

// The kit's layout, style-sheet and placement helpers.
class TstKitCommon : public QObject
{
    Q_OBJECT

private slots:
    void clearLayout_data();
    void clearLayout();
    void clearGridLayout();
    void readQssFile();
    void setWidgetMidPos();
};

void TstKitCommon::clearLayout_data()
{
    QTest::addColumn<bool>("deleteWidgets");
    QTest::newRow("widgets kept") << false;
    QTest::newRow("widgets deleted on request") << true;
}

void TstKitCommon::clearLayout()
{
    QFETCH(bool, deleteWidgets);
    QWidget host;
    auto* layout = new QVBoxLayout(&host);
    auto* nested = new QHBoxLayout;
    QList<QPointer<QWidget>> widgets{new QWidget, new QWidget, new QWidget};
    layout->addWidget(widgets[0]);
    layout->addStretch(1);
    layout->addSpacing(12);
    layout->addLayout(nested);
    nested->addWidget(widgets[1]);
    nested->addWidget(widgets[2]);
    host.show();

    basegui::Common::clearLayout(layout, deleteWidgets);
    basegui::Common::clearLayout(nullptr, true);
    QCOMPARE(layout->count(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QPointer<QWidget> const& w : widgets) {
        QCOMPARE(w.isNull(), deleteWidgets);
        if (w) {
            QCOMPARE(w->parentWidget(), &host);   // still the host's, just not laid out
            layout->addWidget(w);
        }
    }
}

void TstKitCommon::clearGridLayout()
{
    QWidget host;
    auto* grid = new QGridLayout(&host);
    QList<QPointer<QWidget>> widgets;
    for (int i = 0; i < 6; ++i) {
        widgets << new QWidget;
        grid->addWidget(widgets.last(), i / 3, i % 3);
    }
    grid->setRowStretch(1, 5);
    basegui::Common::clearGridLayout(grid);
    basegui::Common::clearGridLayout(nullptr);
    QCOMPARE(grid->count(), 0);
    QCOMPARE(grid->rowStretch(1), 0);
    for (QPointer<QWidget> const& w : widgets)
        QVERIFY(!w.isNull());
}

void TstKitCommon::readQssFile()
{
    QTemporaryDir dir;
    QByteArray const qss = "/* 首页 */\n#m_pLabelTitle{color:#333444;}\n";
    auto write = [&dir](QString const& name, QByteArray const& content) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    };
    write(QStringLiteral("a.qss"), qss);
    write(QStringLiteral("big.qss"), QByteArray(1024 * 1024 + 1, ' '));
    QCOMPARE(basegui::Common::readQssFile(dir.filePath(QStringLiteral("a.qss"))), QString::fromUtf8(qss));
    QVERIFY(basegui::Common::readQssFile(dir.filePath(QStringLiteral("big.qss"))).isEmpty());
    QVERIFY(basegui::Common::readQssFile(dir.filePath(QStringLiteral("none.qss"))).isEmpty());
    QVERIFY(basegui::Common::readQssFile(dir.path()).isEmpty());
}

void TstKitCommon::setWidgetMidPos()
{
    QWidget parent;
    parent.resize(400, 300);
    auto* child = new QWidget(&parent);
    child->resize(100, 50);
    basegui::Common::setWidgetMidPos(child, &parent, QPoint(50, 50));
    QCOMPARE(child->pos(), QPoint(200, 175));
    basegui::Common::setWidgetMidPos(nullptr, &parent, QPoint(0, 0));

    // Without a parent: the middle of the screen.
    QWidget window;
    window.resize(200, 100);
    basegui::Common::setWidgetMidPos(&window, nullptr, QPoint(0, 0));
    QCOMPARE(window.frameGeometry().center(), QGuiApplication::primaryScreen()->availableGeometry().center());
}

QTEST_MAIN(TstKitCommon)
#include "tst_kit_common.moc"
