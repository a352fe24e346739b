// Authentication status icon: keyed items, their status and the title-bar requests.

#include "authMgr.h"
#include "authmgritem.h"
#include "cqlabel.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

QString status(AuthMgr& mgr)
{
    return mgr.iconLabel() ? mgr.iconLabel()->property("status").toString() : QString();
}

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
};

QTEST_MAIN(TstTargetsAuth)
#include "tst_targets_auth.moc"
