#include "cqmenu.h"
#include "cqmenuitem.h"

#include <QAction>
#include <QPointer>
#include <QSignalSpy>
#include <QWidgetAction>
#include <QtTest>

// Keyed menu registration and the menu row widget.
class TstKitMenu : public QObject
{
    Q_OBJECT

private slots:
    void keyedRegistration_data();
    void keyedRegistration();
    void actionsOutliveMenu();
    void itemClickClosesMenuAndTriggers();
    void itemReceiverDeletesMenu();
};

namespace {

QStringList names(QList<QAction*> const& actions)
{
    QStringList list;
    for (QAction* a : actions)
        list << a->objectName();
    return list;
}

CQMenuItem* addItem(CQMenu* menu, QString const& icon, QString const& text, int key)
{
    auto* item = new CQMenuItem(icon, text);
    auto* action = new QWidgetAction(menu);
    action->setDefaultWidget(item);
    menu->myAddAction(action, key);
    return item;
}

} // namespace

void TstKitMenu::keyedRegistration_data()
{
    // Each step: "add <name> <key>", "remove <name|-> <key>", "plain <name>"
    // (QMenu::addAction) or "delete <name>" (the owner deletes the action).
    // <name> "-" stands for a null action.
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QList<int>>("results");   // of the add/remove steps
    QTest::addColumn<QStringList>("shown");    // the menu's actions, in order

    QTest::newRow("ascending order, negative keys") << QStringList{"add a 30", "add b -400", "add c 20"} << QList<int>{0, 0, 0}
                                                    << QStringList{"b", "c", "a"};
    QTest::newRow("first wins") << QStringList{"add a 10", "add b 10"} << QList<int>{0, -1} << QStringList{"a"};
    QTest::newRow("same action under two keys") << QStringList{"add a 10", "add a 20"} << QList<int>{0, -1} << QStringList{"a"};
    QTest::newRow("null action") << QStringList{"add - 5", "add a 6"} << QList<int>{-1, 0} << QStringList{"a"};
    QTest::newRow("remove unknown key") << QStringList{"add a 10", "remove a 99"} << QList<int>{0, -1} << QStringList{"a"};
    QTest::newRow("remove by key, other action") << QStringList{"add a 10", "add b 20", "remove b 10"} << QList<int>{0, 0, 0}
                                                 << QStringList{"b"};
    QTest::newRow("remove with null action") << QStringList{"add a 10", "remove - 10"} << QList<int>{0, 0} << QStringList{};
    QTest::newRow("remove twice, key free again") << QStringList{"add a 10", "remove a 10", "remove a 10", "add b 10"}
                                                  << QList<int>{0, 0, -1, 0} << QStringList{"b"};
    QTest::newRow("deleted action drops out, frees key") << QStringList{"add a 10", "add b 20", "delete a", "add c 10"}
                                                         << QList<int>{0, 0, 0} << QStringList{"c", "b"};
    QTest::newRow("remove after delete") << QStringList{"add a 10", "delete a", "remove - 10"} << QList<int>{0, -1}
                                         << QStringList{};
    QTest::newRow("plain actions stay after keyed") << QStringList{"plain p", "add a 10", "plain q", "add b 5"}
                                                    << QList<int>{0, 0} << QStringList{"b", "a", "p", "q"};
}

void TstKitMenu::keyedRegistration()
{
    QFETCH(QStringList, steps);
    QFETCH(QList<int>, results);
    QFETCH(QStringList, shown);

    QObject owner;   // the actions belong to their registrant, not the menu
    QMap<QString, QPointer<QAction>> actions;
    auto action = [&](QString const& name) -> QAction* {
        if (name == QLatin1String("-"))
            return nullptr;
        if (!actions.contains(name)) {
            auto* a = new QAction(name, &owner);
            a->setObjectName(name);
            actions.insert(name, a);
        }
        return actions.value(name);
    };

    CQMenu menu;
    QList<int> got;
    for (QString const& step : steps) {
        QStringList const parts = step.split(QLatin1Char(' '));
        QString const& op = parts.at(0);
        if (op == QLatin1String("add"))
            got << menu.myAddAction(action(parts.at(1)), parts.at(2).toInt());
        else if (op == QLatin1String("remove"))
            got << menu.myRemoveAction(action(parts.at(1)), parts.at(2).toInt());
        else if (op == QLatin1String("plain"))
            menu.addAction(action(parts.at(1)));
        else
            delete action(parts.at(1));
    }

    QCOMPARE(got, results);
    QCOMPARE(names(menu.actions()), shown);
    QStringList keyed = shown;
    keyed.removeAll(QStringLiteral("p"));
    keyed.removeAll(QStringLiteral("q"));
    QCOMPARE(names(menu.orderedActions()), keyed);
    // Only the steps that deleted an action may have lost one.
    for (auto it = actions.cbegin(); it != actions.cend(); ++it) {
        if (!steps.contains(QStringLiteral("delete ") + it.key()))
            QVERIFY2(!it.value().isNull(), qPrintable(it.key()));
    }
}

void TstKitMenu::actionsOutliveMenu()
{
    QObject owner;
    QPointer<QAction> a = new QAction(QStringLiteral("a"), &owner);
    {
        CQMenu menu;
        QCOMPARE(menu.myAddAction(a, 1), 0);
    }
    QVERIFY(!a.isNull());
    QVERIFY(a->associatedWidgets().isEmpty());
}

void TstKitMenu::itemClickClosesMenuAndTriggers()
{
    CQMenu menu;
    CQMenuItem* item = addItem(&menu, QString(), QStringLiteral("设置"), 0);
    QSignalSpy clicked(item, &CQMenuItem::sig_clicked);
    QSignalSpy triggered(menu.orderedActions().first(), &QAction::triggered);

    menu.popup(QPoint(100, 100));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QTest::mouseClick(item, Qt::LeftButton, Qt::NoModifier, item->rect().center());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(triggered.count(), 1);
    QVERIFY(!menu.isVisible());
}

void TstKitMenu::itemReceiverDeletesMenu()
{
    // A receiver that tears the whole menu down must not take the row with it
    // into a crash: the row lives inside what is deleted.
    QPointer<CQMenu> menu = new CQMenu;
    CQMenuItem* item = addItem(menu, QStringLiteral(":/img/does-not-exist.png"), QStringLiteral("退出"), 500);
    menu->popup(QPoint(10, 10));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    connect(item, &CQMenuItem::sig_clicked, this, [&menu]() { delete menu; });
    QTest::mouseClick(item, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QVERIFY(menu.isNull());
}

QTEST_MAIN(TstKitMenu)
#include "tst_kit_menu.moc"
