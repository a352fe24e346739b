// Settings centre, its manager, the general page and its close-action row,
// against the simulated settings bridge.

#include "bridgerecords.h"
#include "closeMainPanelSettingSubItem.h"
#include "commonSetting.h"
#include "framelinkproxy.h"
#include "navigatewidget.h"
#include "promptdialog.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingpluginmodeldatainterface.h"

#include <QPointer>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

QVariant closeAction(int value)
{
    _SETTING_COMMON_ record;
    record.closeAction = value;
    return QVariant::fromValue(record);
}

int storedCloseAction()
{
    __sSettingData const data = SettingPluginModelDataInterface::singleInstance()->getSettingData("SETTING_COMMON");
    return data.value.value<_SETTING_COMMON_>().closeAction;
}

// Answers the next modal question once it is up.
void answerNextDialog(bool accept)
{
    QTimer::singleShot(0, [accept]() {
        auto* dialog = qobject_cast<PromptDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            answerNextDialog(accept);
        else
            accept ? dialog->accept() : dialog->reject();
    });
}

class OtherPage : public SettingItemWidget
{
public:
    QString getBarName() override { return QStringLiteral("其他设置"); }
    QString getBarObject() override { return QStringLiteral("OtherPage"); }
};

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

    // An edit is unsaved until saved through the bridge; a fresh row reads it
    // back, and open pages follow what is stored.
    void saveRoundTripThroughBridge()
    {
        SettingCentreWidget centre;   // installs the store used by every page
        m_pPage->slot_updatePageInfo();
        QCOMPARE(m_pRow->checkedValue(), 0);
        choose("m_pRadioBtnMinimize");
        QVERIFY(!m_pPage->slot_isSavedPageInfo());
        QVERIFY(m_pPage->slot_savePageInfo());
        QCOMPARE(storedCloseAction(), 1);
        QVERIFY(m_pPage->slot_isSavedPageInfo());
        CloseMainPanelSettingSubItem fresh;
        QVERIFY(fresh.slot_updatePageInfo());
        QCOMPARE(fresh.checkedValue(), 1);
        // Another writer changes the stored value; the open page follows.
        QVERIFY(centre.addItem(m_pPage));
        QVERIFY(SettingPluginModelDataInterface::singleInstance()->setSettingData(closeAction(2)));
        QTRY_COMPARE(m_pRow->checkedValue(), 2);
        centre.removeItem(m_pPage->getBarName());
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

    // Unsaved edits ask before switching pages (by slot or by the navigation)
    // and before hiding; "no" keeps the edit, "yes" drops it.
    void unsavedEditsAsk()
    {
        SettingCentreWidget centre;
        OtherPage other;
        other.setObjectName(QStringLiteral("OtherPage"));
        QVERIFY(centre.addItem(m_pPage) && centre.addItem(&other));
        centre.activateShow();
        choose("m_pRadioBtnAsk");
        answerNextDialog(false);
        centre.slot_currentChanged(1);
        QCOMPARE(centre.currentItem(), m_pPage);
        QCOMPARE(m_pRow->checkedValue(), 2);
        answerNextDialog(false);
        QVERIFY(!centre.findChild<NavigateWidget*>()->setCurrentItem(&other));
        answerNextDialog(false);
        QVERIFY(!centre.tryHide());
        QVERIFY(centre.isVisible());

        answerNextDialog(true);
        centre.slot_currentChanged(1);
        QCOMPARE(centre.currentItem(), &other);
        QCOMPARE(m_pRow->checkedValue(), 0);   // reloaded from what is stored
        QVERIFY(centre.tryHide());
        centre.removeItem(other.getBarName());
        centre.removeItem(m_pPage->getBarName());
    }
};

QTEST_MAIN(TstTargetsSettings)
#include "tst_targets_settings.moc"
