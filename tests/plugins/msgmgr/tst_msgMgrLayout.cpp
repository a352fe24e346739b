// The placement of the notification stack, computed for screens the offscreen
// platform cannot have: positions, looks, the queue, and the stack after
// windows close.

#include "msgMgrLayout.h"

#include <QtTest>

#include <algorithm>

Q_DECLARE_METATYPE(QVector<sMsgMgrLayoutItem>)

namespace {

// 1920 x 1080 with a 40-pixel panel along the bottom.
QRect const kFullHd(0, 0, 1920, 1040);
int const kMargin = MsgMgrLayout::kDefaultEdgeMargin;
int const kSpacing = MsgMgrLayout::kDefaultSpacing;

QVector<sMsgMgrLayoutItem> windows(int count, int alone = 200, int compact = 120)
{
    return QVector<sMsgMgrLayoutItem>(count, {QSize(380, alone), QSize(380, compact)});
}

// What must hold for any stack: the shown windows are the oldest ones, each in
// its look's size, right-aligned on the margin, the oldest on the bottom
// margin, each next one exactly one spacing above the previous, none
// overlapping another or leaving the area.
void checkStack(QRect const& area, QVector<sMsgMgrLayoutItem> const& items,
                QVector<sMsgMgrPlacement> const& placements)
{
    QCOMPARE(placements.size(), items.size());
    auto const firstQueued = std::find_if(placements.cbegin(), placements.cend(),
                                          [](sMsgMgrPlacement const& p) { return p.queued; });
    int const shown = int(firstQueued - placements.cbegin());
    QVERIFY(std::all_of(firstQueued, placements.cend(), [](sMsgMgrPlacement const& p) { return p.queued; }));
    for (int i = 0; i < shown; ++i) {
        sMsgMgrPlacement const& p = placements.at(i);
        bool const compact = p.look == MsgMgrWinInterface::EUITYPE_COMPACT;
        QCOMPARE(p.look, placements.first().look);
        QCOMPARE(p.geometry.size(), compact ? items.at(i).compact : items.at(i).alone);
        QCOMPARE(p.geometry.x() + p.geometry.width(), area.x() + area.width() - kMargin);
        if (i == 0 && shown == 1 && p.geometry.height() > area.height() - 2 * kMargin) {
            QCOMPARE(p.geometry.y(), area.y());
            continue;
        }
        QVERIFY2(area.contains(p.geometry), qPrintable(QStringLiteral("window %1 leaves the area").arg(i)));
        int const bottom = i == 0 ? area.y() + area.height() - kMargin : placements.at(i - 1).geometry.y() - kSpacing;
        QCOMPARE(p.geometry.y() + p.geometry.height(), bottom);
        for (int j = 0; j < i; ++j)
            QVERIFY(!p.geometry.intersects(placements.at(j).geometry));
    }
}

} // namespace

class TstMsgMgrLayout : public QObject
{
    Q_OBJECT

private slots:
    void placement_data()
    {
        QTest::addColumn<QRect>("area");
        QTest::addColumn<QVector<sMsgMgrLayoutItem>>("items");
        QTest::addColumn<int>("shown");
        QTest::addColumn<int>("look");
        QTest::addColumn<int>("oldestTop");

        int const alone = MsgMgrWinInterface::EUITYPE_ALONE;
        int const compact = MsgMgrWinInterface::EUITYPE_COMPACT;
        QTest::newRow("one window") << kFullHd << windows(1) << 1 << alone << 828;
        QTest::newRow("three windows") << kFullHd << windows(3) << 3 << alone << 828;
        // 12 x 200 does not fit: compact 8 x 120 + 7 x 8 fill the 1016 usable pixels exactly.
        QTest::newRow("twelve windows") << kFullHd << windows(12) << 8 << compact << 908;
        QTest::newRow("alone to the last pixel") << kFullHd << windows(4, 248) << 4 << alone << 780;
        QTest::newRow("one pixel too tall") << kFullHd << windows(4, 249) << 4 << compact << 908;
        QTest::newRow("mixed heights")
            << kFullHd
            << QVector<sMsgMgrLayoutItem>{{QSize(380, 260), QSize(380, 204)}, {QSize(380, 210), QSize(380, 150)},
                                          {QSize(380, 180), QSize(380, 110)}, {QSize(380, 260), QSize(380, 204)},
                                          {QSize(380, 230), QSize(380, 130)}}
            << 5 << compact << 824;
        QTest::newRow("panel on the left and the top") << QRect(64, 32, 1856, 1048) << windows(3) << 3 << alone << 868;
        QTest::newRow("screen shrunk to 1366 x 728") << QRect(0, 0, 1366, 728) << windows(12) << 5 << compact << 596;
        QTest::newRow("second screen on the left") << QRect(-1280, 0, 1280, 984) << windows(2) << 2 << alone << 772;
        QTest::newRow("taller than the area") << QRect(0, 0, 800, 300) << windows(2, 400, 350) << 1 << compact << 0;
        QTest::newRow("no screen") << QRect() << windows(3) << 0 << alone << -1;
        QTest::newRow("nothing registered") << kFullHd << windows(0) << 0 << alone << -1;
    }

    void placement()
    {
        QFETCH(QRect, area);
        QFETCH(QVector<sMsgMgrLayoutItem>, items);
        QFETCH(int, shown);
        QFETCH(int, look);
        QFETCH(int, oldestTop);

        QVector<sMsgMgrPlacement> const placements = MsgMgrLayout(area).place(items);
        checkStack(area, items, placements);
        QCOMPARE(int(std::count_if(placements.cbegin(), placements.cend(),
                                   [](sMsgMgrPlacement const& p) { return !p.queued; })),
                 shown);
        if (shown > 0) {
            QCOMPARE(int(placements.first().look), look);
            QCOMPARE(placements.first().geometry.y(), oldestTop);
        }
    }

    // Twelve windows on the 1920 x 1040 area, some of which close: the gap
    // closes and the queue moves up, oldest first.
    void closing_data()
    {
        QTest::addColumn<QList<int>>("closed");
        QTest::addColumn<QList<int>>("shownAfter");
        QTest::addColumn<int>("look");

        int const compact = MsgMgrWinInterface::EUITYPE_COMPACT;
        QTest::newRow("one low in the stack") << QList<int>{2} << QList<int>{0, 1, 3, 4, 5, 6, 7, 8} << compact;
        QTest::newRow("the newest shown") << QList<int>{7} << QList<int>{0, 1, 2, 3, 4, 5, 6, 8} << compact;
        QTest::newRow("three, the queue moves up")
            << QList<int>{0, 4, 6} << QList<int>{1, 2, 3, 5, 7, 8, 9, 10} << compact;
        QTest::newRow("eight, back to the full look")
            << QList<int>{0, 1, 2, 3, 4, 5, 6, 7} << QList<int>{8, 9, 10, 11} << int(MsgMgrWinInterface::EUITYPE_ALONE);
    }

    void closing()
    {
        QFETCH(QList<int>, closed);
        QFETCH(QList<int>, shownAfter);
        QFETCH(int, look);

        QVector<sMsgMgrLayoutItem> const all = windows(12);
        QVector<sMsgMgrPlacement> const before = MsgMgrLayout(kFullHd).place(all);
        QList<int> remaining;
        QVector<sMsgMgrLayoutItem> items;
        for (int i = 0; i < all.size(); ++i) {
            if (!closed.contains(i)) {
                remaining << i;
                items << all.at(i);
            }
        }
        QVector<sMsgMgrPlacement> const after = MsgMgrLayout(kFullHd).place(items);
        checkStack(kFullHd, items, after);

        QList<int> shown;
        for (int i = 0; i < after.size(); ++i) {
            if (!after.at(i).queued) {
                shown << remaining.at(i);
                QCOMPARE(int(after.at(i).look), look);
            }
        }
        QCOMPARE(shown, shownAfter);
        // The window above the lowest closed one takes the closed one's place.
        int const lowest = *std::min_element(closed.cbegin(), closed.cend());
        int const successor = remaining.indexOf(lowest + 1);
        if (look == MsgMgrWinInterface::EUITYPE_COMPACT && successor >= 0)
            QCOMPARE(after.at(successor).geometry, before.at(lowest).geometry);
    }
};

QTEST_APPLESS_MAIN(TstMsgMgrLayout)
#include "tst_msgMgrLayout.moc"
