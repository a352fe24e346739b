#include "settingitemwidget.h"
#include "settingsubitemwidget.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

// A row that appends its name to the record (a QStringList), so the record
// shows which rows it went through and in which order.
class NameRow : public SettingSubItemWidget
{
public:
    explicit NameRow(QString const& name) : m_name(name) {}
    bool slot_savePageInfo(QVariant& data) override
    {
        if (!acceptSave)
            return false;
        data = data.toStringList() << m_name;
        return true;
    }
    bool slot_isSavedPageInfo() override { return saved; }
    bool slot_updatePageInfo() override { ++reloads; return true; }

    bool acceptSave = true;
    bool saved = true;
    int reloads = 0;

private:
    QString m_name;
};

QVariant g_stored;
int g_storeCalls = 0;
bool g_storeResult = true;

bool storeRecord(QVariant data)
{
    ++g_storeCalls;
    g_stored = data;
    return g_storeResult;
}

} // namespace

class TestSettingItem : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void savePassesDataThroughEachRow();
    void saveFailures_data();
    void saveFailures();
    void savedOnlyWhenEveryRowIs();
    void rowsRegistration();
};

void TestSettingItem::init()
{
    g_stored = QVariant();
    g_storeCalls = 0;
    g_storeResult = true;
    SettingItemWidget::m_pfSetSettingData = &storeRecord;
}

void TestSettingItem::cleanup()
{
    SettingItemWidget::m_pfSetSettingData = nullptr;
}

void TestSettingItem::savePassesDataThroughEachRow()
{
    SettingItemWidget page;
    page.setPageData(QStringList{"page"});
    NameRow a("a"), b("b");
    page.registerItem(&a);
    page.registerItem(&b);
    QVERIFY(page.slot_savePageInfo());
    QCOMPARE(g_storeCalls, 1);
    QCOMPARE(g_stored.toStringList(), QStringList({"page", "a", "b"}));
    // the stored record becomes the page's data
    QCOMPARE(page.pageData().toStringList(), QStringList({"page", "a", "b"}));
    QVERIFY(page.slot_updatePageInfo());
    QCOMPARE(a.reloads + b.reloads, 2);
}

void TestSettingItem::saveFailures_data()
{
    QTest::addColumn<bool>("haveStore");
    QTest::addColumn<bool>("storeResult");
    QTest::addColumn<bool>("rowAccepts");
    QTest::addColumn<int>("storeCalls");
    QTest::newRow("no store function") << false << true << true << 0;
    QTest::newRow("store fails") << true << false << true << 1;
    QTest::newRow("row refuses") << true << true << false << 0;
}

void TestSettingItem::saveFailures()
{
    QFETCH(bool, haveStore);
    QFETCH(bool, storeResult);
    QFETCH(bool, rowAccepts);
    QFETCH(int, storeCalls);
    if (!haveStore)
        SettingItemWidget::m_pfSetSettingData = nullptr;
    g_storeResult = storeResult;

    SettingItemWidget page;
    page.setPageData(QStringList{"page"});
    NameRow a("a");
    a.acceptSave = rowAccepts;
    page.registerItem(&a);
    QVERIFY(!page.slot_savePageInfo());
    QCOMPARE(g_storeCalls, storeCalls);
    QCOMPARE(page.pageData().toStringList(), QStringList({"page"}));
}

void TestSettingItem::savedOnlyWhenEveryRowIs()
{
    SettingItemWidget page;
    QVERIFY(page.slot_isSavedPageInfo());   // no rows
    NameRow a("a");
    auto* b = new NameRow("b");
    page.registerItem(&a);
    page.registerItem(b);
    QVERIFY(page.slot_isSavedPageInfo());
    b->saved = false;
    QVERIFY(!page.slot_isSavedPageInfo());
    delete b;   // a deleted row no longer counts
    QVERIFY(page.slot_isSavedPageInfo());
    QCOMPARE(page.items().size(), 1);
    QVERIFY(page.slot_savePageInfo());
}

void TestSettingItem::rowsRegistration()
{
    SettingItemWidget page;
    QPointer<NameRow> a = new NameRow("a");
    QCOMPARE(page.registerItem(nullptr), -1);
    QCOMPARE(page.registerItem(a), 0);
    QCOMPARE(page.registerItem(a), -1);
    QVERIFY(page.isAncestorOf(a));
    QCOMPARE(page.unRegisterItem(a), 0);
    QCOMPARE(page.unRegisterItem(a), -1);
    QCOMPARE(a->parentWidget(), nullptr);
    QVERIFY(a->isHidden());

    // rows outlive the page that showed them
    auto* other = new SettingItemWidget;
    other->registerItem(a);
    delete other;
    QVERIFY(a);
    QCOMPARE(a->parentWidget(), nullptr);
    delete a;
}

QTEST_MAIN(TestSettingItem)
#include "tst_nav_settingitem.moc"
