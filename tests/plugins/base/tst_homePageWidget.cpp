// The home page's column of keyed rows, its data area, card row and title,
// and the two parts the plugin puts on it: the message tip and the version card.

#include "bridgerecords.h"
#include "cardsWin.h"
#include "cqlabel.h"
#include "dravoguiconfig.h"
#include "homePageWidget.h"
#include "messageTip.h"
#include "submessagetipiteminterface.h"
#include "testBackend.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"
#include "upgradepluginmodeldatainterface.h"
#include "versionStatusCardWin.h"

#include <QAction>
#include <QLayout>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QWidget* row(QString const& name, QWidget* parent = nullptr)
{
    auto* w = new QWidget(parent);
    w->setObjectName(name);
    w->setFixedSize(100, 20);
    return w;
}

_VERINFO_ entry(int kind, QString const& version)
{
    _VERINFO_ info;
    info.kind = kind;
    info.version = version;
    return info;
}

} // namespace

class TestHomePageWidget : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void initTestCase() { Q_INIT_RESOURCE(ui_base); }
    void cleanup() { DravoGuiConfig::setConfigPath(QString()); }

    // Built in: title (key 10) at 30, data area (20) 12 px below it, card row
    // (30) 40 px below that; a row's extra is its gap to the row above.
    void registerItem_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("extra");
        QTest::addColumn<int>("expectedY");   // -1: refused
        QTest::newRow("25, 8 px below the data area") << 25 << 8 << (94 + 60 + 8);
        QTest::newRow("5, above the title") << 5 << 0 << 0;
        QTest::newRow("99, below the cards") << 99 << 4 << (94 + 60 + 40 + 130 + 4);
        QTest::newRow("20 taken") << 20 << 8 << -1;
    }
    void registerItem()
    {
        QFETCH(int, key);
        QFETCH(int, extra);
        QFETCH(int, expectedY);
        HomePageWidget home;
        home.show();
        QWidget owner;
        QWidget* w = row(QStringLiteral("row"), &owner);
        QCOMPARE(home.registerItem(record(w, key, extra)), expectedY < 0 ? -1 : 0);
        home.layout()->activate();
        if (expectedY < 0) {
            QCOMPARE(w->parentWidget(), &owner);
            QCOMPARE(home.dataArea()->geometry().top(), 94);
            return;
        }
        QCOMPARE(w->parentWidget(), &home);
        QCOMPARE(w->geometry().topLeft(), QPoint(40 + (772 - 100) / 2, expectedY));
    }

    // Out of the column, but neither hidden nor deleted by the page; a row
    // deleted by its owner frees its key.
    void unRegisterItemAndDeletedRow()
    {
        HomePageWidget home;
        home.show();
        QPointer<QWidget> w = row(QStringLiteral("row"));
        QCOMPARE(home.unRegisterItem(25), -1);
        QCOMPARE(home.registerItem(record(w, 25, 8)), 0);
        QCOMPARE(home.unRegisterItem(25), 0);
        QCOMPARE(home.unRegisterItem(25), -1);
        home.layout()->activate();
        QVERIFY(w && !w->isHidden());
        QCOMPARE(home.layout()->indexOf(w), -1);
        QCOMPARE(home.cardsWin()->geometry().top(), 94 + 60 + 40);

        QCOMPARE(home.registerItem(record(w, 25, 8)), 0);
        delete w.data();
        QWidget owner;
        QCOMPARE(home.registerItem(record(row("other", &owner), 26)), 0);
        QVERIFY(!home.hasItem(25));
        QCOMPARE(home.registerItem(record(row("again", &owner), 25)), 0);
    }

    // Two named widgets exclude each other in the data area, the engine status
    // taking precedence; any other names live side by side.
    void dataArea_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<bool>("secondTaken");
        QTest::addColumn<bool>("firstSurvives");
        QTest::newRow("engine replaces guard days") << "CumulativeGuardDays" << "engineStatusWidget" << true << false;
        QTest::newRow("guard days refused after engine") << "engineStatusWidget" << "CumulativeGuardDays" << false << true;
        QTest::newRow("two others both kept") << "statusA" << "statusB" << true << true;
        QTest::newRow("guard days beside another") << "statusA" << "CumulativeGuardDays" << true << true;
    }
    void dataArea()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        QFETCH(bool, secondTaken);
        QFETCH(bool, firstSurvives);
        HomePageWidget home;
        home.show();
        QPointer<QWidget> a = row(first);
        QWidget owner;
        QWidget* b = row(second, &owner);
        QCOMPARE(home.registerItem2DataArea(record(a, 0, QPoint(0, 14))), 0);
        QCOMPARE(home.registerItem2DataArea(record(b, 0, QPoint(200, 3))), secondTaken ? 0 : -1);
        QCOMPARE(b->parentWidget(), secondTaken ? home.dataArea() : &owner);
        if (secondTaken)
            QVERIFY(b->isVisible() && b->pos() == QPoint(200, 3));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(!a.isNull(), firstSurvives);
        QAction action(nullptr);
        QCOMPARE(home.registerItem2DataArea(record(&action, 0, QPoint(1, 1))), -1);
        QCOMPARE(home.registerItem2DataArea(record(nullptr, 0)), -1);
    }

    // At most four cards in ascending key order; the rest stay registered and
    // move up when a shown one leaves.
    void cards_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<int>("removeKey");   // 0: remove nothing
        QTest::addColumn<QList<int>>("shown");
        QTest::newRow("five, one removed") << QList<int>{1, 2, 3, 4, 5} << 2 << QList<int>{1, 3, 4, 5};
        QTest::newRow("lower key pushes the highest out") << QList<int>{10, 20, 30, 40, 5} << 0 << QList<int>{5, 10, 20, 30};
        QTest::newRow("version card after module cards") << QList<int>{1000, 1, 2} << 0 << QList<int>{1, 2, 1000};
        QTest::newRow("unknown key removed") << QList<int>{1, 2} << 7 << QList<int>{1, 2};
    }
    void cards()
    {
        QFETCH(QList<int>, keys);
        QFETCH(int, removeKey);
        QFETCH(QList<int>, shown);
        HomePageWidget home;
        home.show();
        QMap<int, QWidget*> cards;
        for (int key : keys) {
            cards.insert(key, row(QString::number(key)));
            QCOMPARE(home.registerItem2CardArea(record(cards[key], key)), 0);
        }
        if (removeKey)
            QCOMPARE(home.unRegisterItem2CardArea(removeKey), 0);
        home.cardsWin()->layout()->activate();
        QList<int> laidOut;
        for (int i = 0; i < home.cardsWin()->layout()->count(); ++i) {
            if (QWidget* w = home.cardsWin()->layout()->itemAt(i)->widget())
                laidOut << cards.key(w);
        }
        QCOMPARE(laidOut, shown);
        for (auto it = cards.cbegin(); it != cards.cend(); ++it)
            QCOMPARE(it.value()->isVisible(), shown.contains(it.key()));
        qDeleteAll(cards);
    }

    // A custom theme replaces the title by its home-page text; a blank one keeps
    // the title the page was given.
    void title_data()
    {
        QTest::addColumn<QString>("ini");   // "-": a missing file
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("shown");
        QString const product = QString::fromUtf8("Quorix终端安全管理系统");
        QTest::newRow("default theme") << "[branding]\ntheme=default\nhomePageContent=Hello\n" << product << product;
        QTest::newRow("custom theme") << "[branding]\ntheme=acme\nhomePageContent=  Hello Acme  \n" << product << "Hello Acme";
        QTest::newRow("custom theme, blank text") << "[branding]\ntheme=acme\nhomePageContent=   \n" << product << product;
        QTest::newRow("custom theme, no text, default title")
            << "[branding]\ntheme=acme\n" << QString::fromUtf8("安全守护每一刻") << QString::fromUtf8("安全守护每一刻");
        QTest::newRow("unreadable configuration") << "-" << product << product;
    }
    void title()
    {
        QFETCH(QString, ini);
        QFETCH(QString, given);
        QFETCH(QString, shown);
        QString const path = m_dir.filePath(ini == QLatin1String("-") ? "missing.ini" : "branding.ini");
        if (ini != QLatin1String("-")) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write(ini.toUtf8());
        }
        DravoGuiConfig::setConfigPath(path);
        HomePageWidget home;
        TestLogCapture log;
        home.updateTitle(given);
        QCOMPARE(home.titleLabel()->text(), shown);
        if (ini == QLatin1String("-"))
            QCOMPARE(log.count(QStringLiteral("[BasePlugin] get theme failed, ret is [%1]").arg(DravoGuiConfig::status())), 1);
    }

    // Panels switch among themselves; a stranger, null or unregistered panel
    // switches nothing; panels are handed back, not deleted.
    void messageTipPanels()
    {
        QPointer<SubMessageTipItemInterface> first = new SubMessageTipItemInterface;
        auto* second = new SubMessageTipItemInterface;
        QWidget stranger;
        {
            MessageTip tip(nullptr);
            QCOMPARE(tip.registerItem(nullptr), -1);
            QCOMPARE(tip.unRegisterItem(nullptr), -1);
            QCOMPARE(tip.registerItem(first), 0);
            tip.registerItem(first);   // twice: harmless
            QCOMPARE(tip.registerItem(second), 0);
            QCOMPARE(tip.stackedWidget()->count(), 2);
            QCOMPARE(tip.stackedWidget()->currentWidget(), first.data());
            emit first->sig_changeWin(second);
            QCOMPARE(tip.stackedWidget()->currentWidget(), second);
            emit second->sig_changeWin(&stranger);
            emit second->sig_changeWin(nullptr);
            QCOMPARE(tip.stackedWidget()->currentWidget(), second);
            QCOMPARE(tip.unRegisterItem(first), 0);
            QVERIFY(!first->parentWidget());
            emit first->sig_changeWin(first);   // no longer listened to
            QCOMPARE(tip.stackedWidget()->currentWidget(), second);
            delete second;   // by its owner while registered
            QCOMPARE(tip.stackedWidget()->count(), 0);
            QCOMPARE(tip.registerItem(first), 0);
        }
        QVERIFY(first && !first->parentWidget());
        delete first.data();
    }

    // Library versions from the upgrade bridge: kind 1 virus, 4 vulnerability,
    // in list order; an empty version or none at all shows "--".
    void versionCard_data()
    {
        QTest::addColumn<QList<_VERINFO_>>("versions");
        QTest::addColumn<QString>("virus");
        QTest::addColumn<QString>("vulnerability");
        QTest::newRow("both") << QList<_VERINFO_>{entry(4, "2024.04.30"), entry(1, "2024.05.01")} << "2024.05.01"
                              << "2024.04.30";
        QTest::newRow("other kinds skipped") << QList<_VERINFO_>{entry(0, "w"), entry(2, "x"), entry(7, "z")} << "--"
                                             << "--";
        QTest::newRow("last of a kind wins") << QList<_VERINFO_>{entry(4, "a"), entry(4, "b"), entry(1, "c")} << "c"
                                             << "b";
        QTest::newRow("empty version back to dashes") << QList<_VERINFO_>{entry(1, "a"), entry(1, "")} << "--" << "--";
        QTest::newRow("empty list") << QList<_VERINFO_>{} << "--" << "--";
    }
    void versionCard()
    {
        QFETCH(QList<_VERINFO_>, versions);
        QFETCH(QString, virus);
        QFETCH(QString, vulnerability);
        TestBackend::install();   // answers with no library at all
        QCoreApplication::sendPostedEvents();   // no stale answer may pass for the card's own
        QSignalSpy answered(UpgradePluginModelDataInterface::singleInstance(),
                            &UpgradePluginModelDataInterface::sig_checkUpdateInfo);
        VersionStatusCardWin card;
        QVERIFY(answered.wait());
        QCOMPARE(card.virusVersion(), QStringLiteral("--"));
        QCOMPARE(card.vulnerabilityVersion(), QStringLiteral("--"));
        card.slot_checkUpgradeInfo(QStringLiteral("test-user"), versions);
        QCOMPARE(card.virusVersion(), virus);
        QCOMPARE(card.vulnerabilityVersion(), vulnerability);
        TestBackend::restore();
    }
};

QTEST_MAIN(TestHomePageWidget)
#include "tst_homePageWidget.moc"
