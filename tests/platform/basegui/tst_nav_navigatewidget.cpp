#include "framelinkproxy.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"

#include <QAbstractButton>
#include <QPointer>
#include <QSignalSpy>
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
    bool preHideEvent() override { return allowHide; }
    void postHideEvent() override { ++postHide; }
    QString getBarName() override { return m_barName; }
    QString getBarObject() override { return m_barObject; }

    bool allowShow = true;
    bool allowHide = true;
    int preShow = 0, postShow = 0, postHide = 0;

private:
    QString m_barName;
    QString m_barObject;
};

void addAll(NavigateWidget& nav, std::initializer_list<NavigateItemWidget*> pages)
{
    for (NavigateItemWidget* page : pages)
        QCOMPARE(nav.addItem(page), 0);
}

} // namespace

class TestNavigateWidget : public QObject
{
    Q_OBJECT
private slots:
    void registration();
    void switching_data();
    void switching();
    void removeCurrentPicksNeighbourAndHandsPageBack();
    void deletedPageIsDroppedSafely();
    void pageDeletedDuringJudge();
    void lookup();
    void gotoChildObject();
};

void TestNavigateWidget::registration()
{
    NavigateWidget nav;
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);
    TestPage a("安全总览"), b("病毒查杀"), c("设置");
    QCOMPARE(nav.addItem(nullptr), -1);
    addAll(nav, {&a, &b, &c});
    QCOMPARE(nav.addItem(&a), -1);
    QCOMPARE(nav.names(), QStringList({"安全总览", "病毒查杀", "设置"}));
    QCOMPARE(nav.item(3), nullptr);

    // The first page becomes current, once.
    QCOMPARE(nav.currentItem(), &a);
    QVERIFY(nav.itemButton(&a)->isChecked());
    QVERIFY(!nav.itemButton(&b)->isChecked());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("安全总览"));

    TestPage stranger("s");
    QCOMPARE(nav.removeItem(&stranger), -1);
    QCOMPARE(nav.removeItem(nullptr), -1);
    QCOMPARE(nav.setCurrentItem(&stranger), false);
    QCOMPARE(nav.removeItem(&b), 0);
    QCOMPARE(nav.names(), QStringList({"安全总览", "设置"}));
    QCOMPARE(nav.indexOf(&c), 1);
}

void TestNavigateWidget::switching_data()
{
    QTest::addColumn<bool>("judge");
    QTest::addColumn<bool>("newShows");
    QTest::addColumn<bool>("oldHides");
    QTest::addColumn<bool>("switched");
    QTest::addColumn<bool>("byClick");
    QTest::newRow("all allow") << true << true << true << true << false;
    QTest::newRow("judge vetoes") << false << true << true << false << false;
    QTest::newRow("new page refuses to show") << true << false << true << false << false;
    QTest::newRow("old page refuses to hide") << true << true << false << false << false;
    // A refused click leaves the old button checked.
    QTest::newRow("click, judge vetoes") << false << true << true << false << true;
    QTest::newRow("click, all allow") << true << true << true << true << true;
}

void TestNavigateWidget::switching()
{
    QFETCH(bool, judge);
    QFETCH(bool, newShows);
    QFETCH(bool, oldHides);
    QFETCH(bool, switched);
    QFETCH(bool, byClick);

    NavigateWidget nav;
    TestPage a("a"), b("b");
    addAll(nav, {&a, &b});
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

    if (byClick)
        nav.itemButton(&b)->click();
    else
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

void TestNavigateWidget::removeCurrentPicksNeighbourAndHandsPageBack()
{
    NavigateWidget nav;
    TestPage a("a"), b("b"), c("c");
    addAll(nav, {&a, &b, &c});
    nav.forceCurrentItem(&b);
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);

    QCOMPARE(nav.removeItem(&b), 0);
    QCOMPARE(nav.currentItem(), &c);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(b.parentWidget(), nullptr);
    QVERIFY(b.isHidden());
    QCOMPARE(nav.removeItem(&c), 0);
    QCOMPARE(nav.currentItem(), &a);
    QCOMPARE(nav.removeItem(&a), 0);
    QCOMPARE(nav.currentItem(), nullptr);

    // A destroyed bar hands its pages back too.
    auto* other = new NavigateWidget;
    other->addItem(&a);
    delete other;
    QCOMPARE(a.parentWidget(), nullptr);
}

void TestNavigateWidget::deletedPageIsDroppedSafely()
{
    NavigateWidget nav;
    auto* a = new TestPage("a");
    TestPage b("b");
    auto* c = new TestPage("c");
    addAll(nav, {a, &b, c});
    QSignalSpy spy(&nav, &NavigateWidget::sig_currentBtnChanged);

    delete a;   // the current page
    QCOMPARE(nav.names(), QStringList({"b", "c"}));
    QCOMPARE(nav.currentItem(), &b);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("b"));

    delete c;
    QCOMPARE(nav.count(), 1);
    QCOMPARE(nav.widget("c"), nullptr);
    QCOMPARE(nav.setCurrentWinByObjName("cObj"), false);
    QCOMPARE(nav.removeItem(&b), 0);
}

void TestNavigateWidget::pageDeletedDuringJudge()
{
    NavigateWidget nav;
    TestPage a("a");
    auto* b = new TestPage("b");
    addAll(nav, {&a, b});
    nav.setChangeItemJudgeInfo([&](NavigateItemWidget*, NavigateItemWidget* to) {
        delete to;   // e.g. its plugin unloads while a question is open
        return true;
    });
    QCOMPARE(nav.setCurrentItem(b), false);
    QCOMPARE(nav.currentItem(), &a);
    QCOMPARE(nav.names(), QStringList({"a"}));
}

void TestNavigateWidget::lookup()
{
    NavigateWidget nav;
    TestPage general("常规设置", "CommonSetting");
    TestPage other("Shadow", "OtherKey");
    other.setObjectName("PageObjectName");
    TestPage shadow("third", "Shadow");
    addAll(nav, {&general, &other, &shadow});
    QCOMPARE(nav.widget("常规设置"), &general);       // bar name
    QCOMPARE(nav.widget("CommonSetting"), &general);  // bar object
    QCOMPARE(nav.widget("PageObjectName"), &other);   // object name
    QCOMPARE(nav.widget("Shadow"), &other);           // a bar name wins over another page's bar object
    QCOMPARE(nav.widget("nothing"), nullptr);
    QCOMPARE(nav.widget(QString()), nullptr);
}

void TestNavigateWidget::gotoChildObject()
{
    NavigateWidget nav;
    TestPage a("a"), b("b");
    addAll(nav, {&a, &b});
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

QTEST_MAIN(TestNavigateWidget)
#include "tst_nav_navigatewidget.moc"
