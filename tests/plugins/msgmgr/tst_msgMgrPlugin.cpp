// "EPLUGIN_ID_MSGMGR" loaded from build/lib/plugins-gui and driven through
// execCmd with pop-ups of known heights (160 alone, 100 compact) on the
// offscreen screen (800 x 600: three fit alone, five compact).

#include "testLogCapture.h"
#include "testMsgMgrFixture.h"
#include "testMsgWin.h"

#include <QPointer>
#include <QScreen>
#include <QWindow>
#include <QtTest>

namespace {

int const kMargin = 12;
int const kSpacing = 8;

QRect screenArea()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

using Wins = QList<QPointer<TestMsgWin>>;

// Registers `count` new pop-ups, oldest first.
Wins registerMany(int count, QString const& prefix = QStringLiteral("n"))
{
    Wins wins;
    for (int i = 0; i < count; ++i) {
        wins << new TestMsgWin(prefix + QString::number(i));
        TestMsgMgrFixture::registerWin(wins.last());
    }
    return wins;
}

// The shown ones stand right-aligned in `area`, the first on the bottom margin,
// each one spacing above the previous, all `height` tall; the rest are hidden.
void checkColumn(Wins const& shown, Wins const& hidden, int height, QRect const& area = screenArea())
{
    int bottom = area.y() + area.height() - kMargin;
    for (QPointer<TestMsgWin> const& win : shown) {
        QVERIFY(win && win->isVisible());
        QCOMPARE(win->geometry(), QRect(area.x() + area.width() - kMargin - 380, bottom - height, 380, height));
        bottom -= height + kSpacing;
    }
    for (QPointer<TestMsgWin> const& win : hidden)
        QVERIFY(win && !win->isVisible());
}

void closeAll(Wins const& wins)
{
    for (QPointer<TestMsgWin> const& win : wins)
        delete win.data();
}

} // namespace

class TstMsgMgrPlugin : public QObject
{
    Q_OBJECT

    QScopedPointer<TestMsgMgrFixture> m_fixture;

private slots:
    void initTestCase()
    {
        if (!TestMsgMgrFixture::moduleBuilt())
            QSKIP("the message manager module is not built");
        if (screenArea().size() != QSize(800, 600))
            QSKIP("the expected values assume the offscreen 800 x 600 screen");
    }
    void init()
    {
        m_fixture.reset(new TestMsgMgrFixture);
        QVERIFY(m_fixture->loaded());
    }
    void cleanup() { m_fixture.reset(); }

    void shownInTheCornerWithoutTakingTheFocus_data()
    {
        QTest::addColumn<bool>("shownBySender");
        QTest::newRow("registered hidden") << false;
        QTest::newRow("shown by its sender first") << true;
    }
    void shownInTheCornerWithoutTakingTheFocus()
    {
        QFETCH(bool, shownBySender);
        QPointer<TestMsgWin> win = new TestMsgWin(QStringLiteral("notice"));
        if (shownBySender)
            win->show();
        QCOMPARE(TestMsgMgrFixture::registerWin(win), QVariant(0));

        checkColumn({win}, {}, 160);
        // The offscreen platform activates every window it shows, so what is
        // checked is what keeps a real window manager from doing so, down to
        // the native window.
        Qt::WindowFlags const wanted = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
        QCOMPARE(win->windowFlags() & wanted, wanted);
        QVERIFY(win->windowHandle()->flags() & Qt::WindowDoesNotAcceptFocus);
        QVERIFY(win->testAttribute(Qt::WA_ShowWithoutActivating));
        win->close();
        QTRY_VERIFY(!win);
    }

    void refusedPayloads_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("logLine");
        QTest::newRow("empty payload") << 0 << "register win payload is [invalid], not sMsgMgrWinInfo, ignored";
        QTest::newRow("text payload") << 1 << "register win payload is [QString], not sMsgMgrWinInfo, ignored";
        QTest::newRow("null window") << 2 << "win [gone] of [EPLUGIN_ID_BASE] is not a live window, ignored";
        QTest::newRow("deleted window") << 3 << "win [gone] of [EPLUGIN_ID_BASE] is not a live window, ignored";
        QTest::newRow("child widget") << 4 << "win [gone] of [EPLUGIN_ID_BASE] is not a live window, ignored";
        QTest::newRow("closed window") << 5 << "win [gone] registered after its close, ignored";
    }
    void refusedPayloads()
    {
        QFETCH(int, kind);
        QFETCH(QString, logLine);
        TestLogCapture log;
        QWidget parent;
        sMsgMgrWinInfo info;
        info.winId = QStringLiteral("gone");
        info.ownerPluginId = QStringLiteral("EPLUGIN_ID_BASE");
        switch (kind) {
        case 3: {
            auto* doomed = new TestMsgWin(info.winId);
            info.window = doomed;
            delete doomed;
            break;
        }
        case 4:
            info.window = new MsgMgrWinInterface(&parent, info.winId);
            break;
        case 5:
            info.window = new TestMsgWin(info.winId);
            TestMsgMgrFixture::registerWin(info.window);
            info.window->close();
            break;
        }
        QVariant const payload = kind == 0 ? QVariant()
                                 : kind == 1 ? QVariant(QStringLiteral("win"))
                                             : QVariant::fromValue(info);

        QCOMPARE(TestMsgMgrFixture::send(payload), QVariant(-1));
        QCOMPARE(log.count(logLine), 1);
        QVERIFY(log.lines().filter(logLine).first().contains(QStringLiteral(" ERROR ")));
        // Other commands on the bus are none of its business.
        QCOMPARE(TestMsgMgrFixture::send(payload, QStringLiteral("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW")),
                 QVariant());
    }

    void stacksCompactsQueuesAndClosesTheGap()
    {
        Wins wins = registerMany(7);
        checkColumn(wins.mid(0, 5), wins.mid(5), 100);
        wins.last()->show(); // by its owner, while it waits
        QTRY_VERIFY(!wins.last()->isVisible());
        QPoint const placeOfSecond = wins.at(1)->pos();

        wins.at(1)->close();
        QTRY_VERIFY(!wins.at(1));
        wins.removeAt(1);
        checkColumn(wins.mid(0, 5), wins.mid(5), 100);
        QCOMPARE(wins.at(1)->pos(), placeOfSecond);

        delete wins.takeFirst().data(); // deleted by its owner, shown
        delete wins.takeLast().data();  // deleted by its owner, queued
        checkColumn(wins, {}, 100);
        wins.at(0)->close();
        QTRY_VERIFY(!wins.at(0));
        wins.removeFirst();
        checkColumn(wins, {}, 160);
        for (QPointer<TestMsgWin> const& win : qAsConst(wins))
            QCOMPARE(win->uiType(), MsgMgrWinInterface::EUITYPE_ALONE);
        closeAll(wins);
    }

    void updatedWindowKeepsItsPlace()
    {
        Wins wins = registerMany(3);
        wins.at(0)->setHeights(200, 120);
        QCOMPARE(TestMsgMgrFixture::registerWin(wins.at(0)), QVariant(0));
        checkColumn(wins.mid(0, 1), {}, 200);
        QCOMPARE(wins.at(1)->geometry().bottom() + 1 + kSpacing, wins.at(0)->y());
        // Grown by its owner alone: the stack hears the resize.
        wins.at(1)->setHeights(180, 110);
        QTRY_COMPARE(wins.at(2)->geometry().bottom() + 1 + kSpacing, wins.at(1)->y());
        QCOMPARE(wins.at(1)->geometry().bottom() + 1 + kSpacing, wins.at(0)->y());
        closeAll(wins);
    }

    void screenChangesRestack()
    {
        Wins wins = registerMany(3);
        TestMsgMgrFixture::changeArea(QRect(0, 0, 800, 400));
        checkColumn(wins, {}, 100, QRect(0, 0, 800, 400));
        // The panel moved to the left and the top.
        QRect const moved(120, 40, 600, 300);
        TestMsgMgrFixture::changeArea(moved);
        checkColumn(wins.mid(0, 2), wins.mid(2), 100, moved);
        TestMsgMgrFixture::changeArea(screenArea());
        checkColumn(wins, {}, 160);
        closeAll(wins);
    }

    // A flood of notices: past 64 held windows a newcomer is closed at once.
    void floodIsBounded()
    {
        Wins wins = registerMany(64);
        QPointer<TestMsgWin> extra = new TestMsgWin(QStringLiteral("extra"));
        QCOMPARE(TestMsgMgrFixture::registerWin(extra), QVariant(-1));
        QTRY_VERIFY(!extra);
        wins.first()->close();
        QTRY_VERIFY(!wins.first());
        extra = new TestMsgWin(QStringLiteral("extra"));
        QCOMPARE(TestMsgMgrFixture::registerWin(extra), QVariant(0));
        closeAll(wins << extra);
    }

    void unloadClosesWhatItHolds()
    {
        Wins wins = registerMany(7);
        QVERIFY(CQPluginManager::singleInstance()->unloadPlugin(QStringLiteral("EPLUGIN_ID_MSGMGR")));
        TestMsgMgrFixture::flushDeletes();
        for (QPointer<TestMsgWin> const& win : qAsConst(wins))
            QVERIFY(!win);
    }
};

QTEST_MAIN(TstMsgMgrPlugin)
#include "tst_msgMgrPlugin.moc"
