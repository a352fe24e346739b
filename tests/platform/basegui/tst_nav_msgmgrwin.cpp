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
    void uiTypeAndRecord();
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
    QCOMPARE(spy.count(), 1);
}

void TestMsgMgrWin::preCloseWhenDeletedUnclosed()
{
    auto* win = new MsgMgrWinInterface(nullptr, "x");
    QStringList ids;
    connect(win, &MsgMgrWinInterface::sig_preClose, this, [&ids](QString id) { ids << id; });
    delete win;
    QCOMPARE(ids, QStringList({"x"}));
}

void TestMsgMgrWin::uiTypeAndRecord()
{
    MsgMgrWinInterface win(nullptr, "id");
    QCOMPARE(win.uiType(), MsgMgrWinInterface::EUITYPE_ALONE);
    QCOMPARE(win.changUIType(MsgMgrWinInterface::EUITYPE_COMPACT), 0);
    QCOMPARE(win.uiType(), MsgMgrWinInterface::EUITYPE_COMPACT);

    int const type = MsgMgrWinInterface::registerMetaType();
    QCOMPARE(QMetaType::type("sMsgMgrWinInfo"), type);
    sMsgMgrWinInfo info;
    QCOMPARE(info.priority, 10);
    QCOMPARE(info.flag, 0);
    info.window = &win;
    info.winId = win.id();
    QVariant v = QVariant::fromValue(info);
    QCOMPARE(v.value<sMsgMgrWinInfo>().window, &win);
    QCOMPARE(v.value<sMsgMgrWinInfo>().winId, QString("id"));
}

QTEST_MAIN(TestMsgMgrWin)
#include "tst_nav_msgmgrwin.moc"
