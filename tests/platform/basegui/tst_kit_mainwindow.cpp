#include "cqmainwindow.h"
#include "framelinkproxy.h"
#include "framelinkproxyinterface.h"

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
    void geometry_data();
    void geometry();
    void bodyMount_data();
    void bodyMount();
    void bodyDeletedByOwner();
    void titleReplacedIsDetached();
    void titleDragMovesWindow();
    void titleDeletedDuringDrag();
    void borderStaysOnTop();
    void hideVeto_data();
    void hideVeto();
    void closeVeto_data();
    void closeVeto();
};

void TstKitMainWindow::geometry_data()
{
    QTest::addColumn<QSize>("window");
    QTest::addColumn<int>("titleHeight");   // 0: no title
    QTest::addColumn<QRect>("titleRect");
    QTest::addColumn<QRect>("bodyRect");
    QTest::newRow("host main window") << QSize(1000, 580) << 46 << QRect(0, 0, 1000, 46) << QRect(0, 46, 1000, 534);
    QTest::newRow("no title") << QSize(1000, 580) << 0 << QRect() << QRect(0, 0, 1000, 580);
    // A title of fixed height keeps it; the body gets what is left, never less than nothing.
    QTest::newRow("title taller than window") << QSize(300, 40) << 46 << QRect(0, 0, 300, 46) << QRect(0, 46, 300, 0);
}

void TstKitMainWindow::geometry()
{
    QFETCH(QSize, window);
    QFETCH(int, titleHeight);
    QFETCH(QRect, titleRect);
    QFETCH(QRect, bodyRect);
    CQMainWindow win;
    win.resize(window);
    QWidget* title = titleHeight > 0 ? makeTitle(titleHeight) : nullptr;
    auto* body = new QWidget;
    win.setTitleWidget(title);
    win.setBodyWidget(body);
    if (title) {
        QCOMPARE(title->parentWidget(), &win);
        QCOMPARE(title->geometry(), titleRect);
    }
    QCOMPARE(body->parentWidget(), &win);
    QCOMPARE(body->geometry(), bodyRect);
    QVERIFY(win.windowFlags() & Qt::FramelessWindowHint);
}

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
    win.resize(1000, 580);
    win.setTitleWidget(makeTitle(46));
    QWidget frame;
    Mountable nav;
    if (mountFirst)
        QVERIFY(nav.mount(mountedAs, &frame));
    win.setBodyMountName(wanted);
    if (!mountFirst)
        QVERIFY(nav.mount(mountedAs, &frame));
    QCoreApplication::processEvents();

    QCOMPARE(win.bodyWidget() == &frame, taken);
    if (taken) {
        QCOMPARE(frame.parentWidget(), &win);
        QCOMPARE(frame.geometry(), QRect(0, 46, 1000, 534));
        frame.setParent(nullptr);   // the stack frame outlives nothing it does not own
    }
}

void TstKitMainWindow::bodyDeletedByOwner()
{
    CQMainWindow win;
    win.resize(400, 300);
    QPointer<QWidget> body = new QWidget;
    Mountable nav;
    QVERIFY(nav.mount(QStringLiteral("Body_Deleted"), body));
    win.setBodyMountName(QStringLiteral("Body_Deleted"));
    QCOMPARE(win.bodyWidget(), body.data());
    delete body;
    QVERIFY(win.bodyWidget() == nullptr);
    win.resize(500, 400);   // relayout with nothing to place
    win.setTitleWidget(makeTitle(30));
    QCOMPARE(win.titleWidget()->geometry(), QRect(0, 0, 500, 30));
}

void TstKitMainWindow::titleReplacedIsDetached()
{
    CQMainWindow win;
    win.resize(600, 400);
    win.show();
    QPointer<QWidget> first = makeTitle(46);
    win.setTitleWidget(first);
    win.setTitleWidget(makeTitle(30));
    QVERIFY(!first.isNull());   // never deleted by the window
    QVERIFY(first->parentWidget() == nullptr);
    QVERIFY(!first->isVisible());
    QCOMPARE(win.titleWidget()->geometry(), QRect(0, 0, 600, 30));
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
    win.resize(700, 450);
    QCOMPARE(body->geometry(), QRect(0, 0, 700, 450));
}

void TstKitMainWindow::borderStaysOnTop()
{
    CQMainWindow win;
    win.resize(300, 200);
    win.setBodyWidget(new QWidget);
    new QWidget(&win);   // added later, by a subclass or a plugin
    QTRY_COMPARE(win.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).last()->objectName(), QStringLiteral("m_pBorderWin"));
    QWidget* border = win.findChild<QWidget*>(QStringLiteral("m_pBorderWin"));
    QVERIFY(border->testAttribute(Qt::WA_TransparentForMouseEvents));
    QCOMPARE(border->geometry(), win.rect());
}

void TstKitMainWindow::hideVeto_data()
{
    QTest::addColumn<bool>("allowHide");
    QTest::addColumn<bool>("visibleAfter");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("hide allowed") << true << false << QStringList{"preShow", "postShow", "preHide", "postHide"};
    QTest::newRow("hide vetoed") << false << true << QStringList{"preShow", "postShow", "preHide"};
}

void TstKitMainWindow::hideVeto()
{
    QFETCH(bool, allowHide);
    QFETCH(bool, visibleAfter);
    QFETCH(QStringList, calls);
    HookedWindow win;
    win.allowHide = allowHide;
    win.resize(200, 100);
    // preShowEvent answers false: the window still shows.
    win.activateShow();
    QVERIFY(win.isVisible());
    win.show();   // already shown: no second round of hooks
    win.hide();
    QCOMPARE(win.isVisible(), visibleAfter);
    QCOMPARE(win.calls, calls);
    win.allowHide = true;
}

void TstKitMainWindow::closeVeto_data()
{
    QTest::addColumn<bool>("allowHide");
    QTest::addColumn<bool>("alive");
    QTest::addColumn<QStringList>("calls");
    // One question per close, even though close() hides through setVisible.
    QTest::newRow("close allowed") << true << false << QStringList{"preShow", "postShow", "preHide", "postHide"};
    QTest::newRow("close vetoed") << false << true << QStringList{"preShow", "postShow", "preHide"};
}

void TstKitMainWindow::closeVeto()
{
    QFETCH(bool, allowHide);
    QFETCH(bool, alive);
    QFETCH(QStringList, calls);
    QPointer<HookedWindow> win = new HookedWindow;
    win->setAttribute(Qt::WA_DeleteOnClose);
    win->allowHide = allowHide;
    win->resize(200, 100);
    win->show();
    QCOMPARE(win->close(), allowHide);
    QCOMPARE(win->calls, calls);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(!win.isNull(), alive);
    if (win) {
        QVERIFY(win->isVisible());
        win->allowHide = true;
        delete win;
    }
}

QTEST_MAIN(TstKitMainWindow)
#include "tst_kit_mainwindow.moc"
