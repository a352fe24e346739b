// FrameLinkProxy: mounting, the order in which interfaces are asked for a page,
// and interfaces or widgets that go away.

#include "framelinkproxy.h"
#include "framelinkproxyinterface.h"

#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

#include <functional>
#include <memory>
#include <vector>

namespace {

// Knows a fixed set of pages and notes every question in a shared list.
class PageHolder : public FrameLinkProxyInterface
{
public:
    PageHolder(QString label, QStringList pages, QStringList* asked)
        : m_label(std::move(label)), m_pages(std::move(pages)), m_asked(asked)
    {
    }

    bool gotoChildObject(QString const& name) override
    {
        m_asked->append(m_label);
        if (onAsked)
            onAsked();
        return m_pages.contains(name);
    }

    std::function<void()> onAsked;

private:
    QString m_label;
    QStringList m_pages;
    QStringList* m_asked;
};

} // namespace

class TstFrameLinkProxy : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void gotoOrder_data();
    void gotoOrder();
    void mountRules();
    void destroyedInterfaceUnmountsItself();
    void remountUnderAnotherName();
    void interfaceUnmountedWhileAskingIsSkipped();
    void frameWidgetIsForgottenWhenDeleted();
    void frameWidgetIsKnownWhenMountIsAnnounced();
};

void TstFrameLinkProxy::cleanup()
{
    FrameLinkProxy::UninitInstance(true);
}

void TstFrameLinkProxy::gotoOrder_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QStringList>("asked");
    // Mounted in this order: "Nav" (pages home, scan), "Other" (scan, logs),
    // "SettingCentreWidget" (itself, general).
    QTest::newRow("first in mount order that has it") << "scan" << true << QStringList{"Nav"};
    QTest::newRow("later one when earlier refuse") << "logs" << true << QStringList{"Nav", "Other"};
    QTest::newRow("the interface mounted under the name goes first")
        << "SettingCentreWidget" << true << QStringList{"Settings"};
    QTest::newRow("nobody has it: everyone asked once") << "missing" << false << QStringList{"Nav", "Other", "Settings"};
    QTest::newRow("named interface refusing is not asked twice")
        << "Other" << false << QStringList{"Other", "Nav", "Settings"};
    QTest::newRow("empty name") << "" << false << QStringList{"Nav", "Other", "Settings"};
}

void TstFrameLinkProxy::gotoOrder()
{
    QFETCH(QString, page);
    QFETCH(bool, found);
    QFETCH(QStringList, asked);
    QStringList log;
    PageHolder nav(QStringLiteral("Nav"), {QStringLiteral("home"), QStringLiteral("scan")}, &log);
    PageHolder other(QStringLiteral("Other"), {QStringLiteral("scan"), QStringLiteral("logs")}, &log);
    PageHolder settings(QStringLiteral("Settings"), {QStringLiteral("SettingCentreWidget"), QStringLiteral("general")},
                        &log);
    QVERIFY(nav.mount(QStringLiteral("Nav"), nullptr));
    QVERIFY(other.mount(QStringLiteral("Other"), nullptr));
    QVERIFY(settings.mount(QStringLiteral("SettingCentreWidget"), nullptr));

    QCOMPARE(FrameLinkProxy::singleInstance()->gotoPageByObjName(page), found);
    QCOMPARE(log, asked);
}

void TstFrameLinkProxy::mountRules()
{
    QStringList log;
    PageHolder a(QStringLiteral("A"), {}, &log);
    PageHolder b(QStringLiteral("B"), {}, &log);
    FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
    QSignalSpy mounted(proxy, &FrameLinkProxy::sig_mounted);

    QVERIFY(a.mount(QStringLiteral("NavigateWidget_MainWindow"), nullptr));
    QVERIFY(!b.mount(QStringLiteral("NavigateWidget_MainWindow"), nullptr));
    QVERIFY(!proxy->mount(QString(), &b));
    QVERIFY(!proxy->mount(QStringLiteral("x"), nullptr));
    QCOMPARE(proxy->find(QStringLiteral("NavigateWidget_MainWindow")), &a);
    QCOMPARE(b.mountName(), QString());
    QCOMPARE(mounted.count(), 1);
    QVERIFY(proxy->unmount(QStringLiteral("NavigateWidget_MainWindow")));
    QVERIFY(!proxy->unmount(QStringLiteral("NavigateWidget_MainWindow")));
    QVERIFY(b.mount(QStringLiteral("NavigateWidget_MainWindow"), nullptr));
}

void TstFrameLinkProxy::destroyedInterfaceUnmountsItself()
{
    QStringList log;
    FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
    QSignalSpy unmounted(proxy, &FrameLinkProxy::sig_unmounted);
    {
        PageHolder gone(QStringLiteral("Gone"), {QStringLiteral("page")}, &log);
        QVERIFY(gone.mount(QStringLiteral("Gone"), nullptr));
    }
    QCOMPARE(unmounted.count(), 1);
    QVERIFY(proxy->names().isEmpty());
    QVERIFY(!proxy->gotoPageByObjName(QStringLiteral("page")));
    QVERIFY(log.isEmpty());

    // And after the proxy itself is gone, an interface dies quietly.
    auto late = std::make_unique<PageHolder>(QStringLiteral("Late"), QStringList{}, &log);
    QVERIFY(late->mount(QStringLiteral("Late"), nullptr));
    FrameLinkProxy::UninitInstance(true);
    late.reset();
    QVERIFY(!FrameLinkProxy::existingInstance());
}

void TstFrameLinkProxy::remountUnderAnotherName()
{
    QStringList log;
    PageHolder a(QStringLiteral("A"), {}, &log);
    QVERIFY(a.mount(QStringLiteral("first"), nullptr));
    QVERIFY(a.mount(QStringLiteral("second"), nullptr));
    QCOMPARE(FrameLinkProxy::singleInstance()->names(), QStringList{QStringLiteral("second")});
    QCOMPARE(a.mountName(), QStringLiteral("second"));
    a.unmount();
    QVERIFY(FrameLinkProxy::singleInstance()->names().isEmpty());
}

void TstFrameLinkProxy::interfaceUnmountedWhileAskingIsSkipped()
{
    QStringList log;
    PageHolder first(QStringLiteral("First"), {}, &log);
    auto second = std::make_unique<PageHolder>(QStringLiteral("Second"), QStringList{QStringLiteral("p")}, &log);
    PageHolder third(QStringLiteral("Third"), {QStringLiteral("p")}, &log);
    QVERIFY(first.mount(QStringLiteral("First"), nullptr));
    QVERIFY(second->mount(QStringLiteral("Second"), nullptr));
    QVERIFY(third.mount(QStringLiteral("Third"), nullptr));
    first.onAsked = [&second]() { second.reset(); };

    QVERIFY(FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("p")));
    QCOMPARE(log, (QStringList{QStringLiteral("First"), QStringLiteral("Third")}));
}

void TstFrameLinkProxy::frameWidgetIsForgottenWhenDeleted()
{
    QStringList log;
    PageHolder a(QStringLiteral("A"), {}, &log);
    auto* widget = new QWidget;
    QVERIFY(a.mount(QStringLiteral("A"), widget));
    QCOMPARE(a.frameWidget(), widget);
    delete widget;
    QCOMPARE(a.frameWidget(), nullptr);
}

void TstFrameLinkProxy::frameWidgetIsKnownWhenMountIsAnnounced()
{
    QStringList log;
    PageHolder a(QStringLiteral("A"), {}, &log);
    QWidget widget;
    FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
    QWidget* seen = nullptr;
    QString seenName;
    connect(proxy, &FrameLinkProxy::sig_mounted, this, [&](QString name) {
        seen = proxy->find(name)->frameWidget();
        seenName = proxy->find(name)->mountName();
    });
    QVERIFY(a.mount(QStringLiteral("NavigateWidget_MainWindow"), &widget));
    QCOMPARE(seen, &widget);
    QCOMPARE(seenName, QStringLiteral("NavigateWidget_MainWindow"));
}

QTEST_MAIN(TstFrameLinkProxy)
#include "tst_framelinkproxy.moc"
