// Authentication status icon: combined state, title-bar requests, pop-up.

#include "authMgr.h"
#include "authMgritem.h"
#include "cqlabel.h"
#include "itemsWin.h"

#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {
QObject* recordObject(QSignalSpy const& spy, int i)
{
    return spy.at(i).at(0).value<sPluginRegisterItem>().object;
}

void click(QWidget* w)
{
    QPoint const inside(w->width() / 2, w->height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, inside, w->mapToGlobal(inside), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, inside, w->mapToGlobal(inside), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

class PressCounter : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};
} // namespace

class TstTargetsAuth : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#endif
        qRegisterMetaType<sPluginRegisterItem>();
    }

    void combinedStatus_data()
    {
        QTest::addColumn<QList<int>>("statuses");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one good one failed") << QList<int>{0, 2} << "normal";
        QTest::newRow("all failed") << QList<int>{0, 0, 0} << "error";
        QTest::newRow("single good") << QList<int>{1} << "normal";
        QTest::newRow("negative counts as good") << QList<int>{-1, 0} << "normal";
    }
    void combinedStatus()
    {
        QFETCH(QList<int>, statuses);
        QFETCH(QString, expected);
        AuthMgr mgr;
        QList<AuthMgritem*> items;
        for (int i = 0; i < statuses.size(); ++i) {
            items << new AuthMgritem(i + 1);
            items.last()->setStatus(statuses.at(i));
            QCOMPARE(mgr.registerItem(items.last()), 0);
        }
        QVERIFY(mgr.iconLabel());
        QCOMPARE(mgr.iconLabel()->property("status").toString(), expected);
        QCOMPARE(mgr.iconLabel()->size(), QSize(24, 24));
        qDeleteAll(items);
    }

    void statusChangeRepaintsAndReannounces()
    {
        AuthMgr mgr;
        AuthMgritem item(3);
        QSignalSpy reg(&mgr, &AuthMgr::sig_registerTitle);
        mgr.registerItem(&item);
        QCOMPARE(mgr.iconLabel()->property("status").toString(), QStringLiteral("error"));
        item.setStatus(1);
        QCOMPARE(mgr.iconLabel()->property("status").toString(), QStringLiteral("normal"));
        QCOMPARE(reg.count(), 2);
        sPluginRegisterItem const record = reg.last().at(0).value<sPluginRegisterItem>();
        QCOMPARE(record.index, 100);
        QCOMPARE(record.extra.toInt(), 1);
        QCOMPARE(record.object, static_cast<QObject*>(mgr.iconLabel()));
    }

    void repeatIdKeepsFirst()
    {
        AuthMgr mgr;
        AuthMgritem first(7), second(7);
        second.setStatus(1);
        QCOMPARE(mgr.registerItem(nullptr), -1);
        QVERIFY(!mgr.iconLabel());
        QCOMPARE(mgr.registerItem(&first), 0);
        QCOMPARE(mgr.registerItem(&second), -1);
        QCOMPARE(mgr.items(), (QList<AuthMgritem*>{&first}));
        QCOMPARE(mgr.iconLabel()->property("status").toString(), QStringLiteral("error"));
    }

    void lastItemRemovesTheIcon()
    {
        AuthMgr mgr;
        AuthMgritem item(1);
        QSignalSpy unreg(&mgr, &AuthMgr::sig_unRegisterTitle);
        mgr.registerItem(&item);
        QPointer<CQLabel> icon = mgr.iconLabel();
        QCOMPARE(mgr.unRegisterItem(42), -1);
        QCOMPARE(unreg.count(), 0);
        QCOMPARE(mgr.unRegisterItem(1), 0);
        QVERIFY(item.isHidden());
        QCOMPARE(unreg.count(), 1);
        QCOMPARE(recordObject(unreg, 0), static_cast<QObject*>(icon.data()));
        QVERIFY(!mgr.iconLabel());
        QTRY_VERIFY(icon.isNull());
        // The next registration builds a fresh icon.
        mgr.registerItem(&item);
        QVERIFY(mgr.iconLabel());
    }

    void deletedItemDropsOut()
    {
        AuthMgr mgr;
        QSignalSpy unreg(&mgr, &AuthMgr::sig_unRegisterTitle);
        auto* item = new AuthMgritem(5);
        mgr.registerItem(item);
        delete item;
        QTRY_COMPARE(unreg.count(), 1);
        QVERIFY(mgr.items().isEmpty());
        QVERIFY(!mgr.iconLabel());
    }

    void popupListsItemsAndClosesOnOutsidePress()
    {
        AuthMgr mgr;
        AuthMgritem a(2), b(1);
        a.setFixedSize(202, 30);
        b.setFixedSize(202, 40);
        mgr.registerItem(&a);
        mgr.registerItem(&b);
        QWidget titleBar;
        titleBar.resize(400, 46);
        mgr.iconLabel()->setParent(&titleBar);
        mgr.iconLabel()->move(200, 11);
        titleBar.show();
        PressCounter under;
        under.setGeometry(titleBar.geometry().translated(0, 300));
        under.show();

        click(mgr.iconLabel());
        QPointer<ItemsWin> popup = mgr.itemsWin();
        QVERIFY(popup);
        QVERIFY(popup->isVisible());
        QCOMPARE(popup->items(), (QList<QWidget*>{&b, &a}));
        QCOMPARE(popup->height(), 70);
        QPoint const iconTop = mgr.iconLabel()->mapToGlobal(QPoint(0, 0));
        QCOMPARE(popup->pos(), QPoint(iconTop.x() + 12 - 101, iconTop.y() + 24 + 12));

        QPoint const outside(5, 5);
        QMouseEvent press(QEvent::MouseButtonPress, outside, under.mapToGlobal(outside), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&under, &press);
        QCOMPARE(under.presses, 0);   // swallowed
        QTRY_VERIFY(popup.isNull());
        // The items outlive the pop-up.
        QVERIFY(a.parentWidget() == nullptr);
        QVERIFY(b.parentWidget() == nullptr);
        mgr.iconLabel()->setParent(nullptr);
    }
};

QTEST_MAIN(TstTargetsAuth)
#include "tst_targets_auth.moc"
