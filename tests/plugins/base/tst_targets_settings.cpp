// Settings centre, its manager, the general page and its close-action row,
// against the simulated settings bridge.

#include "bridgerecords.h"
#include "closeMainPanelSettingSubItem.h"
#include "commonSetting.h"
#include "cqtoastwidget.h"
#include "framelinkproxy.h"
#include "navigatewidget.h"
#include "promptdialog.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingpluginmodeldatainterface.h"
#include "simulatedsettingsstore.h"
#include "testLogCapture.h"

#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QVariant closeAction(int value)
{
    _SETTING_COMMON_ record;
    record.closeAction = value;
    return QVariant::fromValue(record);
}

bool toastShown(QString const& text)
{
    for (QWidget* w : QApplication::allWidgets()) {
        if (auto* toast = qobject_cast<CQToastWidget*>(w); toast && toast->text() == text)
            return true;
    }
    return false;
}

// Answers every question dialog as it comes up, the way the user would, and
// counts them.
class PromptAnswerer : public QObject
{
public:
    explicit PromptAnswerer(bool accept)
        : m_accept(accept)
    {
        qApp->installEventFilter(this);
    }
    int asked = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* dialog = qobject_cast<PromptDialog*>(watched);
        if (dialog && event->type() == QEvent::Show) {
            ++asked;
            QMetaObject::invokeMethod(dialog, m_accept ? "accept" : "reject", Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool m_accept;
};

class OtherPage : public SettingItemWidget
{
public:
    OtherPage() { setObjectName(QStringLiteral("OtherPage")); }
    QString getBarName() override { return QStringLiteral("其他设置"); }
    QString getBarObject() override { return QStringLiteral("OtherPage"); }
};

// Counts the show and hide hooks the centre runs on its current page.
class HookCounter : public CommonSetting
{
public:
    int shows = 0, shown = 0, hides = 0, hidden = 0;
    bool preShowEvent() override { return ++shows, true; }
    void postShowEvent() override { ++shown; }
    bool preHideEvent() override { return ++hides, true; }
    void postHideEvent() override { ++hidden; }
};

bool failingStore(QVariant)
{
    return false;
}

} // namespace

class TstTargetsSettings : public QObject
{
    Q_OBJECT

    QTemporaryDir m_configDir;
    CommonSetting* m_pPage = nullptr;
    CloseMainPanelSettingSubItem* m_pRow = nullptr;

    void choose(char const* radio) { m_pRow->findChild<QRadioButton*>(QString::fromLatin1(radio))->click(); }

private slots:
    void initTestCase()
    {
        Q_INIT_RESOURCE(ui_base);
        // Before the first bridge call: the simulated backend keeps its file here.
        qputenv("QUORIX_CONFIG_DIR", m_configDir.path().toUtf8());
    }

    void init()
    {
        QVERIFY(SettingPluginModelDataInterface::singleInstance()->setSettingData(closeAction(0)));
        // The store's change notice is queued; deliver it before any window
        // exists, so it cannot reload a page in the middle of a test.
        QCoreApplication::processEvents();
        m_pPage = new CommonSetting;
        m_pRow = new CloseMainPanelSettingSubItem;
        QCOMPARE(m_pPage->registerItem(m_pRow), 0);
    }

    void cleanup()
    {
        CSettingCenterWidgetMgr::UninitInstance(true);
        delete m_pPage;
        delete m_pRow;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void rowShowsStoredRecord_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("checked");
        QTest::addColumn<bool>("saved");
        QTest::newRow("ask") << 0 << closeAction(2) << 2 << true;
        QTest::newRow("other key ignored") << 4 << closeAction(2) << 1 << true;
        QTest::newRow("out of range checks none") << 0 << closeAction(9) << -1 << false;
        QTest::newRow("not a record") << 0 << QVariant(2) << 1 << true;
    }
    void rowShowsStoredRecord()
    {
        QFETCH(int, key);
        QFETCH(QVariant, value);
        QFETCH(int, checked);
        QFETCH(bool, saved);
        m_pRow->slot_updateInfo(__sSettingData{0, QStringLiteral("_SETTING_COMMON_"), closeAction(1)});
        m_pRow->slot_updateInfo(__sSettingData{key, QStringLiteral("_SETTING_COMMON_"), value});
        QCOMPARE(m_pRow->checkedValue(), checked);
        QCOMPARE(m_pRow->slot_isSavedPageInfo(), saved);
    }

    // Pages are keyed by their object name: null, unnamed and twin pages are refused.
    void centreRefusesBadPages()
    {
        SettingCentreWidget centre;
        SettingItemWidget unnamed;
        CommonSetting twin;
        QVERIFY(!centre.addItem(nullptr));
        QVERIFY(!centre.addItem(&unnamed));
        QVERIFY(centre.addItem(m_pPage));
        QVERIFY(!centre.addItem(&twin));
        QCOMPARE(centre.itemCount(), 1);
        QCOMPARE(centre.findItem(QString::fromUtf8("常规设置")), m_pPage);
        QVERIFY(!centre.findItem(QString()));
        QVERIFY(!centre.removeItem(QStringLiteral("nothing")));
        QVERIFY(centre.removeItem(m_pPage->getBarName()));
        QVERIFY(!m_pPage->parentWidget());
    }

    // The window exists only while open (asking the plugins for their pages
    // each time); closing hides it; the last page leaving deletes it.
    void managerOpensAndClosesTheWindow()
    {
        CSettingCenterWidgetMgr* mgr = CSettingCenterWidgetMgr::singleInstance();
        QSignalSpy asked(mgr, &CSettingCenterWidgetMgr::sig_registerItem);
        mgr->registerItem(m_pPage);   // no window yet: nothing happens
        QVERIFY(!mgr->window());
        connect(mgr, &CSettingCenterWidgetMgr::sig_registerItem, this, [this, mgr]() { mgr->registerItem(m_pPage); });
        FrameLinkProxy* frame = FrameLinkProxy::singleInstance();
        QVERIFY(frame->gotoPageByObjName(QStringLiteral("SettingCentreWidget")));
        QPointer<SettingCentreWidget> window = mgr->window();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->itemCount(), 1);
        emit window->sig_close();
        QVERIFY(!window->isVisible());
        QVERIFY(frame->gotoPageByObjName(QStringLiteral("CommonSetting")));
        QCOMPARE(asked.count(), 2);
        QCOMPARE(mgr->window(), window.data());
        QCOMPARE(window->itemCount(), 1);   // the repeated registration was refused
        mgr->unRegisterItem(m_pPage);
        QTRY_VERIFY(window.isNull());
        QVERIFY(!m_pPage->parentWidget());
    }

    // One open and one close through the manager run each hook once, on the
    // page and in the log.
    void hooksRunOncePerShowAndHide()
    {
        HookCounter page;
        CloseMainPanelSettingSubItem row;
        page.registerItem(&row);
        CSettingCenterWidgetMgr* mgr = CSettingCenterWidgetMgr::singleInstance();
        connect(mgr, &CSettingCenterWidgetMgr::sig_registerItem, this, [&]() { mgr->registerItem(&page); });
        mgr->gotoChildObject(QString());   // the window is new: its first show has no page yet
        mgr->gotoChildObject(QString());   // already visible: no hook
        TestLogCapture log;
        mgr->hideUIMainWin();
        QVERIFY(!mgr->window()->isVisible());
        mgr->gotoChildObject(QString());
        QCOMPARE(QList<int>() << page.shows << page.shown << page.hides << page.hidden, QList<int>() << 1 << 1 << 1 << 1);
        QCOMPARE(log.count(QStringLiteral("SettingCentreWidget::preHideEvent begin...")), 1);
        mgr->unRegisterItem(&page);
    }

    // A store that fails leaves the edit on screen and unsaved, so leaving
    // the page still asks instead of dropping the choice.
    void failedStoreKeepsTheEditUnsaved()
    {
        SettingCentreWidget centre;
        OtherPage other;
        QVERIFY(centre.addItem(m_pPage) && centre.addItem(&other));
        centre.activateShow();
        auto const store = SettingItemWidget::m_pfSetSettingData;
        SettingItemWidget::m_pfSetSettingData = &failingStore;
        choose("m_pRadioBtnMinimize");
        m_pPage->saveButton()->click();
        SettingItemWidget::m_pfSetSettingData = store;
        QTRY_VERIFY(toastShown(QString::fromUtf8("常规设置 设置保存失败")));
        QCOMPARE(m_pRow->checkedValue(), 1);
        QVERIFY(!m_pPage->slot_isSavedPageInfo());
        PromptAnswerer answerer(false);
        centre.slot_currentChanged(1);
        QCOMPARE(answerer.asked, 1);
        QCOMPARE(centre.currentItem(), m_pPage);
        QCOMPARE(m_pRow->checkedValue(), 1);
        centre.removeItem(other.getBarName());
        centre.removeItem(m_pPage->getBarName());
    }

    // Leaving a page with an unsaved row (switching by slot or by the list,
    // or hiding) asks first: "no" keeps the page and the edit, "yes" goes on
    // and the row shows what is stored again. Nothing unsaved asks nothing.
    void unsavedEditAsks_data()
    {
        QTest::addColumn<int>("leave");   // 0 switch page, 1 click the other page in the list, 2 hide
        QTest::addColumn<bool>("edit");
        QTest::addColumn<bool>("accept");
        QTest::addColumn<int>("asked");
        QTest::addColumn<bool>("left");
        QTest::newRow("switch, no") << 0 << true << false << 1 << false;
        QTest::newRow("switch, yes") << 0 << true << true << 1 << true;
        QTest::newRow("list click, no") << 1 << true << false << 1 << false;
        QTest::newRow("list click, yes") << 1 << true << true << 1 << true;
        QTest::newRow("hide, no") << 2 << true << false << 1 << false;
        QTest::newRow("hide, yes") << 2 << true << true << 1 << true;
        QTest::newRow("switch, nothing unsaved") << 0 << false << false << 0 << true;
        QTest::newRow("hide, nothing unsaved") << 2 << false << false << 0 << true;
    }
    void unsavedEditAsks()
    {
        QFETCH(int, leave);
        QFETCH(bool, edit);
        QFETCH(bool, accept);
        QFETCH(int, asked);
        QFETCH(bool, left);
        SettingCentreWidget centre;
        OtherPage other;
        QVERIFY(centre.addItem(m_pPage) && centre.addItem(&other));
        centre.activateShow();
        QCOMPARE(centre.currentItem(), m_pPage);
        if (edit)
            choose("m_pRadioBtnAsk");
        PromptAnswerer answerer(accept);
        if (leave == 0)
            centre.slot_currentChanged(1);
        else if (leave == 1)
            centre.findChild<NavigateWidget*>()->setCurrentItem(&other);
        else
            QCOMPARE(centre.tryHide(), left);
        QCOMPARE(answerer.asked, asked);
        QCOMPARE(centre.isVisible(), !(left && leave == 2));
        QCOMPARE(centre.currentItem(), left && leave != 2 ? static_cast<SettingItemWidget*>(&other) : m_pPage);
        QCOMPARE(m_pRow->checkedValue(), left ? 0 : 2);
        centre.removeItem(other.getBarName());
        centre.removeItem(m_pPage->getBarName());
    }

    // The save button stores the edit in the settings file and says so; a
    // fresh row reads it back; an open page follows a write made elsewhere.
    void saveRoundTrip()
    {
        SettingCentreWidget centre;
        QVERIFY(centre.addItem(m_pPage));
        centre.activateShow();
        choose("m_pRadioBtnMinimize");
        QVERIFY(!m_pPage->slot_isSavedPageInfo());
        m_pPage->saveButton()->click();
        QTRY_VERIFY(toastShown(QString::fromUtf8("常规设置 设置保存成功")));
        QVERIFY(m_pPage->slot_isSavedPageInfo());
        SimulatedSettingsStore file(m_configDir.filePath(QStringLiteral("settings.ini")));
        QVERIFY(file.load());
        QCOMPARE(file.value(QStringLiteral("common"), QStringLiteral("closeAction")), QStringLiteral("1"));
        CloseMainPanelSettingSubItem fresh;
        QVERIFY(fresh.slot_updatePageInfo());
        QCOMPARE(fresh.checkedValue(), 1);
        QVERIFY(SettingPluginModelDataInterface::singleInstance()->setSettingData(closeAction(2)));
        QTRY_COMPARE(m_pRow->checkedValue(), 2);
        centre.removeItem(m_pPage->getBarName());
    }
};

QTEST_MAIN(TstTargetsSettings)
#include "tst_targets_settings.moc"
