#include "cqcloudbrainlabel.h"
#include "cqframe.h"
#include "cqlogotitle.h"
#include "cqtitlebuttons.h"
#include "dravoguiconfig.h"
#include "mainWinTitleBar.h"
#include "testLogCapture.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QWidget* builtIn(MainWinTitleBar& bar, QString const& name)
{
    if (name == QLatin1String("cloud"))
        return bar.findChild<CQCloudBrainLabel*>();
    if (name == QLatin1String("dropdown"))
        return bar.findChild<CQDropDownBtn*>();
    if (name == QLatin1String("min"))
        return bar.findChild<CQMinBtn*>();
    if (name == QLatin1String("close"))
        return bar.findChild<CQCloseBtn*>();
    return nullptr;
}

CQFrame* areaFrame(MainWinTitleBar& bar, int dir)
{
    return bar.findChild<CQFrame*>(dir == 0 ? QStringLiteral("m_pLeftArea") : QStringLiteral("m_pRightArea"));
}

int layoutCount(MainWinTitleBar& bar, int dir)
{
    return areaFrame(bar, dir)->layout()->count();
}

bool inLayout(QLayout* layout, QWidget* w)
{
    return layout->indexOf(w) >= 0;
}

int xInBar(MainWinTitleBar& bar, QWidget* w)
{
    return w->mapTo(&bar, QPoint(0, 0)).x();
}

void settle(MainWinTitleBar& bar)
{
    for (int dir : {0, 1})
        areaFrame(bar, dir)->layout()->activate();
}

} // namespace

class TestMainWinTitleBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void builtInWidgetsInKeyOrder();
    void registerWin_data();
    void registerWin();
    void registerWin_nullIsIgnored();
    void registerWin_deletedByOwnerFreesPosition();
    void unRegisterWin_data();
    void unRegisterWin();
    void buttonsEmitSignals_data();
    void buttonsEmitSignals();
    void slotBaseInfo_data();
    void slotBaseInfo();
    void setBackgroundColor();
    void logo_data();
    void logo();

private:
    QTemporaryDir m_dir;
};

void TestMainWinTitleBar::init()
{
    DravoGuiConfig::setConfigPath(QString());
}

void TestMainWinTitleBar::cleanup()
{
    DravoGuiConfig::setConfigPath(QString());
}

// Right area, left to right: day counter (50), drop-down (250), minimise
// (300), close (350), packed against the right end.
void TestMainWinTitleBar::builtInWidgetsInKeyOrder()
{
    MainWinTitleBar bar;
    bar.show();
    settle(bar);
    QCOMPARE(bar.objectName(), QStringLiteral("MainWinTitleBar"));
    QVERIFY(bar.windowFlags() & Qt::FramelessWindowHint);
    QStringList const order = {"cloud", "dropdown", "min", "close"};
    for (int i = 1; i < order.size(); ++i)
        QVERIFY2(xInBar(bar, builtIn(bar, order[i - 1])) < xInBar(bar, builtIn(bar, order[i])), qPrintable(order[i]));
    QWidget* close = builtIn(bar, "close");
    QCOMPARE(close->mapTo(areaFrame(bar, 1), QPoint(close->width(), 0)).x(), 500 - 13);
    for (QString const& name : order)
        QCOMPARE(builtIn(bar, name)->size().width() > 0, true);
    QCOMPARE(builtIn(bar, "min")->size(), QSize(22, 22));
}

// Where a newly registered widget ends up. "after"/"before" name the
// neighbours it must stand right of / left of; an empty area means refused.
void TestMainWinTitleBar::registerWin_data()
{
    QTest::addColumn<int>("dir");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("area");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("before");
    QTest::newRow("right 100: between counter and drop-down") << 1 << 100 << "m_pRightArea" << "cloud" << "dropdown";
    QTest::newRow("right 51: just after the counter") << 1 << 51 << "m_pRightArea" << "cloud" << "dropdown";
    QTest::newRow("right 249: just before the drop-down") << 1 << 249 << "m_pRightArea" << "cloud" << "dropdown";
    QTest::newRow("right 400: right of close") << 1 << 400 << "m_pRightArea" << "close" << "";
    QTest::newRow("right 10: left of the counter") << 1 << 10 << "m_pRightArea" << "" << "cloud";
    QTest::newRow("right -5: negative keys order too") << 1 << -5 << "m_pRightArea" << "" << "cloud";
    QTest::newRow("right 300 taken: dropped") << 1 << 300 << "" << "" << "";
    QTest::newRow("right 50 taken: dropped") << 1 << 50 << "" << "" << "";
    QTest::newRow("left 7: free area") << 0 << 7 << "m_pLeftArea" << "" << "";
    QTest::newRow("direction 2: no area") << 2 << 100 << "" << "" << "";
    QTest::newRow("direction -1: no area") << -1 << 100 << "" << "" << "";
}

void TestMainWinTitleBar::registerWin()
{
    QFETCH(int, dir);
    QFETCH(int, pos);
    QFETCH(QString, area);
    QFETCH(QString, after);
    QFETCH(QString, before);
    MainWinTitleBar bar;
    bar.show();
    QWidget owner;
    auto* w = new QWidget(&owner);
    w->setFixedSize(20, 20);
    int const leftBefore = layoutCount(bar, 0);
    int const rightBefore = layoutCount(bar, 1);
    QWidget* min = builtIn(bar, "min");

    bar.registerWin(w, static_cast<eBaseTitleBarDir>(dir), static_cast<eBaseTitleBarObjPosID>(pos));
    settle(bar);

    // A registration relays out both areas (one more stretch in each), except
    // a second one at a taken position, which changes nothing at all.
    bool const taken = area.isEmpty() && (dir == 0 || dir == 1);
    int const relayout = taken ? 0 : 1;
    QCOMPARE(layoutCount(bar, 0), leftBefore + relayout + (area == QLatin1String("m_pLeftArea") ? 1 : 0));
    QCOMPARE(layoutCount(bar, 1), rightBefore + relayout + (area == QLatin1String("m_pRightArea") ? 1 : 0));
    if (area.isEmpty()) {
        QCOMPARE(w->parentWidget(), &owner);
        QVERIFY(!w->isVisible());
        QVERIFY(inLayout(areaFrame(bar, 1)->layout(), min));
        QCOMPARE(min->parentWidget(), areaFrame(bar, 1));
        return;
    }
    QCOMPARE(w->parentWidget()->objectName(), area);
    QVERIFY(w->isVisible());
    if (!after.isEmpty())
        QVERIFY(xInBar(bar, w) > xInBar(bar, builtIn(bar, after)));
    if (!before.isEmpty())
        QVERIFY(xInBar(bar, w) < xInBar(bar, builtIn(bar, before)));
}

void TestMainWinTitleBar::registerWin_nullIsIgnored()
{
    MainWinTitleBar bar;
    int const left = layoutCount(bar, 0);
    int const right = layoutCount(bar, 1);
    bar.registerWin(nullptr, EBASETITLEBARDIR_RIGHT, static_cast<eBaseTitleBarObjPosID>(100));
    bar.unRegisterWin(nullptr, EBASETITLEBARDIR_RIGHT, EBASETITLEBAROBJPOS_MIN);
    QCOMPARE(layoutCount(bar, 0), left);
    QCOMPARE(layoutCount(bar, 1), right);
    QVERIFY(builtIn(bar, "min")->isVisibleTo(&bar));
}

void TestMainWinTitleBar::registerWin_deletedByOwnerFreesPosition()
{
    MainWinTitleBar bar;
    bar.show();
    auto* first = new QWidget();
    auto const pos = static_cast<eBaseTitleBarObjPosID>(120);
    bar.registerWin(first, EBASETITLEBARDIR_RIGHT, pos);
    delete first;
    // The next relayout must not touch the dead widget, and the key is free.
    QPointer<QWidget> second = new QWidget();
    bar.registerWin(second, EBASETITLEBARDIR_RIGHT, pos);
    settle(bar);
    QCOMPARE(second->parentWidget(), areaFrame(bar, 1));
    QVERIFY(second->isVisible());
    bar.unRegisterWin(second, EBASETITLEBARDIR_RIGHT, pos);
    delete second.data();
}

// unRegisterWin always hides and detaches the widget given; the registration
// at the position (whoever holds it) is what goes.
void TestMainWinTitleBar::unRegisterWin_data()
{
    QTest::addColumn<int>("dir");
    QTest::addColumn<int>("pos");
    QTest::addColumn<bool>("registerHolderFirst");   // a widget B registered at right 100
    QTest::addColumn<bool>("relayout");
    QTest::addColumn<bool>("positionFreed");
    QTest::newRow("position not registered") << 1 << 120 << false << false << false;
    QTest::newRow("A at B's position") << 1 << 100 << true << true << true;
    QTest::newRow("direction 2") << 2 << 100 << true << true << false;
    QTest::newRow("left area, unknown position") << 0 << 100 << true << false << false;
}

void TestMainWinTitleBar::unRegisterWin()
{
    QFETCH(int, dir);
    QFETCH(int, pos);
    QFETCH(bool, registerHolderFirst);
    QFETCH(bool, relayout);
    QFETCH(bool, positionFreed);
    MainWinTitleBar bar;
    bar.show();
    QWidget holderOwner;
    auto* holder = new QWidget(&holderOwner);
    if (registerHolderFirst)
        bar.registerWin(holder, EBASETITLEBARDIR_RIGHT, static_cast<eBaseTitleBarObjPosID>(100));
    QWidget owner;
    owner.show();
    auto* a = new QWidget(&owner);
    a->show();
    int const left = layoutCount(bar, 0);
    int const right = layoutCount(bar, 1);

    bar.unRegisterWin(a, static_cast<eBaseTitleBarDir>(dir), static_cast<eBaseTitleBarObjPosID>(pos));

    QCOMPARE(a->parentWidget(), nullptr);
    QVERIFY(a->isHidden());
    QCOMPARE(layoutCount(bar, 0), left + (relayout ? 1 : 0));
    QCOMPARE(layoutCount(bar, 1), right + (relayout ? 1 : 0));
    if (registerHolderFirst) {
        // B is neither hidden nor taken out of the layout.
        QCOMPARE(holder->parentWidget(), areaFrame(bar, 1));
        QVERIFY(holder->isVisible());
        QVERIFY(inLayout(areaFrame(bar, 1)->layout(), holder));
    }
    auto* probe = new QWidget(&owner);
    bar.registerWin(probe, EBASETITLEBARDIR_RIGHT, static_cast<eBaseTitleBarObjPosID>(100));
    QCOMPARE(probe->parentWidget() == areaFrame(bar, 1), positionFreed || !registerHolderFirst);
    delete a;
}

void TestMainWinTitleBar::buttonsEmitSignals_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("drop-down") << "dropdown" << QByteArray(SIGNAL(sig_setting()));
    QTest::newRow("minimise") << "min" << QByteArray(SIGNAL(sig_minimize()));
    QTest::newRow("close") << "close" << QByteArray(SIGNAL(sig_close()));
}

void TestMainWinTitleBar::buttonsEmitSignals()
{
    QFETCH(QString, button);
    QFETCH(QByteArray, signal);
    MainWinTitleBar bar;
    QSignalSpy wanted(&bar, signal.constData());
    QSignalSpy setting(&bar, SIGNAL(sig_setting()));
    QSignalSpy minimize(&bar, SIGNAL(sig_minimize()));
    QSignalSpy close(&bar, SIGNAL(sig_close()));
    static_cast<QAbstractButton*>(builtIn(bar, button))->click();
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(setting.count() + minimize.count() + close.count(), 1);
}

void TestMainWinTitleBar::slotBaseInfo_data()
{
    QTest::addColumn<quint64>("value");
    QTest::addColumn<int>("days");
    QTest::newRow("zero") << quint64(0) << 0;
    QTest::newRow("plain") << quint64(365) << 365;
    QTest::newRow("high word ignored") << ((quint64(9) << 32) | 12u) << 12;
    QTest::newRow("low word all ones") << quint64(0xFFFFFFFFu) << -1;
}

void TestMainWinTitleBar::slotBaseInfo()
{
    QFETCH(quint64, value);
    QFETCH(int, days);
    MainWinTitleBar bar;
    auto* counter = static_cast<CQCloudBrainLabel*>(builtIn(bar, "cloud"));
    QCOMPARE(counter->days(), -1);
    __sBaseModuleBaseInfo info;
    info.value = value;
    bar.slot_base_info(info);
    QCOMPARE(counter->days(), days);
}

void TestMainWinTitleBar::setBackgroundColor()
{
    MainWinTitleBar bar;
    bar.setBackgroundColor(QStringLiteral("#EBF3FF"), QStringLiteral("#DAE9FF"));
    QCOMPARE(bar.styleSheet(), QStringLiteral("#MainWinTitleBar{background:#EBF3FF}"));
    auto* logoBackground = bar.findChild<CQFrame*>(QStringLiteral("m_pLogoTitleBackground"));
    QVERIFY(logoBackground);
    QCOMPARE(logoBackground->styleSheet(), QStringLiteral("#m_pLogoTitleBackground{background:#DAE9FF}"));
    QCOMPARE(logoBackground->geometry(), QRect(1, 1, 145, 46));
}

// The text logo needs a custom theme and a readable product name; any read
// failure is logged and falls back to the standard logo.
void TestMainWinTitleBar::logo_data()
{
    QTest::addColumn<QString>("ini");   // "" = no file at all, "-" = a missing file
    QTest::addColumn<bool>("textLogo");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("logged");
    QTest::newRow("built-in defaults") << "" << false << "" << QStringList();
    QTest::newRow("default theme") << "[branding]\ntheme=default\nproductName=Acme\n" << false << "" << QStringList();
    QTest::newRow("custom theme") << "[branding]\ntheme=acme\nproductName=Acme Guard\n" << true << "Acme Guard" << QStringList();
    QTest::newRow("unreadable file") << "-" << false << ""
                                     << QStringList{"[MainWinTitleBarPrivate] get theme failed, ret1 is [%1]",
                                                    "[MainWinTitleBarPrivate] get product name failed, ret2 is [%1]"};
}

void TestMainWinTitleBar::logo()
{
    QFETCH(QString, ini);
    QFETCH(bool, textLogo);
    QFETCH(QString, text);
    QFETCH(QStringList, logged);
    QString const path = m_dir.filePath(QString::fromLatin1(QTest::currentDataTag()).replace(' ', '_') + ".ini");
    if (ini == QLatin1String("-")) {
        DravoGuiConfig::setConfigPath(m_dir.filePath(QStringLiteral("missing.ini")));
    } else if (!ini.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ini.toUtf8());
        file.close();
        DravoGuiConfig::setConfigPath(path);
    }
    TestLogCapture log;
    MainWinTitleBar bar;
    auto* logo = bar.findChild<CQLogoTitle*>();
    QVERIFY(logo);
    QCOMPARE(logo->isTextLogo(), textLogo);
    QCOMPARE(logo->text(), text);
    QCOMPARE(logo->pos(), QPoint(11, 7));
    QCOMPARE(logo->parentWidget()->objectName(), QStringLiteral("m_pLogoTitleBackground"));
    int const error = DravoGuiConfig::status();
    for (QString const& line : logged)
        QCOMPARE(log.count(line.arg(error)), 1);
    if (logged.isEmpty())
        QVERIFY(log.lines().filter(QStringLiteral("[MainWinTitleBarPrivate] get ")).isEmpty());
}

QTEST_MAIN(TestMainWinTitleBar)
#include "tst_mainWinTitleBar.moc"
