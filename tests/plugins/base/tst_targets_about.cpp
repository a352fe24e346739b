// About dialog: badge row, version lines and dragging.

#include "cWinAbout.h"
#include "cWinAbout_p.h"
#include "myStackedWins1.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {
QList<QWidget*> rowOrder(QWidget* row)
{
    QList<QWidget*> order;
    QLayout* layout = row->layout();
    for (int i = 0; layout && i < layout->count(); ++i) {
        if (QWidget* w = layout->itemAt(i)->widget())
            order << w;
    }
    return order;
}

void sendMouse(QWidget* w, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons, QPoint const& global)
{
    QMouseEvent event(type, w->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(w, &event);
}
} // namespace

class TstTargetsAbout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#endif
    }

    void simpleClientVersion_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QString>("expected");
        QTest::newRow("two-digit major") << "10.0.0.7550" << "10.0";
        QTest::newRow("one-digit major") << "1.0.0.7550" << "1.0";
        QTest::newRow("no dot") << "10" << "10";
        QTest::newRow("dot only before position 3") << "1.2" << "1.2";
        QTest::newRow("empty") << "" << "";
        QTest::newRow("dot at position 3") << "100.5.1" << "100";
    }
    void simpleClientVersion()
    {
        QFETCH(QString, version);
        QFETCH(QString, expected);
        QCOMPARE(CWinAboutPrivate::GetSimpleClientVersion(version), expected);
    }

    void badgesStandAroundTheVersionBadge()
    {
        QPointer<CWinAbout> about = new CWinAbout(nullptr);
        auto* row = about->findChild<MyStackedWins1*>(QStringLiteral("MyStackedWins1"));
        QVERIFY(row);
        auto* version = about->findChild<QLabel*>(QStringLiteral("m_pLabClientVersionSimple"));
        QVERIFY(version);
        QLabel left("left"), right("right"), dup("dup");
        QCOMPARE(about->registerItem(&right, 20), 0);
        QCOMPARE(about->registerItem(&left, 5), 0);
        QCOMPARE(about->registerItem(&dup, 5), -1);
        QCOMPARE(about->registerItem(nullptr, 7), -1);
        QCOMPARE(rowOrder(row), (QList<QWidget*>{&left, version, &right}));
        // The dialog's own badge cannot be taken out by key.
        QCOMPARE(about->unRegisterItem(10), -1);
        QCOMPARE(about->unRegisterItem(99), -1);
        QCOMPARE(about->unRegisterItem(5), 0);
        QVERIFY(left.isHidden());
        QCOMPARE(rowOrder(row), (QList<QWidget*>{version, &right}));
        delete about.data();
        // Deleted on every close: the plugins' badges come back alive.
        QVERIFY(right.parentWidget() == nullptr);
    }

    void deletedBadgeDropsOut()
    {
        CWinAbout about(nullptr);
        auto* gone = new QLabel("gone");
        QCOMPARE(about.registerItem(gone, 30), 0);
        delete gone;
        QLabel again("again");
        QCOMPARE(about.registerItem(&again, 30), 0);
        QCOMPARE(about.unRegisterItem(30), 0);
    }

    void closeDeletesTheDialog()
    {
        QPointer<CWinAbout> about = new CWinAbout(nullptr);
        about->show();
        about->slot_close();
        QTRY_VERIFY(about.isNull());
    }

    void versionLines()
    {
        CWinAbout about(nullptr);
        auto* virus = about.findChild<QLabel*>(QStringLiteral("m_pLabVirusDataVersionInfo"));
        auto* client = about.findChild<QLabel*>(QStringLiteral("m_pLabClientVersionInfo"));
        auto* simple = about.findChild<QLabel*>(QStringLiteral("m_pLabClientVersionSimple"));
        QVERIFY(virus && client && simple);
        // The bridge answers the dialog's request on its own.
        QTRY_VERIFY(client->text().size() > QStringLiteral("客户端版本：").size());
        QVERIFY(simple->text().startsWith(QLatin1Char('V')));

        about.slot_setVirusDataVersionInfo(QString());
        QCOMPARE(virus->text(), QStringLiteral("病毒库版本："));
        about.slot_setVirusDataVersionInfo(QStringLiteral("2024.05.01"));
        QCOMPARE(virus->text(), QStringLiteral("病毒库版本：2024.05.01"));
        about.slot_setClientVersionInfo(QStringLiteral("10.0.0.7550"));
        QCOMPARE(simple->text(), QStringLiteral("V10.0"));
        QVERIFY(client->text().startsWith(QStringLiteral("客户端版本：")));
        QVERIFY(client->text().contains(QStringLiteral("7550")));
    }

    void dragging()
    {
        CWinAbout about(nullptr);
        about.move(100, 100);
        QPoint const start = about.pos();
        QPoint const grab = start + QPoint(20, 20);

        // Right button: no drag.
        sendMouse(&about, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, grab);
        sendMouse(&about, QEvent::MouseMove, Qt::NoButton, Qt::RightButton, grab + QPoint(50, 30));
        QCOMPARE(about.pos(), start);
        sendMouse(&about, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, grab + QPoint(50, 30));

        // Left button drags by the offset of the press.
        sendMouse(&about, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, grab);
        sendMouse(&about, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, grab + QPoint(50, 30));
        QCOMPARE(about.pos(), start + QPoint(50, 30));

        // Releasing the right button during the drag ends it.
        sendMouse(&about, QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton, grab + QPoint(50, 30));
        sendMouse(&about, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, grab + QPoint(90, 90));
        QCOMPARE(about.pos(), start + QPoint(50, 30));
    }
};

QTEST_MAIN(TstTargetsAbout)
#include "tst_targets_about.moc"
