// The right-top menu's rounded corners with and without a compositing
// manager: translucent where the desktop composites, cut to a rounded mask
// where it does not (a translucent window there shows black corners), also
// when the compositor stops after the first show.

#include "cqmenu.h"
#include "cqpopupshape.h"

#include <QtTest>

namespace {

// The middle and the straight edges kept, the corner pixels cut off.
bool isRounded(QRegion const& mask, QSize const& size)
{
    QRect const r(QPoint(0, 0), size);
    return mask.contains(r.center()) && mask.contains(QPoint(r.width() / 2, 0)) && mask.contains(QPoint(0, r.height() / 2))
           && !mask.contains(r.topLeft()) && !mask.contains(r.topRight()) && !mask.contains(r.bottomLeft())
           && !mask.contains(r.bottomRight());
}

} // namespace

class TestKitPopupShape : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CQPopupShape::setCompositingOverride(CQPopupShape::COMPOSITING_ASK); }

    void offscreenCountsAsComposited() { QVERIFY(CQPopupShape::isCompositing()); }

    void menuCorners_data()
    {
        QTest::addColumn<bool>("atFirstShow");
        QTest::addColumn<bool>("atSecondShow");
        QTest::addColumn<bool>("translucent");
        QTest::addColumn<bool>("masked");
        QTest::newRow("compositor") << true << true << true << false;
        QTest::newRow("no compositor") << false << false << false << true;
        QTest::newRow("compositor stopped after the first show") << true << false << true << true;
        QTest::newRow("compositor started after the first show") << false << true << false << true;
    }

    void menuCorners()
    {
        QFETCH(bool, atFirstShow);
        QFETCH(bool, atSecondShow);
        QFETCH(bool, translucent);
        QFETCH(bool, masked);
        CQMenu menu;
        menu.addAction(QStringLiteral("设置"));
        menu.addAction(QStringLiteral("关于我们"));
        for (bool const compositing : {atFirstShow, atSecondShow}) {
            CQPopupShape::setCompositingOverride(compositing ? CQPopupShape::COMPOSITING_ON : CQPopupShape::COMPOSITING_OFF);
            menu.show();
            QVERIFY(QTest::qWaitForWindowExposed(&menu));
            menu.hide();
        }
        QCOMPARE(menu.testAttribute(Qt::WA_TranslucentBackground), translucent);
        QCOMPARE(!menu.mask().isEmpty(), masked);
        QVERIFY(!masked || isRounded(menu.mask(), menu.size()));
    }

    void maskFollowsTheSize()
    {
        CQPopupShape::setCompositingOverride(CQPopupShape::COMPOSITING_OFF);
        QWidget popup(nullptr, Qt::Popup | Qt::FramelessWindowHint);
        CQPopupShape::install(&popup, 8);
        popup.show();
        popup.resize(300, 200);
        QTRY_VERIFY(isRounded(popup.mask(), QSize(300, 200)));
        QCOMPARE(popup.mask().boundingRect(), QRect(0, 0, 300, 200));
    }
};

QTEST_MAIN(TestKitPopupShape)
#include "tst_kit_popupshape.moc"
