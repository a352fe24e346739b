// About dialog: the short client version and the keyed badge row.

#include "basepluginmodeldatainterface.h"
#include "cWinAbout.h"
#include "cWinAbout_p.h"
#include "clientUpgradeItemWin.h"
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
        QCOMPARE(about->unRegisterItem(99), -1);
        QCOMPARE(about->unRegisterItem(5), 0);
        QVERIFY(left.isHidden());
        QCOMPARE(about->registerItem(&dup, 30), 0);   // freed by the deletion
        QCOMPARE(rowOrder(row), (QList<QWidget*>{version, &right, &dup}));
        QCOMPARE(about->unRegisterItem(10), 0);
        QCOMPARE(rowOrder(row), (QList<QWidget*>{&right, &dup}));
        about->show();
        about->slot_close();
        QTRY_VERIFY(about.isNull());
        QVERIFY(!right.parentWidget() && !dup.parentWidget());
    }

    // Opening and closing the dialog, with badges and with its own version
    // badge taken out, leaves no widget behind.
    void openCloseCyclesLeaveNoWidgets_data()
    {
        QTest::addColumn<bool>("takeOutVersion");
        QTest::newRow("badges") << false;
        QTest::newRow("version badge taken out") << true;
    }
    void openCloseCyclesLeaveNoWidgets()
    {
        QFETCH(bool, takeOutVersion);
        QLabel badge;
        int const before = QApplication::allWidgets().size();
        for (int i = 0; i < 5; ++i) {
            QPointer<CWinAbout> about = new CWinAbout(nullptr);
            about->registerItem(&badge, 20);
            if (takeOutVersion)
                about->unRegisterItem(10);
            about->show();
            about->slot_close();
            QTRY_VERIFY(about.isNull());
        }
        QCOMPARE(QApplication::allWidgets().size(), before);
        QVERIFY(!badge.parentWidget());
    }

    // Versions arrive from the backend; a '<' in them is shown, not obeyed.
    void backendVersionsArePlainText_data()
    {
        QTest::addColumn<int>("where");   // 0 about: virus library, 1 upgrade item: client
        QTest::newRow("about, virus library") << 0;
        QTest::newRow("upgrade item, client") << 1;
    }
    void backendVersionsArePlainText()
    {
        QFETCH(int, where);
        QString const markup = QStringLiteral("<b>9.9</b><img src=x>");
        CWinAbout about(nullptr);
        ClientUpgradeItemWin item;
        BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
        QLabel* label = nullptr;
        if (where == 0) {
            emit bridge->sig_setVirusDataVersionInfo(markup);
            label = about.findChild<QLabel*>(QStringLiteral("m_pLabVirusDataVersionInfo"));
        } else {
            emit bridge->sig_setClientVersionInfo(markup);
            label = item.findChild<QLabel*>(QStringLiteral("m_pLabelVersion"));
        }
        QVERIFY(label && label->text().endsWith(markup));
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }
};

QTEST_MAIN(TstTargetsAbout)
#include "tst_targets_about.moc"
