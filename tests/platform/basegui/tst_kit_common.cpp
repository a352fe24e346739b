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
    void clearLayoutNull();
    void clearGridLayout();
    void readQssFile_data();
    void readQssFile();
    void setWidgetMidPos_data();
    void setWidgetMidPos();
    void setWidgetMidPosOnScreen();
};

void TstKitCommon::clearLayout_data()
{
    // Items: w (widget), s (stretch), p (spacing), n (nested layout of two widgets).
    QTest::addColumn<QString>("items");
    QTest::addColumn<bool>("deleteWidgets");
    QTest::newRow("widgets kept") << "wwww" << false;
    QTest::newRow("stretches and spacing removed") << "swpsw" << false;
    QTest::newRow("nested layout, widgets kept") << "wnw" << false;
    QTest::newRow("widgets deleted on request") << "wsnw" << true;
    QTest::newRow("empty layout") << "" << false;
}

void TstKitCommon::clearLayout()
{
    QFETCH(QString, items);
    QFETCH(bool, deleteWidgets);
    QWidget host;
    auto* layout = new QVBoxLayout(&host);
    QList<QPointer<QWidget>> widgets;
    auto addWidget = [&](QBoxLayout* into) {
        auto* w = new QWidget;
        into->addWidget(w);
        widgets << w;
    };
    for (QChar const c : items) {
        if (c == QLatin1Char('w'))
            addWidget(layout);
        else if (c == QLatin1Char('s'))
            layout->addStretch(1);
        else if (c == QLatin1Char('p'))
            layout->addSpacing(12);
        else if (c == QLatin1Char('n')) {
            auto* nested = new QHBoxLayout;
            layout->addLayout(nested);
            addWidget(nested);
            addWidget(nested);
        }
    }
    host.show();

    basegui::Common::clearLayout(layout, deleteWidgets);
    QCOMPARE(layout->count(), 0);
    if (!deleteWidgets) {
        for (QPointer<QWidget> const& w : widgets) {
            QVERIFY(!w.isNull());
            QCOMPARE(w->parentWidget(), &host);   // still the host's, just not laid out
        }
        // The layout can be filled again with the same widgets.
        for (QPointer<QWidget> const& w : widgets)
            layout->addWidget(w);
        QCOMPARE(layout->count(), widgets.size());
    } else {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QPointer<QWidget> const& w : widgets)
            QVERIFY(w.isNull());
    }
}

void TstKitCommon::clearLayoutNull()
{
    basegui::Common::clearLayout(nullptr, true);
    basegui::Common::clearGridLayout(nullptr);
}

void TstKitCommon::clearGridLayout()
{
    QWidget host;
    auto* grid = new QGridLayout(&host);
    QList<QPointer<QWidget>> widgets;
    for (int i = 0; i < 6; ++i) {
        auto* w = new QWidget;
        grid->addWidget(w, i / 3, i % 3);
        widgets << w;
    }
    grid->setRowStretch(1, 5);
    grid->setColumnMinimumWidth(2, 40);
    basegui::Common::clearGridLayout(grid);
    QCOMPARE(grid->count(), 0);
    QCOMPARE(grid->rowStretch(1), 0);
    QCOMPARE(grid->columnMinimumWidth(2), 0);
    for (QPointer<QWidget> const& w : widgets)
        QVERIFY(!w.isNull());
    grid->addWidget(widgets.first(), 0, 0);
    QCOMPARE(grid->count(), 1);
}

void TstKitCommon::readQssFile_data()
{
    QTest::addColumn<QString>("name");   // file created in a temporary folder, "" for none
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("path");   // "<tmp>/" is replaced
    QTest::addColumn<QString>("expected");
    QByteArray const qss = "/* 首页 */\n#m_pLabelTitle{color:#333444;}\n";
    QTest::newRow("file with Chinese comment") << "a.qss" << qss << "<tmp>/a.qss" << QString::fromUtf8(qss);
    QTest::newRow("missing file") << "" << QByteArray() << "<tmp>/none.qss" << QString();
    QTest::newRow("missing resource") << "" << QByteArray() << ":/qss/none.qss" << QString();
    QTest::newRow("empty path") << "" << QByteArray() << "" << QString();
    QTest::newRow("folder") << "" << QByteArray() << "<tmp>" << QString();
    QTest::newRow("too large") << "big.qss" << QByteArray(1024 * 1024 + 1, ' ') << "<tmp>/big.qss" << QString();
}

void TstKitCommon::readQssFile()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, path);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    if (!name.isEmpty()) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    path.replace(QStringLiteral("<tmp>"), dir.path());
    QCOMPARE(basegui::Common::readQssFile(path), expected);
}

void TstKitCommon::setWidgetMidPos_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<QPoint>("expected");   // in the parent, which sits at (0, 0) of its window
    QTest::newRow("centred") << QSize(100, 50) << QPoint(0, 0) << QPoint(150, 125);
    QTest::newRow("offset") << QSize(100, 50) << QPoint(50, 50) << QPoint(200, 175);
    QTest::newRow("larger than parent") << QSize(600, 400) << QPoint(0, 0) << QPoint(-100, -50);
}

void TstKitCommon::setWidgetMidPos()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, offset);
    QFETCH(QPoint, expected);
    QWidget parent;
    parent.resize(400, 300);
    auto* child = new QWidget(&parent);
    child->resize(size);
    basegui::Common::setWidgetMidPos(child, &parent, offset);
    QCOMPARE(child->pos(), expected);
    basegui::Common::setWidgetMidPos(nullptr, &parent, offset);
}

void TstKitCommon::setWidgetMidPosOnScreen()
{
    QWidget window;
    window.resize(200, 100);
    basegui::Common::setWidgetMidPos(&window, nullptr, QPoint(0, 0));
    QRect const screen = QGuiApplication::primaryScreen()->availableGeometry();
    QCOMPARE(window.frameGeometry().center(), screen.center());
}

QTEST_MAIN(TstKitCommon)
#include "tst_kit_common.moc"
