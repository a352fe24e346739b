#include "msgmgrwininterface.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

class TestMsgMgrWin : public QObject
{
    Q_OBJECT
private slots:
    void preCloseOnceOnClose();
    void preCloseWhenDeletedUnclosed();
    void uiTypeAndMetaType();
};

void TestMsgMgrWin::preCloseOnceOnClose()
{
    auto* win = new MsgMgrWinInterface(nullptr, "{id-1}");
    win->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<MsgMgrWinInterface> guard(win);
    QSignalSpy spy(win, &MsgMgrWinInterface::sig_preClose);
    win->show();
    win->close();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("{id-1}"));
    QTRY_VERIFY(guard.isNull());
    QCOMPARE(spy.count(), 1);   // not again from the destructor
}

void TestMsgMgrWin::preCloseWhenDeletedUnclosed()
{
    auto* win = new MsgMgrWinInterface(nullptr, "x");
    QStringList ids;
    connect(win, &MsgMgrWinInterface::sig_preClose, this, [&ids](QString id) { ids << id; });
    delete win;
    QCOMPARE(ids, QStringList({"x"}));
}

void TestMsgMgrWin::uiTypeAndMetaType()
{
    MsgMgrWinInterface win(nullptr, "id");
    QCOMPARE(win.changUIType(MsgMgrWinInterface::EUITYPE_COMPACT), 0);
    QCOMPARE(win.uiType(), MsgMgrWinInterface::EUITYPE_COMPACT);
    // Queued connections carry the record once it is registered.
    QCOMPARE(QMetaType::type("sMsgMgrWinInfo"), MsgMgrWinInterface::registerMetaType());
}

QTEST_MAIN(TestMsgMgrWin)
#include "tst_nav_msgmgrwin.moc"
