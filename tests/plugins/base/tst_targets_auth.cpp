// Authentication status icon: keyed items, combined state, title-bar
// requests and the pop-up list.

#include "authMgr.h"
#include "authMgritem.h"
#include "cqlabel.h"
#include "itemsWin.h"

#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

void press(QWidget* w, QPoint const& at, bool release)
{
    QMouseEvent down(QEvent::MouseButtonPress, at, w->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, at, w->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    if (release)
        QApplication::sendEvent(w, &up);
}

QString status(AuthMgr& mgr)
{
    return mgr.iconLabel() ? mgr.iconLabel()->property("status").toString() : QString();
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
        Q_INIT_RESOURCE(ui_base);
        qRegisterMetaType<sPluginRegisterItem>();
    }

    // Normal as soon as one item is not failed (0).
    void combinedStatus_data()
    {
        QTest::addColumn<QList<int>>("statuses");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one good one failed") << QList<int>{0, 2} << "normal";
        QTest::newRow("all failed") << QList<int>{0, 0, 0} << "error";
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
        QCOMPARE(status(mgr), expected);
        qDeleteAll(items);
    }

    // The first item of an id wins; a status change repaints the icon and
    // announces it to the title bar again (right area, key 100).
    void registrationAndStatusChange()
    {
        AuthMgr mgr;
        AuthMgritem first(7), second(7);
        second.setStatus(1);
        QCOMPARE(mgr.registerItem(nullptr), -1);
        QVERIFY(!mgr.iconLabel());
        QCOMPARE(mgr.registerItem(&first), 0);
        QCOMPARE(mgr.registerItem(&second), -1);
        QCOMPARE(mgr.items(), (QList<AuthMgritem*>{&first}));
        QCOMPARE(status(mgr), QStringLiteral("error"));
        QSignalSpy reg(&mgr, &AuthMgr::sig_registerTitle);
        first.setStatus(1);
        QCOMPARE(status(mgr), QStringLiteral("normal"));
        QCOMPARE(reg.count(), 1);
        sPluginRegisterItem const record = reg.last().at(0).value<sPluginRegisterItem>();
        QCOMPARE(record.object, static_cast<QObject*>(mgr.iconLabel()));
        QCOMPARE(record.index, 100);
        QCOMPARE(record.extra.toInt(), 1);
    }

    // The last item going, by key or by deletion, takes the icon away.
    void lastItemRemovesTheIcon_data()
    {
        QTest::addColumn<bool>("deleted");
        QTest::newRow("unregistered") << false;
        QTest::newRow("deleted by its owner") << true;
    }
    void lastItemRemovesTheIcon()
    {
        QFETCH(bool, deleted);
        AuthMgr mgr;
        QSignalSpy unreg(&mgr, &AuthMgr::sig_unRegisterTitle);
        QPointer<AuthMgritem> item = new AuthMgritem(1);
        mgr.registerItem(item);
        QPointer<CQLabel> icon = mgr.iconLabel();
        QObject* const iconObject = icon.data();
        QCOMPARE(mgr.unRegisterItem(42), -1);
        QCOMPARE(unreg.count(), 0);
        if (deleted)
            delete item.data();
        else
            QCOMPARE(mgr.unRegisterItem(1), 0);
        QTRY_COMPARE(unreg.count(), 1);
        QCOMPARE(unreg.at(0).at(0).value<sPluginRegisterItem>().object, iconObject);
        QVERIFY(mgr.items().isEmpty() && !mgr.iconLabel());
        QTRY_VERIFY(icon.isNull());
        if (!deleted) {
            QVERIFY(item->isHidden());
            mgr.registerItem(item);   // a fresh icon
            QVERIFY(mgr.iconLabel());
            delete item.data();
        }
    }

    // A click lists the items by id under the icon; a press outside closes
    // the list, is swallowed, and the items outlive it.
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

        press(mgr.iconLabel(), QPoint(12, 12), true);
        QPointer<ItemsWin> popup = mgr.itemsWin();
        QVERIFY(popup && popup->isVisible());
        QCOMPARE(popup->items(), (QList<QWidget*>{&b, &a}));
        QCOMPARE(popup->height(), 70);
        QPoint const iconTop = mgr.iconLabel()->mapToGlobal(QPoint(0, 0));
        QCOMPARE(popup->pos(), iconTop + QPoint(12 - 101, 24 + 12));

        press(&under, QPoint(5, 5), false);
        QCOMPARE(under.presses, 0);
        QTRY_VERIFY(popup.isNull());
        QVERIFY(!a.parentWidget() && !b.parentWidget());
        mgr.iconLabel()->setParent(nullptr);
    }
};

QTEST_MAIN(TstTargetsAuth)
#include "tst_targets_auth.moc"
