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
    void cardBlocksFlowInDescendingKeyOrder_data();
    void cardBlocksFlowInDescendingKeyOrder();
    void cardRejectsAndLateBlocks();
};

void TestStackedWins::registration()
{
    Row row;
    QWidget* w30 = new QWidget;
    QWidget* w10 = new QWidget;
    QWidget* w20 = new QWidget;
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
    Row row;
    QWidget* w1 = new QWidget;
    QWidget* w2 = new QWidget;
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
    QCOMPARE(row.registerItem(new QWidget, 1), 0);
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

void TestStackedWins::cardBlocksFlowInDescendingKeyOrder_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QSize>("blockSize");
    QTest::addColumn<QList<QPoint>>("positions");   // in the order of `keys`
    // two 116-wide blocks do not fit side by side in a 187-wide card
    QTest::newRow("version blocks") << QList<int>{8, 4} << QSize(116, 36)
                                    << QList<QPoint>{QPoint(16, 48), QPoint(16, 88)};
    QTest::newRow("small blocks share a row") << QList<int>{1, 3, 2} << QSize(40, 20)
                                              << QList<QPoint>{QPoint(112, 48), QPoint(16, 48), QPoint(64, 48)};
}

void TestStackedWins::cardBlocksFlowInDescendingKeyOrder()
{
    QFETCH(QList<int>, keys);
    QFETCH(QSize, blockSize);
    QFETCH(QList<QPoint>, positions);
    BaseCardWin card;
    QList<QWidget*> blocks;
    for (int key : keys) {
        blocks << block(nullptr, blockSize.width(), blockSize.height());
        QCOMPARE(card.registerItem(blocks.last(), key), 0);
    }
    card.end();
    for (int i = 0; i < blocks.size(); ++i) {
        QCOMPARE(blocks.at(i)->parentWidget(), &card);
        QCOMPARE(blocks.at(i)->pos(), positions.at(i));
    }
}

void TestStackedWins::cardRejectsAndLateBlocks()
{
    BaseCardWin card;
    QCOMPARE(card.registerItem(nullptr, 1), -1);
    QCOMPARE(card.registerItem(block(&card, 10, 10), 1), 0);
    QCOMPARE(card.registerItem(block(&card, 10, 10), 1), -1);
    // after end() a late block is placed at once
    card.end();
    QWidget* late = block(nullptr, 10, 10);
    card.registerItem(late, 5);
    QCOMPARE(late->pos(), QPoint(16, 48));
    QVERIFY(!late->isHidden());
}

QTEST_MAIN(TestStackedWins)
#include "tst_nav_stackedwins.moc"
