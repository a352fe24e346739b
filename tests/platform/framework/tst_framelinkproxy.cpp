// FrameLinkProxy: mounting, the order in which interfaces are asked for a page,
// and interfaces or widgets that go away.

#include "framelinkproxy.h"
#include "framelinkproxyinterface.h"

#include <QPointer>
#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

QStringList g_asked;   // every question, as the name of the interface asked

// Knows a fixed set of pages; meant to be mounted under its own name.
class PageHolder : public FrameLinkProxyInterface
{
public:
    PageHolder(QString name, QStringList pages) : name(std::move(name)), m_pages(std::move(pages)) {}

    bool gotoChildObject(QString const& page) override
    {
        g_asked.append(name);
        if (onAsked)
            onAsked();
        return m_pages.contains(page);
    }

    QString const name;
    std::function<void()> onAsked;

private:
    QStringList m_pages;
};

} // namespace

class TstFrameLinkProxy : public QObject
{
    Q_OBJECT

private slots:
    void init() { g_asked.clear(); }
    void cleanup() { FrameLinkProxy::UninitInstance(true); }

    void gotoOrder_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QStringList>("asked");
        // Mounted in this order: Nav (home, scan), Other (scan, logs),
        // SettingCentreWidget (SettingCentreWidget, general).
        QStringList const everyone{"Nav", "Other", "SettingCentreWidget"};
        QTest::newRow("first in mount order that has it") << "scan" << true << QStringList{"Nav"};
        QTest::newRow("later one when earlier refuse") << "logs" << true << QStringList{"Nav", "Other"};
        QTest::newRow("the interface mounted under the name goes first")
            << "SettingCentreWidget" << true << QStringList{"SettingCentreWidget"};
        QTest::newRow("nobody has it: everyone asked once") << "missing" << false << everyone;
        QTest::newRow("named interface refusing is not asked twice")
            << "Other" << false << QStringList{"Other", "Nav", "SettingCentreWidget"};
    }

    void gotoOrder()
    {
        QFETCH(QString, page);
        QFETCH(bool, found);
        QFETCH(QStringList, asked);
        PageHolder nav("Nav", {"home", "scan"});
        PageHolder other("Other", {"scan", "logs"});
        PageHolder settings("SettingCentreWidget", {"SettingCentreWidget", "general"});
        for (PageHolder* holder : {&nav, &other, &settings})
            QVERIFY(holder->mount(holder->name, nullptr));
        QCOMPARE(FrameLinkProxy::singleInstance()->gotoPageByObjName(page), found);
        QCOMPARE(g_asked, asked);
    }

    void mountRules()
    {
        QString const name = QStringLiteral("NavigateWidget_MainWindow");
        PageHolder a("A", {});
        PageHolder b("B", {});
        FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
        auto* widget = new QWidget;
        // The frame widget is already known when the mount is announced.
        QPointer<QWidget> seen;
        connect(proxy, &FrameLinkProxy::sig_mounted, this, [&](QString n) { seen = proxy->find(n)->frameWidget(); });

        QVERIFY(a.mount(name, widget));
        QCOMPARE(seen.data(), widget);
        QVERIFY(!b.mount(name, nullptr));   // first mount wins
        QVERIFY(!proxy->mount(QString(), &b));
        QVERIFY(!proxy->mount(QStringLiteral("x"), nullptr));
        QCOMPARE(proxy->find(name), &a);
        QCOMPARE(b.mountName(), QString());
        delete widget;
        QCOMPARE(a.frameWidget(), nullptr);

        // Mounting again moves the interface to the new name.
        QVERIFY(a.mount(QStringLiteral("second"), nullptr));
        QCOMPARE(proxy->names(), QStringList{QStringLiteral("second")});
        QVERIFY(b.mount(name, nullptr));
        QVERIFY(proxy->unmount(name));
        QVERIFY(!proxy->unmount(name));
        a.unmount();
        QVERIFY(proxy->names().isEmpty());
    }

    void interfacesThatGoAway()
    {
        FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
        QSignalSpy unmounted(proxy, &FrameLinkProxy::sig_unmounted);
        {
            PageHolder first("First", {});
            auto second = std::make_unique<PageHolder>("Second", QStringList{"p"});
            PageHolder third("Third", {"p"});
            for (PageHolder* holder : {&first, second.get(), &third})
                QVERIFY(holder->mount(holder->name, nullptr));
            // Second, destroyed while First is asked, unmounts itself and is skipped.
            first.onAsked = [&second]() { second.reset(); };
            QVERIFY(proxy->gotoPageByObjName(QStringLiteral("p")));
            QCOMPARE(g_asked, (QStringList{"First", "Third"}));
            QCOMPARE(unmounted.count(), 1);
            QCOMPARE(proxy->names(), (QStringList{"First", "Third"}));
            // The others outlive the proxy and then die quietly.
            FrameLinkProxy::UninitInstance(true);
        }
        QVERIFY(!FrameLinkProxy::existingInstance());
    }
};

QTEST_MAIN(TstFrameLinkProxy)
#include "tst_framelinkproxy.moc"
