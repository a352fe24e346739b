// The asset strip: grid placement by cell, refused payloads, the state badge,
// refreshes, the right slot, and the two-page stack other plugins host.

#include "assetArea.h"
#include "assetAreaLoading.h"
#include "assetAreaWidget.h"
#include "computerLogo.h"
#include "cqloadingwin.h"
#include "cqnoticeicon.h"
#include "testLogCapture.h"

#include <QAction>
#include <QFrame>
#include <QGridLayout>
#include <QObjectCleanupHandler>
#include <QPointer>
#include <QtTest>

namespace {

QPoint const kNotInGrid(-1, -1);

sPluginRegisterItem item(QObject* object, int index, QVariant const& extra)
{
    sPluginRegisterItem it;
    it.object = object;
    it.index = index;
    it.extra = extra;
    return it;
}

// A widget of another plugin. The strip hands such widgets back parentless
// when it goes, so the test owns them through `owned`, declared before it.
QWidget* foreign(QObjectCleanupHandler& owned)
{
    auto* w = new QWidget;
    owned.add(w);
    return w;
}

// (row, column) of `w` in the strip's grid.
QPoint cellOf(AssetArea& area, QWidget* w)
{
    int const at = area.gridLayout()->indexOf(w);
    if (at < 0)
        return kNotInGrid;
    int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
    area.gridLayout()->getItemPosition(at, &row, &column, &rowSpan, &columnSpan);
    return QPoint(row, column);
}

// Rearranges its neighbours from its first show event, as a widget that
// builds them lazily would: takes out index 5 and registers `next` at 9.
class RegisteringWidget : public QWidget
{
public:
    RegisteringWidget(AssetArea* area, QWidget* next)
        : m_area(area), m_next(next) {}

protected:
    void showEvent(QShowEvent*) override
    {
        if (!m_next)
            return;
        m_area->slot_unRegisterItem(5);
        m_area->slot_registerItem(item(m_next, 9, QPoint(0, 3)));
        m_next = nullptr;
    }

private:
    AssetArea* m_area;
    QWidget* m_next;
};

} // namespace

class TestAssetArea : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(ui_base); }

    void placement_data()
    {
        QTest::addColumn<QList<int>>("indexes");
        QTest::addColumn<QList<QPoint>>("extras");
        QTest::addColumn<QList<QPoint>>("cells");   // kNotInGrid: dropped
        QTest::newRow("x is the row, y the column") << QList<int>{1} << QList<QPoint>{{1, 2}} << QList<QPoint>{{1, 2}};
        QTest::newRow("several, registered out of order")
            << QList<int>{3, 1, 2} << QList<QPoint>{{0, 0}, {0, 1}, {1, 0}} << QList<QPoint>{{0, 0}, {0, 1}, {1, 0}};
        QTest::newRow("index in use: first wins")
            << QList<int>{5, 5} << QList<QPoint>{{0, 0}, {0, 1}} << QList<QPoint>{{0, 0}, kNotInGrid};
    }
    void placement()
    {
        QFETCH(QList<int>, indexes);
        QFETCH(QList<QPoint>, extras);
        QFETCH(QList<QPoint>, cells);
        QObjectCleanupHandler owned;
        AssetArea area;
        area.show();
        QList<QWidget*> widgets;
        for (int i = 0; i < indexes.size(); ++i) {
            widgets << foreign(owned);
            area.slot_registerItem(item(widgets[i], indexes[i], extras[i]));
        }
        auto* body = area.findChild<QFrame*>(QStringLiteral("pWinBody"));
        for (int i = 0; i < widgets.size(); ++i) {
            QCOMPARE(cellOf(area, widgets[i]), cells[i]);
            bool const placed = cells[i] != kNotInGrid;
            QCOMPARE(widgets[i]->parentWidget(), placed ? body : nullptr);
            QCOMPARE(widgets[i]->isHidden(), !placed);
        }
    }

    // Out of the grid, neither hidden nor deleted; the index is free again.
    void unregister()
    {
        QObjectCleanupHandler owned;
        AssetAreaWidget stack;
        stack.show();
        AssetArea& area = *stack.assetArea();
        QPointer<QWidget> a = foreign(owned);
        QWidget* b = foreign(owned);
        stack.slot_registerItem(item(a, 1, QPoint(0, 0)));
        stack.slot_registerItem(item(b, 2, QPoint(0, 1)));
        stack.slot_unRegisterItem(1);
        stack.slot_unRegisterItem(42);
        QVERIFY(a && !a->isHidden());
        QCOMPARE(cellOf(area, a), kNotInGrid);
        QCOMPARE(cellOf(area, b), QPoint(0, 1));
        stack.slot_registerItem(item(foreign(owned), 1, QPoint(1, 1)));
        QVERIFY(area.hasItem(1));
    }

    void refused_data()
    {
        QTest::addColumn<QString>("payload");
        QTest::addColumn<QString>("message");
        QTest::newRow("null") << "null" << "[AssetArea] item object is null, index is [7]";
        QTest::newRow("not a widget") << "action" << "[AssetArea] item object is not a live widget, index is [7]";
        QTest::newRow("deleted before") << "deleted" << "[AssetArea] item object is not a live widget, index is [7]";
        QTest::newRow("extra a QPointF") << "pointf" << "[AssetArea] item extra is not a point, index is [7]";
        QTest::newRow("extra missing") << "invalid" << "[AssetArea] item extra is not a point, index is [7]";
        QTest::newRow("negative cell") << "negative" << "[AssetArea] item cell (-1, 0) out of range, index is [7]";
        QTest::newRow("huge cell") << "huge" << "[AssetArea] item cell (0, 100000) out of range, index is [7]";
        QString const own = QStringLiteral("[AssetArea] refuses [%1]: it is the container itself or one of its ancestors");
        QTest::newRow("the area itself") << "area" << own.arg("AssetArea");
        QTest::newRow("its ancestor") << "ancestor" << own.arg("host");
        QTest::newRow("its body frame") << "body" << own.arg("pWinBody");
    }
    void refused()
    {
        QFETCH(QString, payload);
        QFETCH(QString, message);
        TestLogCapture log;
        QWidget host;
        host.setObjectName(QStringLiteral("host"));
        auto* area = new AssetArea(&host);
        host.show();
        QWidget widget;
        QAction action(nullptr);
        QObject* object = &widget;
        QVariant extra = QPoint(0, 0);
        if (payload == QLatin1String("null"))
            object = nullptr;
        else if (payload == QLatin1String("action"))
            object = &action;
        else if (payload == QLatin1String("deleted"))
            delete (object = new QWidget);
        else if (payload == QLatin1String("pointf"))
            extra = QPointF(0, 0);
        else if (payload == QLatin1String("invalid"))
            extra = QVariant();
        else if (payload == QLatin1String("negative"))
            extra = QPoint(-1, 0);
        else if (payload == QLatin1String("huge"))
            extra = QPoint(0, 100000);
        else if (payload == QLatin1String("area"))
            object = area;
        else if (payload == QLatin1String("ancestor"))
            object = &host;
        else if (payload == QLatin1String("body"))
            object = area->findChild<QFrame*>(QStringLiteral("pWinBody"));
        area->slot_registerItem(item(object, 7, extra));
        QVERIFY(!area->hasItem(7));
        QCOMPARE(area->gridLayout()->count(), 0);
        QCOMPARE(log.count(message), 1);
    }

    // A widget its owner deletes is skipped by the next rebuild and frees its index.
    void deletedAfterRegistration()
    {
        TestLogCapture log;
        QObjectCleanupHandler owned;
        AssetArea area;
        area.show();
        auto* gone = new QWidget;
        QWidget* kept = foreign(owned);
        area.slot_registerItem(item(gone, 1, QPoint(0, 0)));
        area.slot_registerItem(item(kept, 2, QPoint(0, 1)));
        delete gone;
        area.slot_refresh();
        QCOMPARE(area.gridLayout()->count(), 1);
        QCOMPARE(cellOf(area, kept), QPoint(0, 1));
        QCOMPARE(log.count("[AssetArea] widget of index [1] was deleted by its owner, entry dropped"), 1);
        QWidget* again = foreign(owned);
        area.slot_registerItem(item(again, 1, QPoint(1, 0)));
        QCOMPARE(cellOf(area, again), QPoint(1, 0));
    }

    void badge_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<int>("iconType");
        QTest::newRow("0 hides") << 2 << 0 << false << int(CQNoticeIcon::ICON_BADGE_DANGER);
        QTest::newRow("1 risk") << 0 << 1 << true << int(CQNoticeIcon::ICON_BADGE_RISK);
        QTest::newRow("2 danger") << 1 << 2 << true << int(CQNoticeIcon::ICON_BADGE_DANGER);
        QTest::newRow("3 leaves the badge") << 1 << 3 << true << int(CQNoticeIcon::ICON_BADGE_RISK);
        QTest::newRow("-1 leaves the badge") << 2 << -1 << true << int(CQNoticeIcon::ICON_BADGE_DANGER);
        QTest::newRow("3 leaves no badge") << 0 << 3 << false << int(CQNoticeIcon::ICON_NONE);
    }
    void badge()
    {
        QFETCH(int, before);
        QFETCH(int, state);
        QFETCH(bool, shown);
        QFETCH(int, iconType);
        AssetArea area;
        area.show();
        CQNoticeIcon* badge = area.computerLogo()->badgeIcon();
        QVERIFY(badge->isHidden());
        area.slot_updateState(static_cast<signed char>(before));
        area.slot_updateState(static_cast<signed char>(state));
        QCOMPARE(!badge->isHidden(), shown);
        QCOMPARE(badge->iconType(), iconType);
    }

    void showRefreshOnlyWhenShown()
    {
        AssetArea area;
        QSignalSpy ended(&area, &AssetArea::sig_refreshEnd);
        area.slot_showRefresh();
        QCOMPARE(ended.count(), 0);
        area.show();
        area.slot_showRefresh();
        QCOMPARE(ended.count(), 1);
    }

    // A refresh asked for from its own end signal is dropped; changes made
    // from a widget's show event during a rebuild are all in the grid after
    // it; a receiver may delete the strip.
    void refreshReentrancy()
    {
        QObjectCleanupHandler owned;
        auto* area = new AssetArea;
        area->show();
        QSignalSpy ended(area, &AssetArea::sig_refreshEnd);
        auto again = connect(area, &AssetArea::sig_refreshEnd, area, &AssetArea::slot_refresh);
        area->slot_refresh();
        QCOMPARE(ended.count(), 1);
        area->slot_refresh();
        QCOMPARE(ended.count(), 2);
        disconnect(again);

        QWidget* victim = foreign(owned);
        QWidget* next = foreign(owned);
        auto* first = new RegisteringWidget(area, next);
        owned.add(first);
        area->slot_registerItem(item(victim, 5, QPoint(1, 1)));
        area->slot_registerItem(item(first, 1, QPoint(0, 0)));
        QCOMPARE(cellOf(*area, first), QPoint(0, 0));
        QCOMPARE(cellOf(*area, next), QPoint(0, 3));
        QCOMPARE(cellOf(*area, victim), kNotInGrid);

        connect(area, &AssetArea::sig_refreshEnd, area, [area] { delete area; });
        QPointer<AssetArea> guard(area);
        area->slot_refresh();
        QVERIFY(guard.isNull());
    }

    // Every show goes to the loading page, refreshes, then shows the strip;
    // the spinner turns only while its page is on screen.
    void pageSwitching()
    {
        AssetAreaWidget stack;
        QVERIFY(!stack.loadingPage()->isWindow());
        QSignalSpy pages(&stack, &QStackedWidget::currentChanged);
        QSignalSpy refreshes(&stack, &AssetAreaWidget::sig_refreshDataUI);
        stack.show();
        QCOMPARE(stack.currentIndex(), int(AssetAreaWidget::kAssetPage));
        stack.hide();
        pages.clear();
        stack.show();
        QCOMPARE(refreshes.count(), 2);
        QCOMPARE(pages.count(), 2);
        QCOMPARE(pages.at(0).at(0).toInt(), int(AssetAreaWidget::kLoadingPage));
        QCOMPARE(pages.at(1).at(0).toInt(), int(AssetAreaWidget::kAssetPage));

        CQLoadingWin* spinner = stack.loadingPage()->loadingWin();
        QVERIFY(!spinner->isLoading());
        stack.setCurrentIndex(AssetAreaWidget::kLoadingPage);
        QVERIFY(spinner->isLoading());
        stack.slot_refreshDataUIEnd();
        QVERIFY(!spinner->isLoading());
    }

    void rightSlot_data()
    {
        QTest::addColumn<QString>("payload");
        QTest::addColumn<QString>("message");   // empty: placed
        QTest::newRow("widget placed") << "widget" << "";
        QTest::newRow("null ignored") << "null" << "[AssetArea] left win is null";
        QTest::newRow("deleted ignored") << "deleted" << "[AssetArea] left win is not a live widget";
        QTest::newRow("the area refused")
            << "area" << "[AssetArea] refuses [AssetArea]: it is the container itself or one of its ancestors";
    }
    void rightSlot()
    {
        QFETCH(QString, payload);
        QFETCH(QString, message);
        TestLogCapture log;
        QObjectCleanupHandler owned;
        AssetArea area;
        area.show();
        QWidget* w = foreign(owned);
        if (payload == QLatin1String("null"))
            w = nullptr;
        else if (payload == QLatin1String("deleted"))
            delete (w = new QWidget);
        else if (payload == QLatin1String("area"))
            w = &area;
        area.slot_updateLeftWin(w, QPoint(4, 10));
        if (!message.isEmpty()) {
            QCOMPARE(log.count(message), 1);
            QVERIFY(area.rightSlot()->findChildren<QWidget*>().isEmpty());
            return;
        }
        QCOMPARE(w->parentWidget(), area.rightSlot());
        QCOMPARE(w->pos(), QPoint(4, 10));
        QVERIFY(w->isVisible());
    }

    // Destruction logs from the outside in and hands placed widgets back
    // alive and parentless.
    void destruction()
    {
        TestLogCapture log;
        auto* stack = new AssetAreaWidget;
        stack->show();
        QPointer<QWidget> gridded = new QWidget;
        QPointer<QWidget> dropped = new QWidget;
        QPointer<QWidget> right = new QWidget;
        stack->slot_registerItem(item(gridded, 1, QPoint(0, 0)));
        stack->slot_registerItem(item(dropped, 2, QPoint(0, 1)));
        stack->slot_unRegisterItem(2);
        stack->slot_updateLeftWin(right, QPoint(0, 0));
        delete stack;
        for (QPointer<QWidget> const& w : {gridded, dropped, right}) {
            QVERIFY(w && !w->parentWidget());
            delete w.data();
        }
        int const outer = log.indexOf("[AssetAreaWidget] delete AssetAreaWidget obj");
        int const area = log.indexOf("[AssetArea] delete AssetArea obj");
        int const inner = log.indexOf("[AssetAreaPrivate] delete AssetAreaPrivate obj");
        QVERIFY(outer >= 0 && outer < area && area < inner);
    }
};

QTEST_MAIN(TestAssetArea)
#include "tst_assetArea.moc"
