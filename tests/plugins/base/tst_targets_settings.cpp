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

#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {
__sSettingData commonRecord(int key, QVariant const& value)
{
    __sSettingData data;
    data.key = key;
    data.name = QStringLiteral("_SETTING_COMMON_");
    data.value = value;
    return data;
}

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
        if (!dialog) {
            answerNextDialog(accept);
            return;
        }
        accept ? dialog->accept() : dialog->reject();
    });
}

QStringList toastTexts()
{
    QStringList texts;
    for (QWidget* w : QApplication::allWidgets()) {
        if (auto* toast = qobject_cast<CQToastWidget*>(w))
            texts << toast->text();
    }
    return texts;
}

// A second page beside the general one.
class OtherPage : public SettingItemWidget
{
public:
    OtherPage()
    {
        setObjectName(QStringLiteral("OtherPage"));
    }
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

    void storeCloseAction(int value)
    {
        QVERIFY(SettingPluginModelDataInterface::singleInstance()->setSettingData(closeAction(value)));
    }

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#endif
        QVERIFY(m_configDir.isValid());
        // Before the first bridge call: the simulated backend keeps its file here.
        qputenv("QUORIX_CONFIG_DIR", m_configDir.path().toUtf8());
        qputenv("QUORIX_LOG_STDERR", "0");
    }

    void init()
    {
        storeCloseAction(0);
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

    void generalPageIdentity()
    {
        QCOMPARE(m_pPage->objectName(), QStringLiteral("CommonSetting"));
        QCOMPARE(m_pPage->getBarObject(), QStringLiteral("CommonSetting"));
        QCOMPARE(m_pPage->getBarName(), QStringLiteral("常规设置"));
        QCOMPARE(m_pPage->intProperty(), 200);
        QCOMPARE(m_pPage->pageData().userType(), qMetaTypeId<_SETTING_COMMON_>());
        QVERIFY(!QIcon(m_pPage->getSelectedIcon()).isNull());
    }

    void rowShowsStoredRecord_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("checked");
        QTest::addColumn<bool>("saved");
        QTest::newRow("minimise") << 0 << closeAction(1) << 1 << true;
        QTest::newRow("ask") << 0 << closeAction(2) << 2 << true;
        QTest::newRow("quit") << 0 << closeAction(0) << 0 << true;
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
        m_pRow->slot_updateInfo(commonRecord(0, closeAction(1)));
        m_pRow->slot_updateInfo(commonRecord(key, value));
        QCOMPARE(m_pRow->checkedValue(), checked);
        QCOMPARE(m_pRow->slot_isSavedPageInfo(), saved);
    }

    void userEditIsUnsavedUntilSaved()
    {
        m_pRow->slot_updateInfo(commonRecord(0, closeAction(1)));
        m_pRow->findChild<QRadioButton*>(QStringLiteral("m_pRadioBtnAsk"))->click();
        QCOMPARE(m_pRow->checkedValue(), 2);
        QVERIFY(!m_pRow->slot_isSavedPageInfo());
        QVariant data = QVariant::fromValue(_SETTING_COMMON_());
        QVERIFY(m_pRow->slot_savePageInfo(data));
        QCOMPARE(data.value<_SETTING_COMMON_>().closeAction, 2);
        QVERIFY(m_pRow->slot_isSavedPageInfo());
    }

    void saveRoundTripThroughBridge()
    {
        SettingCentreWidget centre;   // installs the store used by every page
        m_pPage->slot_updatePageInfo();
        QCOMPARE(m_pRow->checkedValue(), 0);
        m_pRow->findChild<QRadioButton*>(QStringLiteral("m_pRadioBtnMinimize"))->click();
        QVERIFY(m_pPage->slot_savePageInfo());
        QCOMPARE(storedCloseAction(), 1);
        QVERIFY(m_pPage->slot_isSavedPageInfo());

        CloseMainPanelSettingSubItem fresh;
        QVERIFY(fresh.slot_updatePageInfo());
        QCOMPARE(fresh.checkedValue(), 1);
        QVERIFY(fresh.slot_isSavedPageInfo());
    }

    void centreRefusesBadPages()
    {
        SettingCentreWidget centre;
        SettingItemWidget unnamed;
        QVERIFY(!centre.addItem(nullptr));
        QVERIFY(!centre.addItem(&unnamed));
        QVERIFY(centre.addItem(m_pPage));
        CommonSetting twin;
        QVERIFY(!centre.addItem(&twin));   // same key "CommonSetting"
        QCOMPARE(centre.itemCount(), 1);
        QCOMPARE(centre.findItem(QStringLiteral("CommonSetting")), m_pPage);
        QCOMPARE(centre.findItem(QStringLiteral("常规设置")), m_pPage);
        QVERIFY(!centre.findItem(QString()));
        QVERIFY(!centre.removeItem(QStringLiteral("nothing")));
        QVERIFY(centre.removeItem(m_pPage->getBarName()));
        QCOMPARE(centre.itemCount(), 0);
        QVERIFY(m_pPage->parentWidget() == nullptr);
    }

    void managerOpensAndClosesTheWindow()
    {
        CSettingCenterWidgetMgr* mgr = CSettingCenterWidgetMgr::singleInstance();
        QSignalSpy asked(mgr, &CSettingCenterWidgetMgr::sig_registerItem);
        mgr->registerItem(m_pPage);   // no window yet: nothing happens
        QVERIFY(!mgr->window());
        connect(mgr, &CSettingCenterWidgetMgr::sig_registerItem, this, [this, mgr]() { mgr->registerItem(m_pPage); });

        QVERIFY(FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("SettingCentreWidget")));
        QCOMPARE(asked.count(), 1);
        QPointer<SettingCentreWidget> window = mgr->window();
        QVERIFY(window);
        QVERIFY(window->isVisible());
        QCOMPARE(window->itemCount(), 1);
        QCOMPARE(window->objectName(), QStringLiteral("SettingCentreWidget"));
        QVERIFY(window->windowTitle().endsWith(QStringLiteral(" - 设置中心")));

        // Close button: hidden, kept.
        emit window->sig_close();
        QVERIFY(!window->isVisible());
        QVERIFY(FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("SettingCentreWidget")));
        QCOMPARE(asked.count(), 2);
        QCOMPARE(mgr->window(), window.data());
        QCOMPARE(window->itemCount(), 1);   // the repeated registration was refused

        // The page's own name also reaches it through the frame.
        QVERIFY(FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("CommonSetting")));

        mgr->unRegisterItem(m_pPage);
        QTRY_VERIFY(window.isNull());
        QVERIFY(!mgr->window());
        QVERIFY(m_pPage->parentWidget() == nullptr);
    }

    void unsavedEditsAskBeforeSwitching()
    {
        SettingCentreWidget centre;
        OtherPage other;
        QVERIFY(centre.addItem(m_pPage));
        QVERIFY(centre.addItem(&other));
        centre.activateShow();
        QCOMPARE(centre.currentItem(), m_pPage);

        m_pRow->findChild<QRadioButton*>(QStringLiteral("m_pRadioBtnAsk"))->click();
        QVERIFY(!m_pRow->slot_isSavedPageInfo());

        answerNextDialog(false);
        centre.slot_currentChanged(1);
        QCOMPARE(centre.currentItem(), m_pPage);
        QCOMPARE(m_pRow->checkedValue(), 2);   // the edit stays

        // The same through a click on the navigation.
        auto* nav = centre.findChild<NavigateWidget*>(QStringLiteral("NavigateWidget_SettingCenterWidget"));
        QVERIFY(nav);
        answerNextDialog(false);
        QVERIFY(!nav->setCurrentItem(&other));
        QCOMPARE(centre.currentItem(), m_pPage);

        answerNextDialog(true);
        centre.slot_currentChanged(1);
        QCOMPARE(centre.currentItem(), &other);
        QCOMPARE(centre.currentIndex(), 1);
        QCOMPARE(m_pRow->checkedValue(), 0);   // reloaded from what is stored

        // Switching to the page already shown does nothing.
        centre.slot_currentChanged(1);
        QCOMPARE(centre.currentItem(), &other);
        centre.removeItem(other.getBarName());
        centre.removeItem(m_pPage->getBarName());
    }

    void unsavedEditsAskBeforeHiding()
    {
        SettingCentreWidget centre;
        QVERIFY(centre.addItem(m_pPage));
        centre.activateShow();
        m_pRow->findChild<QRadioButton*>(QStringLiteral("m_pRadioBtnMinimize"))->click();
        answerNextDialog(false);
        QVERIFY(!centre.tryHide());
        QVERIFY(centre.isVisible());
        answerNextDialog(true);
        QVERIFY(centre.tryHide());
        QVERIFY(!centre.isVisible());
        centre.removeItem(m_pPage->getBarName());
    }

    void saveButtonReportsWithToasts()
    {
        SettingCentreWidget centre;
        centre.slot_saveCurrentPage(nullptr);   // no page at all
        QVERIFY(toastTexts().contains(QStringLiteral("设置保存异常")));

        QVERIFY(centre.addItem(m_pPage));
        centre.activateShow();
        m_pRow->findChild<QRadioButton*>(QStringLiteral("m_pRadioBtnAsk"))->click();
        QAbstractButton* save = m_pPage->saveButton();
        save->click();
        QTRY_VERIFY(toastTexts().contains(QStringLiteral("常规设置 设置保存成功")));
        QVERIFY(save->isEnabled());
        QCOMPARE(storedCloseAction(), 2);
        QVERIFY(m_pRow->slot_isSavedPageInfo());
        centre.removeItem(m_pPage->getBarName());
    }

    void storedChangesRefreshOpenPages()
    {
        SettingCentreWidget centre;
        QVERIFY(centre.addItem(m_pPage));
        QCOMPARE(m_pRow->checkedValue(), 0);
        // Another writer changes the stored value; the open page follows.
        storeCloseAction(1);
        QTRY_COMPARE(m_pRow->checkedValue(), 1);
        centre.removeItem(m_pPage->getBarName());
    }
};

QTEST_MAIN(TstTargetsSettings)
#include "tst_targets_settings.moc"
