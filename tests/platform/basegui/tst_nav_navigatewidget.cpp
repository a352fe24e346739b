#include "framelinkproxy.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"

#include <QAbstractButton>
#include <QPointer>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QtTest>

namespace {

class TestPage : public NavigateItemWidget
{
public:
    TestPage(QString const& barName, QString const& barObject = QString())
        : m_barName(barName)
        , m_barObject(barObject.isEmpty() ? barName + "Obj" : barObject)
    {
        setObjectName(m_barObject);
    }
    bool preShowEvent() override { ++preShow; return allowShow; }
    void postShowEvent() override { ++postShow; }
    bool preHideEvent() override { ++preHide; return allowHide; }
    void postHideEvent() override { ++postHide; }
    QString getBarName() override { return m_barName; }
    QString getBarObject() override { return m_barObject; }

    bool allowShow = true;
    bool allowHide = true;
    int preShow = 0, postShow = 0, preHide = 0, postHide = 0;

private:
    QString m_barName;
    QString m_barObject;
};

} // namespace

class TestNavigateWidget : public QObject
{
    Q_OBJECT
private slots:
    void geometry_data();
    void geometry();
    void addRejects();
    void namesFollowButtonOrder();
    void firstPageBecomesCurrent();
    void switching_data();
    void switching();
    void clickVetoedKeepsOldButtonChecked();
    void removeCurrentPicksNeighbourAndHandsPageBack();
    void deletedPageIsDroppedSafely();
    void pageDeletedDuringJudge();
    void lookupByNameObjectOrObjectName_data();
    void lookupByNameObjectOrObjectName();
    void gotoChildObject();
    void destructorHandsPagesBack();
    void bottomWidgetKeepsItsPosition();
};

void TestNavigateWidget::geometry_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("main window") << 534;
    QTest::newRow("settings centre") << 680;
}

void TestNavigateWidget::geometry()
{
    QFETCH(int, height);
    NavigateWidget nav(height);
    QCOMPARE(nav.size(), QSize(1000, height));
    QCOMPARE(nav.bottomArea()->size(), QSize(148, 42));
    QCOMPARE(nav.bottomArea()->mapTo(&nav, QPoint(0, 0)), QPoint(0, height - 42));
    auto* stack = nav.findChild<QStackedWidget*>("m_pStackedWidget");
    QVERIFY(stack);
    QCOMPARE(stack->geometry(), QRect(148, 0, 852, height));
}

void TestNavigateWidget::addRejects()
{
    NavigateWidget nav;
    TestPage a("a");
    QCOMPARE(nav.addItem(nullptr), -1);
    QCOMPARE(nav.addItem(&a), 0);
    QCOMPARE(nav.addItem(&a), -1);
    QCOMPARE(nav.count(), 1);
    TestPage stranger("s");
    QCOMPARE(nav.removeItem(&stranger), -1);
    QCOMPARE(nav.removeItem(nullptr), -1);
    QCOMPARE(nav.setCurrentItem(&stranger), false);
    QCOMPARE(nav.currentItem(), &a);
}

void TestNavigateWidget::namesFollowButtonOrder()
{
    NavigateWidget nav;
    TestPage a("安全总览"), b("病毒查杀"), c("设置");
    nav.addItem(&a);
    nav.addItem(&b);
    nav.addItem(&c);
    QCOMPARE(nav.names(), QStringList({"安全总览", "病毒查杀", "设置"}));
    QCOMPARE(nav.indexOf(&c), 2);
    QCOMPARE(nav.item(1), &b);
    QCOMPARE(nav.item(3), nullptr);
    nav.removeItem(&b);
    QCOMPARE(nav.names(), QStringList({"安全总览", "设置"}));
    QCOMPARE(nav.itemButton(&c)->text(), QString("设置"));
}

void TestNavigateWidget::firstPageBecomesCurrent()
{
    NavigateWidget nav;
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);
    TestPage a("a"), b("b");
    nav.addItem(&a);
    nav.addItem(&b);
    QCOMPARE(nav.currentItem(), &a);
    QCOMPARE(nav.currentIndex(), 0);
    QVERIFY(nav.itemButton(&a)->isChecked());
    QVERIFY(!nav.itemButton(&b)->isChecked());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("a"));
}

void TestNavigateWidget::switching_data()
{
    QTest::addColumn<bool>("judge");
    QTest::addColumn<bool>("newShows");
    QTest::addColumn<bool>("oldHides");
    QTest::addColumn<bool>("switched");
    QTest::newRow("all allow") << true << true << true << true;
    QTest::newRow("judge vetoes") << false << true << true << false;
    QTest::newRow("new page refuses to show") << true << false << true << false;
    QTest::newRow("old page refuses to hide") << true << true << false << false;
}

void TestNavigateWidget::switching()
{
    QFETCH(bool, judge);
    QFETCH(bool, newShows);
    QFETCH(bool, oldHides);
    QFETCH(bool, switched);

    NavigateWidget nav;
    TestPage a("a"), b("b");
    nav.addItem(&a);
    nav.addItem(&b);
    NavigateItemWidget* askedFrom = nullptr;
    NavigateItemWidget* askedTo = nullptr;
    nav.setChangeItemJudgeInfo([&](NavigateItemWidget* from, NavigateItemWidget* to) {
        askedFrom = from;
        askedTo = to;
        return judge;
    });
    b.allowShow = newShows;
    a.allowHide = oldHides;
    QSignalSpy names(&nav, &NavigateWidget::sig_currentBtnChanged);
    QSignalSpy indexes(&nav, &NavigateWidget::sig_currentChanged);

    QCOMPARE(nav.setCurrentItem(&b), switched);
    QCOMPARE(askedFrom, &a);
    QCOMPARE(askedTo, &b);
    QCOMPARE(nav.currentItem(), switched ? &b : &a);
    QCOMPARE(nav.itemButton(&b)->isChecked(), switched);
    QCOMPARE(nav.itemButton(&a)->isChecked(), !switched);
    QCOMPARE(names.count(), switched ? 1 : 0);
    QCOMPARE(indexes.count(), switched ? 1 : 0);
    if (switched) {
        QCOMPARE(names.at(0).at(0).toString(), QString("b"));
        QCOMPARE(indexes.at(0).at(0).toInt(), 1);
    }
    QCOMPARE(a.postHide, switched ? 1 : 0);
    QCOMPARE(b.postShow, switched ? 1 : 0);
    // a vetoing judge is asked before any page hook
    QCOMPARE(b.preShow, judge ? 1 : 0);

    // asking for the page already shown changes nothing
    names.clear();
    QVERIFY(nav.setCurrentItem(nav.currentItem()));
    QCOMPARE(names.count(), 0);
}

void TestNavigateWidget::clickVetoedKeepsOldButtonChecked()
{
    NavigateWidget nav;
    TestPage a("a"), b("b");
    nav.addItem(&a);
    nav.addItem(&b);
    bool allow = false;
    nav.setChangeItemJudgeInfo([&](NavigateItemWidget*, NavigateItemWidget*) { return allow; });

    nav.itemButton(&b)->click();
    QCOMPARE(nav.currentItem(), &a);
    QVERIFY(nav.itemButton(&a)->isChecked());
    QVERIFY(!nav.itemButton(&b)->isChecked());

    allow = true;
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);
    nav.itemButton(&b)->click();
    QCOMPARE(nav.currentItem(), &b);
    QCOMPARE(spy.count(), 1);
}

void TestNavigateWidget::removeCurrentPicksNeighbourAndHandsPageBack()
{
    NavigateWidget nav;
    auto* a = new TestPage("a");
    auto* b = new TestPage("b");
    auto* c = new TestPage("c");
    nav.addItem(a);
    nav.addItem(b);
    nav.addItem(c);
    nav.forceCurrentItem(b);
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);

    QCOMPARE(nav.removeItem(b), 0);
    QCOMPARE(nav.currentItem(), c);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(b->parentWidget(), nullptr);
    QVERIFY(b->isHidden());
    QCOMPARE(nav.removeItem(c), 0);
    QCOMPARE(nav.currentItem(), a);
    QCOMPARE(nav.removeItem(a), 0);
    QCOMPARE(nav.currentItem(), nullptr);
    QCOMPARE(nav.count(), 0);
    delete a;
    delete b;
    delete c;
}

void TestNavigateWidget::deletedPageIsDroppedSafely()
{
    NavigateWidget nav;
    auto* a = new TestPage("a");
    auto* b = new TestPage("b");
    auto* c = new TestPage("c");
    nav.addItem(a);
    nav.addItem(b);
    nav.addItem(c);
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);

    delete a;   // the current page
    QCOMPARE(nav.names(), QStringList({"b", "c"}));
    QCOMPARE(nav.currentItem(), b);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("b"));

    delete c;
    QCOMPARE(nav.count(), 1);
    QCOMPARE(nav.widget("c"), nullptr);
    QCOMPARE(nav.setCurrentWinByObjName("cObj"), false);
    QCOMPARE(nav.removeItem(b), 0);
    delete b;
}

void TestNavigateWidget::pageDeletedDuringJudge()
{
    NavigateWidget nav;
    TestPage a("a");
    auto* b = new TestPage("b");
    nav.addItem(&a);
    nav.addItem(b);
    nav.setChangeItemJudgeInfo([&](NavigateItemWidget*, NavigateItemWidget* to) {
        delete to;   // e.g. its plugin unloads while a question is open
        return true;
    });
    QCOMPARE(nav.setCurrentItem(b), false);
    QCOMPARE(nav.currentItem(), &a);
    QCOMPARE(nav.names(), QStringList({"a"}));
}

void TestNavigateWidget::lookupByNameObjectOrObjectName_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("expected");   // index of the page, -1 for none
    QTest::newRow("bar name") << QString("常规设置") << 0;
    QTest::newRow("bar object") << QString("CommonSetting") << 0;
    QTest::newRow("object name") << QString("PageObjectName") << 1;
    QTest::newRow("bar name wins over another page's object") << QString("Shadow") << 1;
    QTest::newRow("unknown") << QString("nothing") << -1;
    QTest::newRow("empty") << QString() << -1;
}

void TestNavigateWidget::lookupByNameObjectOrObjectName()
{
    QFETCH(QString, key);
    QFETCH(int, expected);
    NavigateWidget nav;
    TestPage general("常规设置", "CommonSetting");
    TestPage other("Shadow", "OtherKey");
    other.setObjectName("PageObjectName");
    TestPage shadow("third", "Shadow");
    nav.addItem(&general);
    nav.addItem(&other);
    nav.addItem(&shadow);
    QCOMPARE(nav.widget(key), expected < 0 ? nullptr : nav.item(expected));
}

void TestNavigateWidget::gotoChildObject()
{
    NavigateWidget nav;
    TestPage a("a"), b("b");
    nav.addItem(&a);
    nav.addItem(&b);
    QVERIFY(nav.gotoChildObject("bObj"));
    QCOMPARE(nav.currentItem(), &b);
    QVERIFY(!nav.gotoChildObject("missing"));
    QCOMPARE(nav.currentItem(), &b);

    QWidget frame;
    QVERIFY(nav.mount("NavigateWidget_Test", &frame));
    QVERIFY(FrameLinkProxy::singleInstance()->gotoPageByObjName("aObj"));
    QCOMPARE(nav.currentItem(), &a);
    nav.unmount();
}

void TestNavigateWidget::destructorHandsPagesBack()
{
    auto* nav = new NavigateWidget;
    QPointer<TestPage> a = new TestPage("a");
    nav->addItem(a);
    delete nav;
    QVERIFY(a);
    QCOMPARE(a->parentWidget(), nullptr);
    delete a;
}

void TestNavigateWidget::bottomWidgetKeepsItsPosition()
{
    NavigateWidget nav;
    auto* bar = new QWidget;
    bar->setGeometry(1, 0, 146, 42);
    auto* label = new QWidget(bar);
    label->move(19, 13);
    nav.addBottomWidget(bar);
    nav.addBottomWidget(nullptr);
    QCOMPARE(bar->parentWidget(), nav.bottomArea());
    QCOMPARE(bar->geometry(), QRect(1, 0, 146, 42));
    QCOMPARE(label->pos(), QPoint(19, 13));
}

QTEST_MAIN(TestNavigateWidget)
#include "tst_nav_navigatewidget.moc"
