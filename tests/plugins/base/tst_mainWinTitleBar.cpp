// The title bar's keyed areas: placement by key, refusals and relayouts.

#include "cqcloudbrainlabel.h"
#include "cqframe.h"
#include "cqtitlebuttons.h"
#include "mainWinTitleBar.h"

#include <QLayout>
#include <QtTest>

namespace {

QWidget* builtIn(MainWinTitleBar& bar, QString const& name)
{
    if (name == QLatin1String("cloud"))
        return bar.findChild<CQCloudBrainLabel*>();
    if (name == QLatin1String("dropdown"))
        return bar.findChild<CQDropDownBtn*>();
    if (name == QLatin1String("min"))
        return bar.findChild<CQMinBtn*>();
    return bar.findChild<CQCloseBtn*>();
}

CQFrame* area(MainWinTitleBar& bar, int dir)
{
    return bar.findChild<CQFrame*>(dir == 0 ? QStringLiteral("m_pLeftArea") : QStringLiteral("m_pRightArea"));
}

// Items in both areas' layouts, settled.
QPair<int, int> counts(MainWinTitleBar& bar)
{
    for (int dir : {0, 1})
        area(bar, dir)->layout()->activate();
    return {area(bar, 0)->layout()->count(), area(bar, 1)->layout()->count()};
}

int xInBar(MainWinTitleBar& bar, QWidget* w)
{
    return w->mapTo(&bar, QPoint(0, 0)).x();
}

eBaseTitleBarObjPosID key(int pos)
{
    return eBaseTitleBarObjPosID(pos);
}

} // namespace

class TestMainWinTitleBar : public QObject
{
    Q_OBJECT

private slots:
    // Where a newly registered widget ends up: right of `after`, left of
    // `before`; an empty area means refused.
    void registerWin_data()
    {
        QTest::addColumn<int>("dir");
        QTest::addColumn<int>("pos");
        QTest::addColumn<QString>("area");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("before");
        QTest::newRow("right 100: between counter and drop-down") << 1 << 100 << "m_pRightArea" << "cloud" << "dropdown";
        QTest::newRow("right 51: just after the counter") << 1 << 51 << "m_pRightArea" << "cloud" << "dropdown";
        QTest::newRow("right 400: right of close") << 1 << 400 << "m_pRightArea" << "close" << "";
        QTest::newRow("right -5: left of the counter") << 1 << -5 << "m_pRightArea" << "" << "cloud";
        QTest::newRow("right 300 taken: dropped") << 1 << 300 << "" << "" << "";
        QTest::newRow("left 7: free area") << 0 << 7 << "m_pLeftArea" << "" << "";
        QTest::newRow("direction 2: no area") << 2 << 100 << "" << "" << "";
    }
    void registerWin()
    {
        QFETCH(int, dir);
        QFETCH(int, pos);
        QFETCH(QString, area);
        QFETCH(QString, after);
        QFETCH(QString, before);
        MainWinTitleBar bar;
        bar.show();
        QWidget owner;
        owner.setObjectName(QStringLiteral("owner"));
        auto* w = new QWidget(&owner);
        w->setFixedSize(20, 20);
        QPair<int, int> const was = counts(bar);
        bar.registerWin(w, static_cast<eBaseTitleBarDir>(dir), key(pos));
        // A registration relays out both areas (one more stretch in each),
        // except one at a taken position, which changes nothing at all.
        int const relayout = area.isEmpty() && dir != 2 ? 0 : 1;
        QCOMPARE(counts(bar), qMakePair(was.first + relayout + (area == QLatin1String("m_pLeftArea")),
                                        was.second + relayout + (area == QLatin1String("m_pRightArea"))));
        QCOMPARE(w->parentWidget()->objectName(), area.isEmpty() ? QStringLiteral("owner") : area);
        QCOMPARE(w->isVisible(), !area.isEmpty());
        QVERIFY(after.isEmpty() || xInBar(bar, w) > xInBar(bar, builtIn(bar, after)));
        QVERIFY(before.isEmpty() || xInBar(bar, w) < xInBar(bar, builtIn(bar, before)));
    }

    // unRegisterWin always hides and detaches the widget given; the
    // registration at the position (whoever holds it) is what goes.
    void unRegisterWin_data()
    {
        QTest::addColumn<int>("dir");
        QTest::addColumn<int>("pos");
        QTest::addColumn<bool>("relayout");
        QTest::addColumn<bool>("positionFreed");
        QTest::newRow("position not registered") << 1 << 120 << false << false;
        QTest::newRow("A at B's position") << 1 << 100 << true << true;
        QTest::newRow("direction 2") << 2 << 100 << true << false;
        QTest::newRow("left area, unknown position") << 0 << 100 << false << false;
    }
    void unRegisterWin()
    {
        QFETCH(int, dir);
        QFETCH(int, pos);
        QFETCH(bool, relayout);
        QFETCH(bool, positionFreed);
        MainWinTitleBar bar;
        bar.show();
        QWidget owner;
        owner.show();
        auto* holder = new QWidget(&owner);
        bar.registerWin(holder, EBASETITLEBARDIR_RIGHT, key(100));
        auto* a = new QWidget(&owner);
        QPair<int, int> const was = counts(bar);

        bar.unRegisterWin(a, static_cast<eBaseTitleBarDir>(dir), key(pos));

        QVERIFY(!a->parentWidget() && a->isHidden());
        QCOMPARE(counts(bar), qMakePair(was.first + relayout, was.second + relayout));
        // B is neither hidden nor taken out of the layout.
        QVERIFY(holder->isVisible() && area(bar, 1)->layout()->indexOf(holder) >= 0);
        auto* probe = new QWidget(&owner);
        bar.registerWin(probe, EBASETITLEBARDIR_RIGHT, key(100));
        QCOMPARE(probe->parentWidget() == area(bar, 1), positionFreed);
        delete a;
    }
};

QTEST_MAIN(TestMainWinTitleBar)
#include "tst_mainWinTitleBar.moc"
