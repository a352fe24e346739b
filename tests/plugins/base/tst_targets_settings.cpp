// Settings centre, its manager, the general page and its close-action row,
// against the simulated settings bridge.

#include "bridgerecords.h"
#include "closeMainPanelSettingSubItem.h"
#include "commonSetting.h"
#include "framelinkproxy.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingpluginmodeldatainterface.h"

#include <QPointer>
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

} // namespace

class TstTargetsSettings : public QObject
{
    Q_OBJECT

    QTemporaryDir m_configDir;
    CommonSetting* m_pPage = nullptr;
    CloseMainPanelSettingSubItem* m_pRow = nullptr;

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
};

QTEST_MAIN(TstTargetsSettings)
#include "tst_targets_settings.moc"
