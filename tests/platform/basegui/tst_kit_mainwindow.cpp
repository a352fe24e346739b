#include "cqmainwindow.h"
#include "framelinkproxy.h"
#include "framelinkproxyinterface.h"

#include <memory>
#include <QPointer>
#include <QtTest>

namespace {

// The smallest mountable thing: what a navigation bar is to the frame.
class Mountable : public FrameLinkProxyInterface
{
public:
    bool gotoChildObject(QString const&) override { return false; }
};

class HookedWindow : public CQMainWindow
{
public:
    bool allowHide = true;
    QStringList calls;

protected:
    bool preShowEvent() override { calls << QStringLiteral("preShow"); return false; }
    void postShowEvent() override { calls << QStringLiteral("postShow"); }
    bool preHideEvent() override { calls << QStringLiteral("preHide"); return allowHide; }
    void postHideEvent() override { calls << QStringLiteral("postHide"); }
};

QWidget* makeTitle(int height)
{
    auto* title = new QWidget;
    title->setFixedHeight(height);
    return title;
}

void sendMouse(QWidget* target, QEvent::Type type, QPoint const& global, Qt::MouseButtons buttons)
{
    Qt::MouseButton const button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, target->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

} // namespace

class TstKitMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void bodyMount_data();
    void bodyMount();
    void titleReplacedIsDetached();
    void titleDragMovesWindow();
    void titleDeletedDuringDrag();
    void hideVeto_data();
    void hideVeto();
};

void TstKitMainWindow::bodyMount_data()
{
    QTest::addColumn<bool>("mountFirst");
    QTest::addColumn<QString>("mountedAs");
    QTest::addColumn<bool>("taken");
    QTest::newRow("mounted before") << true << "Body_Before" << true;
    QTest::newRow("mounted later") << false << "Body_Later" << true;
    QTest::newRow("other name, before") << true << "Body_Other1" << false;
    QTest::newRow("other name, later") << false << "Body_Other2" << false;
}

void TstKitMainWindow::bodyMount()
{
    QFETCH(bool, mountFirst);
    QFETCH(QString, mountedAs);
    QFETCH(bool, taken);
    QString const wanted = taken ? mountedAs : QStringLiteral("Body_Wanted_") + QTest::currentDataTag();

    CQMainWindow win;
    // The window hands a replaced title back; its owner deletes it.
    std::unique_ptr<QWidget> firstTitle(makeTitle(46));
    win.resize(1000, 580);
    win.setTitleWidget(firstTitle.get());
    QPointer<QWidget> frame = new QWidget;
    Mountable nav;
    if (mountFirst)
        QVERIFY(nav.mount(mountedAs, frame));
    win.setBodyMountName(wanted);
    if (!mountFirst)
        QVERIFY(nav.mount(mountedAs, frame));
    QCoreApplication::processEvents();

    QCOMPARE(win.bodyWidget() == frame, taken);
    QCOMPARE(frame->parentWidget() == &win, taken);
    if (taken)
        QCOMPARE(frame->geometry(), QRect(0, 46, 1000, 534));
    // The owner may delete the body at any time; the window only relays out.
    delete frame;
    QVERIFY(win.bodyWidget() == nullptr);
    win.resize(500, 400);
    win.setTitleWidget(makeTitle(30));   // a relayout with no body to place
    QCOMPARE(win.titleWidget()->geometry(), QRect(0, 0, 500, 30));
}

void TstKitMainWindow::titleReplacedIsDetached()
{
    CQMainWindow win;
    win.resize(600, 40);
    win.show();
    auto* body = new QWidget;
    win.setBodyWidget(body);
    QCOMPARE(body->geometry(), QRect(0, 0, 600, 40));
    QPointer<QWidget> first = makeTitle(46);
    win.setTitleWidget(first);
    QCOMPARE(body->geometry(), QRect(0, 46, 600, 0));   // what is left, never less than nothing
    win.setTitleWidget(makeTitle(30));
    QVERIFY(!first.isNull());   // never deleted by the window
    QVERIFY(first->parentWidget() == nullptr);
    QVERIFY(!first->isVisible());
    QCOMPARE(body->geometry(), QRect(0, 30, 600, 10));
    delete first;
}

void TstKitMainWindow::titleDragMovesWindow()
{
    CQMainWindow win;
    win.resize(600, 400);
    win.move(100, 100);
    QWidget* title = makeTitle(46);
    win.setTitleWidget(title);
    win.show();
    QVERIFY(QTest::qWaitForWindowExposed(&win));
    QPoint const start = win.pos();
    QPoint const grab = title->mapToGlobal(QPoint(200, 20));
    sendMouse(title, QEvent::MouseButtonPress, grab, Qt::LeftButton);
    sendMouse(title, QEvent::MouseMove, grab + QPoint(30, 25), Qt::LeftButton);
    sendMouse(title, QEvent::MouseButtonRelease, grab + QPoint(30, 25), Qt::NoButton);
    QTRY_COMPARE(win.pos(), start + QPoint(30, 25));
    // Moves after the release do not drag.
    sendMouse(title, QEvent::MouseMove, grab + QPoint(80, 80), Qt::NoButton);
    QCOMPARE(win.pos(), start + QPoint(30, 25));
}

void TstKitMainWindow::titleDeletedDuringDrag()
{
    CQMainWindow win;
    win.resize(600, 400);
    QPointer<QWidget> title = makeTitle(46);
    auto* body = new QWidget;
    win.setTitleWidget(title);
    win.setBodyWidget(body);
    win.show();
    QVERIFY(QTest::qWaitForWindowExposed(&win));
    QPoint const grab = title->mapToGlobal(QPoint(10, 10));
    sendMouse(title, QEvent::MouseButtonPress, grab, Qt::LeftButton);
    delete title;
    QVERIFY(win.titleWidget() == nullptr);
    QCOMPARE(body->geometry(), QRect(0, 0, 600, 400));
    QPoint const pos = win.pos();
    sendMouse(&win, QEvent::MouseMove, grab + QPoint(50, 50), Qt::LeftButton);
    QCOMPARE(win.pos(), pos);
}

void TstKitMainWindow::hideVeto_data()
{
    QTest::addColumn<bool>("viaClose");
    QTest::addColumn<bool>("allowHide");
    QTest::newRow("hide allowed") << false << true;
    QTest::newRow("hide vetoed") << false << false;
    // One question per close, even though close() hides through setVisible.
    QTest::newRow("close allowed") << true << true;
    QTest::newRow("close vetoed") << true << false;
}

void TstKitMainWindow::hideVeto()
{
    QFETCH(bool, viaClose);
    QFETCH(bool, allowHide);
    QPointer<HookedWindow> win = new HookedWindow;
    win->setAttribute(Qt::WA_DeleteOnClose);
    win->allowHide = allowHide;
    win->resize(200, 100);
    win->activateShow();   // preShowEvent answers false: the window still shows
    QVERIFY(win->isVisible());
    win->show();   // already shown: no second round of hooks
    if (viaClose)
        QCOMPARE(win->close(), allowHide);
    else
        win->hide();
    QStringList expected{"preShow", "postShow", "preHide"};
    if (allowHide)
        expected << QStringLiteral("postHide");
    QCOMPARE(win->calls, expected);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(win.isNull(), viaClose && allowHide);
    if (win) {
        QCOMPARE(win->isVisible(), !allowHide);
        win->allowHide = true;
        delete win;
    }
}

QTEST_MAIN(TstKitMainWindow)
#include "tst_kit_mainwindow.moc"
