// Message tip: panels in a stack, switched by the panels themselves.

#include "messageTip.h"
#include "submessagetipiteminterface.h"

#include <QPointer>
#include <QStackedWidget>
#include <QtTest>

class TstTargetsMessageTip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#endif
    }

    void nullIsRefused()
    {
        MessageTip tip(nullptr);
        QCOMPARE(tip.registerItem(nullptr), -1);
        QCOMPARE(tip.unRegisterItem(nullptr), -1);
        QCOMPARE(tip.stackedWidget()->count(), 0);
        QCOMPARE(tip.size(), QSize(744, 152));
    }

    void panelsSwitchThemselves()
    {
        MessageTip tip(nullptr);
        auto* first = new SubMessageTipItemInterface;
        auto* second = new SubMessageTipItemInterface;
        QWidget stranger;
        QCOMPARE(tip.registerItem(first), 0);
        QCOMPARE(tip.registerItem(second), 0);
        QCOMPARE(tip.stackedWidget()->currentWidget(), first);

        emit first->sig_changeWin(second);
        QCOMPARE(tip.stackedWidget()->currentWidget(), second);
        emit second->sig_changeWin(&stranger);
        QCOMPARE(tip.stackedWidget()->currentWidget(), second);
        emit second->sig_changeWin(nullptr);
        QCOMPARE(tip.stackedWidget()->currentWidget(), second);

        QCOMPARE(tip.unRegisterItem(first), 0);
        QVERIFY(first->parentWidget() == nullptr);
        emit first->sig_changeWin(second);   // no longer listened to
        QCOMPARE(tip.stackedWidget()->indexOf(first), -1);
        emit first->sig_changeWin(first);
        QCOMPARE(tip.stackedWidget()->currentWidget(), second);
        delete first;
        delete second;   // deleted by its owner while registered
        QCOMPARE(tip.stackedWidget()->count(), 0);
    }

    void panelsOutliveTheTip()
    {
        QPointer<SubMessageTipItemInterface> panel = new SubMessageTipItemInterface;
        {
            MessageTip tip(nullptr);
            tip.registerItem(panel);
            tip.registerItem(panel);   // twice: harmless
            QCOMPARE(tip.stackedWidget()->count(), 1);
        }
        QVERIFY(panel);
        QVERIFY(panel->parentWidget() == nullptr);
        delete panel.data();
    }
};

QTEST_MAIN(TstTargetsMessageTip)
#include "tst_targets_messagetip.moc"
