// About dialog: the short client version and the keyed badge row.

#include "cWinAbout.h"
#include "cWinAbout_p.h"
#include "myStackedWins1.h"

#include <QLabel>
#include <QLayout>
#include <QtTest>

namespace {

QList<QWidget*> rowOrder(QWidget* row)
{
    QList<QWidget*> order;
    for (int i = 0; i < row->layout()->count(); ++i) {
        if (QWidget* w = row->layout()->itemAt(i)->widget())
            order << w;
    }
    return order;
}

} // namespace

class TstTargetsAbout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(ui_base); }

    // Cut at the first dot from position 3 on, so a one- or two-digit major
    // keeps its minor.
    void simpleClientVersion_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QString>("expected");
        QTest::newRow("two-digit major") << "10.0.0.7550" << "10.0";
        QTest::newRow("one-digit major") << "1.0.0.7550" << "1.0";
        QTest::newRow("dots at 0 and 2 skipped") << ".1.2.3" << ".1.2";
        QTest::newRow("dot at 1 only") << "1.0" << "1.0";
        QTest::newRow("three-digit major") << "100.5.1" << "100";
        QTest::newRow("no dot") << "7550" << "7550";
        QTest::newRow("empty") << "" << "";
    }
    void simpleClientVersion()
    {
        QFETCH(QString, version);
        QFETCH(QString, expected);
        QCOMPARE(CWinAboutPrivate::GetSimpleClientVersion(version), expected);
    }

    // Badges stand around the dialog's own version badge (key 10) in key
    // order; the first at a key wins; the dialog hands them back when it goes.
    void badges()
    {
        QPointer<CWinAbout> about = new CWinAbout(nullptr);
        auto* row = about->findChild<MyStackedWins1*>(QStringLiteral("MyStackedWins1"));
        auto* version = about->findChild<QLabel*>(QStringLiteral("m_pLabClientVersionSimple"));
        QLabel left, right, dup;
        auto* gone = new QLabel;
        QCOMPARE(about->registerItem(&right, 20), 0);
        QCOMPARE(about->registerItem(&left, 5), 0);
        QCOMPARE(about->registerItem(&dup, 5), -1);
        QCOMPARE(about->registerItem(nullptr, 7), -1);
        QCOMPARE(about->registerItem(gone, 30), 0);
        delete gone;
        QCOMPARE(rowOrder(row), (QList<QWidget*>{&left, version, &right}));
        QCOMPARE(about->unRegisterItem(10), -1);
        QCOMPARE(about->unRegisterItem(99), -1);
        QCOMPARE(about->unRegisterItem(5), 0);
        QVERIFY(left.isHidden());
        QCOMPARE(about->registerItem(&dup, 30), 0);   // freed by the deletion
        QCOMPARE(rowOrder(row), (QList<QWidget*>{version, &right, &dup}));
        about->show();
        about->slot_close();
        QTRY_VERIFY(about.isNull());
        QVERIFY(!right.parentWidget() && !dup.parentWidget());
    }
};

QTEST_MAIN(TstTargetsAbout)
#include "tst_targets_about.moc"
