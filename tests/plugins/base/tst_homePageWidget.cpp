#include "basegui_common.h"
#include "cardsWin.h"
#include "cqlabel.h"
#include "dravoguiconfig.h"
#include "homePageWidget.h"
#include "testLogCapture.h"

#include <QAction>
#include <QLayout>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

sPluginRegisterItem record(QObject* object, int index, QVariant const& extra = QVariant())
{
    sPluginRegisterItem item;
    item.object = object;
    item.index = index;
    item.extra = extra;
    return item;
}

QWidget* namedWidget(QString const& name, QWidget* parent = nullptr)
{
    auto* w = new QWidget(parent);
    w->setObjectName(name);
    w->setFixedSize(100, 20);
    return w;
}

void settle(QWidget* w)
{
    w->layout()->activate();
}

QString const kTitleStyle = QStringLiteral(
    "#m_pLabelTitle{font-family:Noto Sans CJK SC;font-size:44px;color:#333444;font-weight: 500;}");

} // namespace

class TestHomePageWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void page();
    void builtInRows();
    void registerItem_data();
    void registerItem();
    void nonWidgetRowIsLoggedOnEveryRelayout();
    void unRegisterItem();
    void rowDeletedByOwner();
    void dataArea_data();
    void dataArea();
    void dataAreaRefusesNonWidgets();
    void cards_data();
    void cards();
    void title_data();
    void title();

private:
    QTemporaryDir m_dir;
};

void TestHomePageWidget::initTestCase()
{
    // The plugin registers its resources when it is created; here there is no plugin.
    Q_INIT_RESOURCE(ui_base);
}

void TestHomePageWidget::init()
{
    DravoGuiConfig::setConfigPath(QString());
}

void TestHomePageWidget::cleanup()
{
    DravoGuiConfig::setConfigPath(QString());
}

void TestHomePageWidget::page()
{
    HomePageWidget home;
    QCOMPARE(home.objectName(), QStringLiteral("HomePageWidget"));
    QCOMPARE(home.size(), QSize(852, 534));
    QString const qss = basegui::Common::readQssFile(QStringLiteral(":/qss/homePageWidget.qss"));
    QVERIFY(!qss.isEmpty());
    QCOMPARE(home.styleSheet(), qss);
    QVERIFY(home.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(home.getBarName(), QString::fromUtf8("安全总览"));
    QCOMPARE(home.titleLabel()->text(), QString::fromUtf8("安全守护每一刻"));
    QCOMPARE(home.titleLabel()->styleSheet(), kTitleStyle);
    QCOMPARE(home.cardsWin()->objectName(), QStringLiteral("CardsWin"));
    QCOMPARE(home.cardsWin()->size(), QSize(772, 130));
    QCOMPARE(home.cardsWin()->styleSheet(), QStringLiteral("#CardsWin{background:transparent;}"));
}

// Title (key 10) 30 px from the top, data area (20) 12 px below it, card row
// (30) 40 px below that, all 40 px in from the left.
void TestHomePageWidget::builtInRows()
{
    HomePageWidget home;
    home.show();
    settle(&home);
    QCOMPARE(home.titleLabel()->geometry(), QRect(40, 30, 772, 52));
    QCOMPARE(home.dataArea()->geometry(), QRect(40, 30 + 52 + 12, 772, 60));
    QCOMPARE(home.cardsWin()->geometry(), QRect(40, 30 + 52 + 12 + 60 + 40, 772, 130));
    for (int key : {10, 20, 30})
        QVERIFY(home.hasItem(key));
}

void TestHomePageWidget::registerItem_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("extra");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("expectedY");   // -1: not laid out
    QTest::newRow("key 25, 8 px below the data area") << 25 << 8 << 0 << (94 + 60 + 8);
    QTest::newRow("key 5, above the title") << 5 << 0 << 0 << 0;
    QTest::newRow("key 99, below the cards") << 99 << 4 << 0 << (94 + 60 + 40 + 130 + 4);
    QTest::newRow("key 20 taken") << 20 << 8 << -1 << -1;
    QTest::newRow("key 10 taken") << 10 << 0 << -1 << -1;
}

void TestHomePageWidget::registerItem()
{
    QFETCH(int, key);
    QFETCH(int, extra);
    QFETCH(int, result);
    QFETCH(int, expectedY);
    HomePageWidget home;
    home.show();
    QWidget owner;
    QWidget* row = namedWidget(QStringLiteral("row"), &owner);
    QCOMPARE(home.registerItem(record(row, key, extra)), result);
    settle(&home);
    if (expectedY < 0) {
        QCOMPARE(row->parentWidget(), &owner);
        QCOMPARE(home.dataArea()->geometry().top(), 94);
        QCOMPARE(home.titleLabel()->geometry().top(), 30);
        return;
    }
    QCOMPARE(row->parentWidget(), &home);
    QVERIFY(row->isVisible());
    QCOMPARE(row->geometry().top(), expectedY);
    QCOMPARE(row->geometry().left(), 40 + (772 - 100) / 2);   // horizontally centred in the column
}

void TestHomePageWidget::nonWidgetRowIsLoggedOnEveryRelayout()
{
    TestLogCapture log;
    HomePageWidget home;
    QAction action(nullptr);
    QCOMPARE(home.registerItem(record(&action, 40)), 0);
    QCOMPARE(log.count(QStringLiteral("[HomePageWidget] w is null")), 1);
    QVERIFY(home.hasItem(40));
    QWidget owner;
    QCOMPARE(home.registerItem(record(namedWidget("row", &owner), 50)), 0);
    QCOMPARE(log.count(QStringLiteral("[HomePageWidget] w is null")), 2);
    QCOMPARE(home.registerItem(record(nullptr, 60)), 0);
    QCOMPARE(log.count(QStringLiteral("[HomePageWidget] w is null")), 4);
}

void TestHomePageWidget::unRegisterItem()
{
    HomePageWidget home;
    home.show();
    QWidget* row = namedWidget(QStringLiteral("row"));
    QPointer<QWidget> guard(row);
    QCOMPARE(home.unRegisterItem(25), -1);
    QCOMPARE(home.registerItem(record(row, 25, 8)), 0);
    QCOMPARE(home.unRegisterItem(25), 0);
    QCOMPARE(home.unRegisterItem(25), -1);
    settle(&home);
    // Out of the column, but neither hidden nor deleted by the page.
    QVERIFY(guard);
    QCOMPARE(home.layout()->indexOf(row), -1);
    QVERIFY(!row->isHidden());
    QCOMPARE(home.cardsWin()->geometry().top(), 94 + 60 + 40);
    QCOMPARE(home.registerItem(record(row, 25, 8)), 0);
}

void TestHomePageWidget::rowDeletedByOwner()
{
    HomePageWidget home;
    home.show();
    QWidget* row = namedWidget(QStringLiteral("row"));
    QCOMPARE(home.registerItem(record(row, 25, 8)), 0);
    delete row;
    QWidget owner;
    QCOMPARE(home.registerItem(record(namedWidget("other", &owner), 26)), 0);
    QVERIFY(!home.hasItem(25));
    QCOMPARE(home.registerItem(record(namedWidget("again", &owner), 25)), 0);
}

// Two named widgets exclude each other in the data area, the engine status
// taking precedence; any other names live side by side.
void TestHomePageWidget::dataArea_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<int>("secondResult");
    QTest::addColumn<bool>("firstSurvives");
    QTest::newRow("engine replaces guard days") << "CumulativeGuardDays" << "engineStatusWidget" << 0 << false;
    QTest::newRow("guard days refused after engine") << "engineStatusWidget" << "CumulativeGuardDays" << -1 << true;
    QTest::newRow("two others both kept") << "statusA" << "statusB" << 0 << true;
    QTest::newRow("guard days beside another") << "statusA" << "CumulativeGuardDays" << 0 << true;
    QTest::newRow("engine beside another") << "statusA" << "engineStatusWidget" << 0 << true;
}

void TestHomePageWidget::dataArea()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(int, secondResult);
    QFETCH(bool, firstSurvives);
    HomePageWidget home;
    home.show();
    QPointer<QWidget> a = namedWidget(first);
    QWidget owner;
    QPointer<QWidget> b = namedWidget(second, &owner);
    QCOMPARE(home.registerItem2DataArea(record(a, 0, QPoint(0, 14))), 0);
    QCOMPARE(a->parentWidget(), home.dataArea());
    QCOMPARE(a->pos(), QPoint(0, 14));
    QVERIFY(a->isVisible());

    QCOMPARE(home.registerItem2DataArea(record(b, 0, QPoint(200, 3))), secondResult);
    if (secondResult == 0) {
        QCOMPARE(b->parentWidget(), home.dataArea());
        QCOMPARE(b->pos(), QPoint(200, 3));
        QVERIFY(b->isVisible());
    } else {
        QCOMPARE(b->parentWidget(), &owner);   // refused and left untouched
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(!a.isNull(), firstSurvives);
    if (firstSurvives)
        QCOMPARE(a->parentWidget(), home.dataArea());
}

void TestHomePageWidget::dataAreaRefusesNonWidgets()
{
    HomePageWidget home;
    QAction action(nullptr);
    QCOMPARE(home.registerItem2DataArea(record(&action, 0, QPoint(1, 1))), -1);
    QCOMPARE(home.registerItem2DataArea(record(nullptr, 0)), -1);
}

// The card row shows at most four cards in ascending key order; the rest stay
// registered and move up when a shown one leaves.
void TestHomePageWidget::cards_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("removeKey");   // 0: remove nothing
    QTest::addColumn<QList<int>>("shown");
    QTest::newRow("five cards") << QList<int>{1, 2, 3, 4, 5} << 0 << QList<int>{1, 2, 3, 4};
    QTest::newRow("five, one removed") << QList<int>{1, 2, 3, 4, 5} << 2 << QList<int>{1, 3, 4, 5};
    QTest::newRow("lower key pushes the highest out") << QList<int>{10, 20, 30, 40, 5} << 0 << QList<int>{5, 10, 20, 30};
    QTest::newRow("version card after module cards") << QList<int>{1000, 1, 2} << 0 << QList<int>{1, 2, 1000};
    QTest::newRow("unknown key removed") << QList<int>{1, 2} << 7 << QList<int>{1, 2};
}

void TestHomePageWidget::cards()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, removeKey);
    QFETCH(QList<int>, shown);
    HomePageWidget home;
    home.show();
    QMap<int, QWidget*> cards;
    for (int key : keys) {
        QWidget* card = namedWidget(QStringLiteral("card%1").arg(key));
        cards.insert(key, card);
        QCOMPARE(home.registerItem2CardArea(record(card, key)), 0);
    }
    if (removeKey != 0)
        QCOMPARE(home.unRegisterItem2CardArea(removeKey), 0);
    settle(home.cardsWin());

    QList<int> laidOut;
    QLayout* row = home.cardsWin()->layout();
    for (int i = 0; i < row->count(); ++i) {
        QWidget* w = row->itemAt(i)->widget();
        if (w)
            laidOut << cards.key(w);
    }
    QCOMPARE(laidOut, shown);
    for (auto it = cards.cbegin(); it != cards.cend(); ++it)
        QCOMPARE(it.value()->isVisible(), shown.contains(it.key()));
    for (int i = 1; i < shown.size(); ++i)
        QVERIFY(cards[shown[i - 1]]->x() < cards[shown[i]]->x());
    qDeleteAll(cards);
}

// A custom theme may replace the title by its home-page text; blanks do not.
void TestHomePageWidget::title_data()
{
    QTest::addColumn<QString>("ini");   // "-": a missing file
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("logged");
    QString const product = QString::fromUtf8("Quorix终端安全管理系统");
    QTest::newRow("default theme") << "[branding]\ntheme=default\nhomePageContent=Hello\n" << product << product << "";
    QTest::newRow("custom theme with text") << "[branding]\ntheme=acme\nhomePageContent=  Hello Acme  \n" << product
                                            << "Hello Acme" << "";
    QTest::newRow("custom theme, blank text") << "[branding]\ntheme=acme\nhomePageContent=   \n"
                                              << QString::fromUtf8("安全守护每一刻") << QString::fromUtf8("安全守护每一刻") << "";
    QTest::newRow("unreadable configuration") << "-" << product << product << "[BasePlugin] get theme failed, ret is [%1]";
}

void TestHomePageWidget::title()
{
    QFETCH(QString, ini);
    QFETCH(QString, given);
    QFETCH(QString, shown);
    QFETCH(QString, logged);
    HomePageWidget home;
    if (ini == QLatin1String("-")) {
        DravoGuiConfig::setConfigPath(m_dir.filePath(QStringLiteral("missing.ini")));
    } else {
        QString const path = m_dir.filePath(QStringLiteral("branding.ini"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(ini.toUtf8());
        file.close();
        DravoGuiConfig::setConfigPath(path);
    }
    TestLogCapture log;
    home.updateTitle(given);
    QCOMPARE(home.titleLabel()->text(), shown);
    QCOMPARE(home.titleLabel()->styleSheet(), kTitleStyle);
    if (!logged.isEmpty())
        QCOMPARE(log.count(logged.arg(DravoGuiConfig::status())), 1);
}

QTEST_MAIN(TestHomePageWidget)
#include "tst_homePageWidget.moc"
