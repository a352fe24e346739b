// Keys on the base plugin's windows over the main window: the quit flow's ask
// window answers Esc and Enter like the kit's prompts, and Esc on an
// administrator's restart order is no answer at all.

#include "bootWin.h"
#include "mainExitAskWin.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QtTest>

namespace {

void press(QWidget* w, int key, bool autoRepeat = false)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(w, &event);
}

} // namespace

class TestHostBaseKeys : public QObject
{
    Q_OBJECT

private slots:
    void askWindow_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("autoRepeat");
        QTest::addColumn<int>("answers");   // minimise to tray, the preset choice
        QTest::addColumn<int>("cancels");
        QTest::newRow("Esc cancels") << int(Qt::Key_Escape) << false << 0 << 1;
        QTest::newRow("Return confirms") << int(Qt::Key_Return) << false << 1 << 0;
        QTest::newRow("held-down Return") << int(Qt::Key_Return) << true << 0 << 0;
    }

    void askWindow()
    {
        QFETCH(int, key);
        QFETCH(bool, autoRepeat);
        QFETCH(int, answers);
        QFETCH(int, cancels);
        QScopedPointer<MainExitAskWin> ask(new MainExitAskWin);
        ask->setAttribute(Qt::WA_DeleteOnClose, false);
        QSignalSpy ok(ask.data(), &MainExitAskWin::sig_ok_btn_clicked);
        QSignalSpy cancel(ask.data(), &MainExitAskWin::sig_close_win);
        ask->show();
        press(ask.data(), key, autoRepeat);
        QCOMPARE(ok.count(), answers);
        QCOMPARE(cancel.count(), cancels);
        QVERIFY(!answers || ok.first().first().value<MainExitAskWin::eSelectedItem>() == MainExitAskWin::ESELECTEDITEM_MINIMIZE);
        QCOMPARE(ask->isVisible(), cancels == 0);
    }

    void escapeOnAnOrderIsNoAnswer()
    {
        QScopedPointer<BootWin> order(new BootWin(nullptr));
        order->setAttribute(Qt::WA_DeleteOnClose, false);
        order->setMethod(EDEVMGR_REBOOT);
        order->setTime(60);
        QSignalSpy boot(order.data(), &BootWin::sig_boot);
        QSignalSpy reject(order.data(), &BootWin::sig_reject);
        order->show();
        press(order.data(), Qt::Key_Escape);
        QVERIFY(order->isVisible());
        QCOMPARE(boot.count() + reject.count(), 0);
    }
};

QTEST_MAIN(TestHostBaseKeys)
#include "tst_host_basekeys.moc"
