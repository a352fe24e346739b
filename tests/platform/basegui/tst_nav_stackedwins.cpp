#include "basecardwin.h"
#include "cqmystackedwins.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QtTest>

namespace {

class Row : public CQMyStackedWins
{
public:
    Row() { new QHBoxLayout(this); }
    QList<QWidget*> laidOut() const
    {
        QList<QWidget*> list;
        for (int i = 0; i < layout()->count(); ++i) {
            if (QWidget* w = layout()->itemAt(i)->widget())
                list << w;
        }
        return list;
    }
    int resets = 0;

protected:
    void resetUI() override
    {
        ++resets;
        CQMyStackedWins::resetUI();
    }
};

QWidget* block(QWidget* parent, int w, int h)
{
    auto* b = new QWidget(parent);
    b->resize(w, h);
    return b;
}

} // namespace

class TestStackedWins : public QObject
{
    Q_OBJECT
private slots:
    void registration();
    void deletedWidgetDropsOut();
    void unregisterHidesAndDetaches();
    void cardBlocksFlowInDescendingKeyOrder();
};

void TestStackedWins::registration()
{
    // Declared before the row: the row hands them back when it goes.
    QWidget widgets[3];
    QWidget* w30 = &widgets[0];
    QWidget* w10 = &widgets[1];
    QWidget* w20 = &widgets[2];
    Row row;
    QCOMPARE(row.registerItem(w30, 30), 0);
    QCOMPARE(row.registerItem(w10, -400), 0);
    QCOMPARE(row.registerItem(w20, 20), 0);
    QCOMPARE(row.registerItem(new QWidget(&row), 30), -1);   // first wins
    QCOMPARE(row.registerItem(w10, 99), -1);                 // one key per widget
    QCOMPARE(row.registerItem(nullptr, 99), -1);
    QCOMPARE(row.item(30), w30);
    QCOMPARE(row.resets, 3);
    QCOMPARE(row.laidOut(), QList<QWidget*>({w10, w20, w30}));
    QCOMPARE(row.keys(), QList<int>({-400, 20, 30}));
    QCOMPARE(w10->parentWidget(), &row);
    QVERIFY(!w10->isHidden());
}

void TestStackedWins::deletedWidgetDropsOut()
{
    QWidget w2Owner, late;
    Row row;
    QWidget* w1 = new QWidget;
    QWidget* w2 = &w2Owner;
    row.registerItem(w1, 1);
    row.registerItem(w2, 2);
    int const resets = row.resets;
    delete w1;
    QCOMPARE(row.count(), 1);
    QCOMPARE(row.keys(), QList<int>({2}));
    QCOMPARE(row.item(1), nullptr);
    QTRY_COMPARE(row.resets, resets + 1);
    QCOMPARE(row.laidOut(), QList<QWidget*>({w2}));
    // the key is free again
    QCOMPARE(row.registerItem(&late, 1), 0);
    QCOMPARE(row.unRegisterItem(1), 0);
}

void TestStackedWins::unregisterHidesAndDetaches()
{
    Row row;
    QPointer<QWidget> w = new QWidget;
    row.registerItem(w, 7);
    QCOMPARE(row.unRegisterItem(8), -1);
    QCOMPARE(row.unRegisterItem(7), 0);
    QVERIFY(w);
    QVERIFY(w->isHidden());
    QCOMPARE(w->parentWidget(), nullptr);
    QVERIFY(row.laidOut().isEmpty());
    QCOMPARE(row.unRegisterItem(7), -1);

    // A destroyed container hands its widgets back too.
    auto* other = new Row;
    other->registerItem(w, 1);
    delete other;
    QVERIFY(w);
    QCOMPARE(w->parentWidget(), nullptr);
    delete w;
}

void TestStackedWins::cardBlocksFlowInDescendingKeyOrder()
{
    BaseCardWin card;   // 187 wide, blocks from (16, 48), 8 apart side by side, 4 apart in rows
    QList<QWidget*> blocks{ block(nullptr, 40, 20), block(nullptr, 40, 20), block(nullptr, 40, 20) };
    QCOMPARE(card.registerItem(blocks[0], 1), 0);
    QCOMPARE(card.registerItem(blocks[1], 3), 0);
    QCOMPARE(card.registerItem(blocks[2], 2), 0);
    QCOMPARE(card.registerItem(block(&card, 10, 10), 3), -1);
    QCOMPARE(card.registerItem(nullptr, 9), -1);
    card.end();
    QCOMPARE(blocks[0]->parentWidget(), &card);
    QCOMPARE(blocks[1]->pos(), QPoint(16, 48));
    QCOMPARE(blocks[2]->pos(), QPoint(64, 48));
    QCOMPARE(blocks[0]->pos(), QPoint(112, 48));
    // After end() a late block is placed at once; one too wide for the rest of a row starts the next.
    QWidget* late = block(nullptr, 116, 36);
    QCOMPARE(card.registerItem(late, 0), 0);
    QVERIFY(!late->isHidden());
    QCOMPARE(late->pos(), QPoint(16, 72));
}

QTEST_MAIN(TestStackedWins)
#include "tst_nav_stackedwins.moc"
