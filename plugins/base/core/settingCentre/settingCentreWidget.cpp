#include "settingCentreWidget.h"

#include "asyncInvoker.h"
#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "cqframe.h"
#include "cqtoastwidget.h"
#include "dravoguiconfig.h"
#include "framelinkproxy.h"
#include "navigatewidget.h"
#include "promptdialog.h"
#include "prompttitlewin.h"
#include "settingitemwidget.h"
#include "settingpluginmodeldatainterface.h"

#include <QIcon>
#include <QMutexLocker>
#include <QPointer>
#include <QStringList>
#include <QtConcurrent>

namespace {
constexpr char kLogModule[] = "plugins/base/core/settingCentre/settingCentreWidget";
constexpr char kDefaultProductName[] = "Quorix终端安全管理系统";
constexpr int kWidth = 1000;
constexpr int kHeight = 680;
constexpr int kTitleHeight = 46;
constexpr int kPageMaxWidth = 784;
constexpr int kPageMaxHeight = 575;
constexpr int kToastMsecs = 3000;
constexpr int kVeto = ~0;

// Set on the first show in the life of the process; a window built again
// later keeps the page chosen through the navigation.
bool s_bEverShown = false;
} // namespace

class SettingCentreWidgetPrivate
{
public:
    explicit SettingCentreWidgetPrivate(SettingCentreWidget* q)
        : q_ptr(q)
    {
        InitVars();
        InitUIWin();
        InitUIBody();
        InitControl();
    }

    ~SettingCentreWidgetPrivate()
    {
        BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                    "[SettingCentreWidgetPrivate] delete SettingCentreWidgetPrivate obj");
    }

    static bool setSettingData(QVariant data);

    SettingItemWidget* page(int index) const
    {
        return qobject_cast<SettingItemWidget*>(m_pNavigateWidget->item(index));
    }

    SettingItemWidget* current() const
    {
        return qobject_cast<SettingItemWidget*>(m_pNavigateWidget->currentItem());
    }

    void unmountPages();

    SettingCentreWidget* q_ptr = nullptr;
    CQFrame* m_pBackgroundImgWin = nullptr;
    PromptTitleWin* m_pTitleWin = nullptr;
    NavigateWidget* m_pNavigateWidget = nullptr;
    QMutex m_mutex;
    int m_nIndex = -1;
    // True while the window itself drives a page switch, so the navigation's
    // judge and change signal do not run the protocol a second time.
    bool m_bSwitching = false;
    QStringList m_mountedNames;

private:
    void InitVars();
    void InitUIWin();
    void InitUIBody();
    void InitControl();
};

void SettingCentreWidgetPrivate::InitVars()
{
    m_nIndex = -1;
    SettingItemWidget::m_pfSetSettingData = &SettingCentreWidgetPrivate::setSettingData;
}

void SettingCentreWidgetPrivate::InitUIWin()
{
    QString const title = SettingCentreWidget::settingCentreName();
    q_ptr->setWindowIcon(QIcon(QStringLiteral(":/img/logo.ico")));
    q_ptr->setWindowTitle(QString::fromUtf8("设置中心"));
    q_ptr->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    q_ptr->setFixedSize(kWidth, kHeight);
    basegui::Common::setWidgetMidPos(q_ptr, nullptr, QPoint(50, 50));
    q_ptr->setObjectName(QStringLiteral("SettingCentreWidget"));
    // Asked first by name when the frame opens the centre; the window itself
    // declines, so the manager (mounted too) brings it to the front.
    if (!q_ptr->mount(q_ptr->objectName(), nullptr))
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "[SettingCentreWidget] mount %s failed",
                    qUtf8Printable(q_ptr->objectName()));
    q_ptr->setAttribute(Qt::WA_StyledBackground);
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/settingCentreWidget.qss")));

    m_pTitleWin = new PromptTitleWin(q_ptr);
    m_pTitleWin->setParas(PromptTitleWin::TYPE_NORMAL, title, false, true);
    m_pTitleWin->setBackgroundColor(QStringLiteral("#DBEAFF"));
    m_pTitleWin->setTitleColor(QStringLiteral("#333444"));
    m_pTitleWin->setGeometry(0, 0, kWidth - 2, kTitleHeight);
}

void SettingCentreWidgetPrivate::InitUIBody()
{
    m_pBackgroundImgWin = new CQFrame(q_ptr);
    m_pBackgroundImgWin->setObjectName(QStringLiteral("m_pBackgroundImgWin"));
    m_pBackgroundImgWin->setGeometry(1, 1, kWidth - 2, kHeight - 2);
    m_pBackgroundImgWin->lower();

    // The page area has to fit below the title bar inside the fixed window.
    m_pNavigateWidget = new NavigateWidget(kHeight - kTitleHeight, q_ptr);
    m_pNavigateWidget->setObjectName(QStringLiteral("NavigateWidget_SettingCenterWidget"));
    m_pNavigateWidget->move(0, kTitleHeight);
    m_pTitleWin->raise();
}

void SettingCentreWidgetPrivate::InitControl()
{
    SettingCentreWidget* q = q_ptr;
    m_pNavigateWidget->setChangeItemJudgeInfo([this, q](NavigateItemWidget*, NavigateItemWidget* to) {
        if (m_bSwitching)
            return true;
        int const index = m_pNavigateWidget->indexOf(to);
        if (index == m_nIndex) {
            BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                        "SettingCentreWidget::slot_currentChanged d->m_nIndex == index");
            return false;
        }
        return q->mutableCurrentWidget() == 0;
    });
    QObject::connect(m_pNavigateWidget, &NavigateWidget::sig_currentChanged, q, [this](int index) {
        if (m_bSwitching)
            return;
        // The navigation switched on its own (a click, a page removed or the
        // first page added): the new page shows fresh values.
        m_nIndex = index;
        if (SettingItemWidget* shown = page(index))
            shown->slot_updatePageInfo();
    });
    QObject::connect(SettingPluginModelDataInterface::singleInstance(), &SettingPluginModelDataInterface::sig_updateData,
                     q, &SettingCentreWidget::slot_update_ui);
    QObject::connect(m_pTitleWin, &PromptTitleWin::sig_close_btn_clicked, q, &SettingCentreWidget::sig_close);
}

bool SettingCentreWidgetPrivate::setSettingData(QVariant data)
{
    SettingPluginModelDataInterface* bridge = SettingPluginModelDataInterface::singleInstance();
    QFuture<bool> future = QtConcurrent::run([bridge, data]() { return bridge->setSettingData(data); });
    if (!AsyncInvoker::wait(future, -1))
        return false;
    return future.result();
}

void SettingCentreWidgetPrivate::unmountPages()
{
    FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
    for (QString const& name : qAsConst(m_mountedNames)) {
        if (proxy->find(name) == q_ptr)
            proxy->unmount(name);
    }
    m_mountedNames.clear();
}

// ---------------------------------------------------------------- window

SettingCentreWidget::SettingCentreWidget(QWidget* parent)
    : CQMainWindow(parent)
    , d_ptr(new SettingCentreWidgetPrivate(this))
{
}

SettingCentreWidget::~SettingCentreWidget()
{
    d_ptr->unmountPages();
    unmount();
    // Pages belong to their plugins; the navigation hands them back when it goes.
    delete d_ptr->m_pNavigateWidget;
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[SettingCentreWidget] delete SettingCentreWidget obj");
}

QString SettingCentreWidget::settingCentreName()
{
    std::string name;
    int const r = DravoGuiConfig::productName(name);
    if (r != 0)
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "[LogCenterWidget] get product name failed, r = %d", r);
    QString product = QString::fromStdString(name).trimmed();
    if (product.isEmpty())
        product = QString::fromUtf8(kDefaultProductName);
    return QStringLiteral("%1 - %2").arg(product, QStringLiteral("设置中心"));
}

bool SettingCentreWidget::addItem(SettingItemWidget* page)
{
    if (!page)
        return false;
    if (page->objectName().isEmpty()) {
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                    "[SettingCentreWidget] object name is empty, not add.");
        return false;
    }
    QString const key = page->getBarObject();
    if (findItem(key)) {
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "[SettingCentreWidget] find %s, not add.",
                    qUtf8Printable(key));
        return false;
    }
    page->setMaximumSize(kPageMaxWidth, kPageMaxHeight);
    page->slot_updatePageInfo();
    connect(page, &SettingItemWidget::sig_save, this, &SettingCentreWidget::slot_saveCurrentPage, Qt::UniqueConnection);
    {
        QMutexLocker locker(&d_ptr->m_mutex);
        d_ptr->m_pNavigateWidget->addItem(page);
    }
    if (FrameLinkProxy::singleInstance()->mount(page->objectName(), this))
        d_ptr->m_mountedNames << page->objectName();
    return true;
}

bool SettingCentreWidget::removeItem(QString const& key)
{
    SettingItemWidget* page = findItem(key);
    if (!page) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[SettingCentreWidget::removeItem] find %s",
                    qUtf8Printable(key));
        return false;
    }
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[SettingCentreWidget::removeItem] find %s",
                qUtf8Printable(key));
    disconnect(page, &SettingItemWidget::sig_save, this, &SettingCentreWidget::slot_saveCurrentPage);
    QString const name = page->objectName();
    if (d_ptr->m_mountedNames.removeAll(name) > 0 && FrameLinkProxy::singleInstance()->find(name) == this)
        FrameLinkProxy::singleInstance()->unmount(name);
    d_ptr->m_pNavigateWidget->removeItem(page);
    return true;
}

SettingItemWidget* SettingCentreWidget::findItem(QString const& key) const
{
    if (key.isEmpty())
        return nullptr;
    return qobject_cast<SettingItemWidget*>(d_ptr->m_pNavigateWidget->widget(key));
}

int SettingCentreWidget::itemCount() const
{
    return d_ptr->m_pNavigateWidget->count();
}

SettingItemWidget* SettingCentreWidget::currentItem() const
{
    return d_ptr->current();
}

int SettingCentreWidget::currentIndex() const
{
    return d_ptr->m_nIndex;
}

bool SettingCentreWidget::gotoChildObject(QString const& name)
{
    d_ptr->m_pNavigateWidget->setCurrentWinByObjName(name);
    // Not "handled": the frame goes on to the manager, which brings the window up.
    return false;
}

bool SettingCentreWidget::tryHide()
{
    // The kit's hide runs the hide hooks, and through them the unsaved-edits
    // question; a veto leaves the window visible.
    hide();
    return !isVisible();
}

bool SettingCentreWidget::preShowEvent()
{
    if (!s_bEverShown) {
        s_bEverShown = true;
        d_ptr->m_nIndex = -1;
        slot_currentChanged(0);
    }
    SettingItemWidget* page = d_ptr->current();
    if (!page)
        return false;
    if (!page->preShowEvent())
        return true;
    page->slot_updatePageInfo();
    return true;
}

void SettingCentreWidget::postShowEvent()
{
    if (SettingItemWidget* page = d_ptr->current())
        page->postShowEvent();
}

bool SettingCentreWidget::preHideEvent()
{
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "SettingCentreWidget::preHideEvent begin...");
    return mutableCurrentWidget() == 0;
}

void SettingCentreWidget::postHideEvent()
{
    SettingItemWidget* page = d_ptr->current();
    if (page && page->preHideEvent())
        page->postHideEvent();
}

int SettingCentreWidget::mutableCurrentWidget()
{
    QPointer<SettingItemWidget> page = d_ptr->current();
    bool const saved = page ? page->slot_isSavedPageInfo() : true;
    if (saved) {
        if (page)
            page->slot_updatePageInfo();
        return 0;
    }
    PromptDialog dialog(PromptDialog::MODE_TWO_ROW_TWO_BTN, QStringLiteral("没点击保存，切换标签页会导致已填数据丢失。"),
                        QStringLiteral("确认要切换标签页吗？"), this);
    dialog.centreOn(this);
    if (dialog.exec() != QDialog::Accepted)
        return kVeto;
    // The answer came from a nested event loop; the page may be gone by now.
    if (page)
        page->slot_updatePageInfo();
    return 0;
}

void SettingCentreWidget::slot_currentChanged(int index)
{
    if (index == d_ptr->m_nIndex) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "SettingCentreWidget::slot_currentChanged d->m_nIndex == index");
        return;
    }
    if (mutableCurrentWidget() != 0)
        return;
    QPointer<SettingItemWidget> page = d_ptr->page(index);
    if (!page) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "SettingCentreWidget::slot_currentChanged pSetting == NULL)");
        return;
    }
    if (!page->preShowEvent()) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "SettingCentreWidget::slot_currentChanged !pSetting->preShowEvent())");
        return;
    }
    QPointer<SettingItemWidget> old = d_ptr->current();
    if (old && !old->preHideEvent()) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "SettingCentreWidget::slot_currentChanged !pSetting->preHideEvent())");
        return;
    }
    if (!page)
        return;
    d_ptr->m_nIndex = index;
    d_ptr->m_bSwitching = true;
    d_ptr->m_pNavigateWidget->forceCurrentItem(page);
    d_ptr->m_bSwitching = false;
    if (old && old != page)
        old->postHideEvent();
    if (page)
        page->slot_updatePageInfo();
}

void SettingCentreWidget::slot_saveCurrentPage(QObject* button)
{
    QPointer<SettingItemWidget> page = d_ptr->current();
    if (!page) {
        CQToastWidget::showToast(this, QStringLiteral("设置保存异常"), CQToastWidget::ICON_ERROR, kToastMsecs);
        return;
    }
    QString const name = page->getBarName();
    QPointer<QAbstractButton> pushButton = qobject_cast<QAbstractButton*>(button);
    QPointer<CQButton> kitButton = qobject_cast<CQButton*>(button);
    if (pushButton)
        pushButton->setEnabled(false);
    if (kitButton)
        kitButton->startLoadingStatus(14, QString(), 15);

    // Blocks in a nested event loop until the backend has stored the record.
    bool const ok = page->slot_savePageInfo();

    if (kitButton)
        kitButton->stopLoadingStatus();
    if (pushButton)
        pushButton->setEnabled(true);
    if (ok)
        CQToastWidget::showToast(this, QStringLiteral("%1 设置保存成功").arg(name), CQToastWidget::ICON_SUCCESS, kToastMsecs);
    else
        CQToastWidget::showToast(this, QStringLiteral("%1 设置保存失败").arg(name), CQToastWidget::ICON_FAILURE, kToastMsecs);
}

void SettingCentreWidget::slot_update_ui()
{
    QMutexLocker locker(&d_ptr->m_mutex);
    QStringList const names = d_ptr->m_pNavigateWidget->names();
    for (QString const& name : names) {
        auto* page = qobject_cast<SettingItemWidget*>(d_ptr->m_pNavigateWidget->widget(name));
        if (!page) {
            BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                        "[SettingCentreWidget] pSetting is null, name is [%s]", qUtf8Printable(name));
            continue;
        }
        page->slot_updatePageInfo();
    }
}
