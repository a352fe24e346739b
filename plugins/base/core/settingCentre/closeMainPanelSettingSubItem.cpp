#include "closeMainPanelSettingSubItem.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqradiobutton.h"
#include "settingpluginmodeldatainterface.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
constexpr char kLogModule[] = "plugins/base/core/settingCentre/closeMainPanelSettingSubItem";
constexpr char kSettingTypeName[] = "SETTING_COMMON";

struct ChoiceLook
{
    char const* objectName;
    char const* text;
    int width;
};

// Index = the stored closeAction value.
constexpr ChoiceLook kChoices[] = {
    {"m_pRadioBtnQuit", "退出程序", 80},
    {"m_pRadioBtnMinimize", "最小化到托盘", 108},
    {"m_pRadioBtnAsk", "每次提醒我选择", 122},
};
constexpr int kChoiceCount = int(sizeof(kChoices) / sizeof(kChoices[0]));
} // namespace

class CloseMainPanelSettingSubItemPrivate
{
public:
    explicit CloseMainPanelSettingSubItemPrivate(CloseMainPanelSettingSubItem* q)
        : q_ptr(q)
    {
        InitUI();
    }

    void InitUI();
    // Checks the button of `value`; any other value leaves none checked.
    void check(int value);

    CloseMainPanelSettingSubItem* q_ptr = nullptr;
    QVBoxLayout* m_pLayout = nullptr;
    QLabel* m_pLabelTitle = nullptr;
    QButtonGroup* m_pButtonGroup = nullptr;
    CQRadioButton* m_pButtons[kChoiceCount] = {};
    int m_nSavedValue = 0;
    // The saved value before the last save, restored if the store fails.
    int m_nValueBeforeSave = 0;
};

void CloseMainPanelSettingSubItemPrivate::InitUI()
{
    q_ptr->setFixedHeight(62);
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/closeMainPanelSettingSubItem.qss")));

    m_pLayout = new QVBoxLayout(q_ptr);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(0);

    m_pLabelTitle = new QLabel(QStringLiteral("关闭主面板时"), q_ptr);
    m_pLabelTitle->setObjectName(QStringLiteral("m_pLabelCloseMainPanelTitle"));
    m_pLabelTitle->setFixedSize(150, 24);
    m_pLayout->addWidget(m_pLabelTitle);
    m_pLayout->addSpacing(16);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(40);
    m_pButtonGroup = new QButtonGroup(q_ptr);
    m_pButtonGroup->setExclusive(true);
    for (int value = 0; value < kChoiceCount; ++value) {
        auto* button = new CQRadioButton(QString::fromUtf8(kChoices[value].text), q_ptr);
        button->setObjectName(QString::fromLatin1(kChoices[value].objectName));
        button->setFixedSize(kChoices[value].width, 22);
        m_pButtonGroup->addButton(button, value);
        row->addWidget(button);
        m_pButtons[value] = button;
    }
    row->addStretch();
    m_pLayout->addLayout(row);
}

void CloseMainPanelSettingSubItemPrivate::check(int value)
{
    if (value >= 0 && value < kChoiceCount) {
        m_pButtons[value]->setChecked(true);
        return;
    }
    // An exclusive group never lets the last checked button go by itself.
    m_pButtonGroup->setExclusive(false);
    for (CQRadioButton* button : m_pButtons)
        button->setChecked(false);
    m_pButtonGroup->setExclusive(true);
}

CloseMainPanelSettingSubItem::CloseMainPanelSettingSubItem(QWidget* parent)
    : SettingSubItemWidget(parent)
    , d_ptr(new CloseMainPanelSettingSubItemPrivate(this))
{
    connect(this, &CloseMainPanelSettingSubItem::sig_updateInfo, this, &CloseMainPanelSettingSubItem::slot_updateInfo);
}

CloseMainPanelSettingSubItem::~CloseMainPanelSettingSubItem()
{
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                "[CloseMainPanelSettingSubItem] delete CloseMainPanelSettingSubItem obj");
}

int CloseMainPanelSettingSubItem::checkedValue() const
{
    return d_ptr->m_pButtonGroup->checkedId();
}

int CloseMainPanelSettingSubItem::savedValue() const
{
    return d_ptr->m_nSavedValue;
}

bool CloseMainPanelSettingSubItem::slot_savePageInfo(QVariant& data)
{
    _SETTING_COMMON_ record = data.value<_SETTING_COMMON_>();
    int const checked = checkedValue();
    if (checked >= 0)
        record.closeAction = checked;
    d_ptr->m_nValueBeforeSave = d_ptr->m_nSavedValue;
    d_ptr->m_nSavedValue = record.closeAction;
    data = QVariant::fromValue(record);
    return true;
}

void CloseMainPanelSettingSubItem::slot_saveFinished(bool stored)
{
    if (!stored)
        d_ptr->m_nSavedValue = d_ptr->m_nValueBeforeSave;
}

bool CloseMainPanelSettingSubItem::slot_isSavedPageInfo()
{
    return qMax(0, checkedValue()) == d_ptr->m_nSavedValue;
}

bool CloseMainPanelSettingSubItem::slot_updatePageInfo()
{
    __sSettingData const data =
        SettingPluginModelDataInterface::singleInstance()->getSettingData(QString::fromLatin1(kSettingTypeName));
    emit sig_updateInfo(data);
    return true;
}

void CloseMainPanelSettingSubItem::slot_updateInfo(__sSettingData data)
{
    if (data.key != 0)
        return;
    if (data.value.userType() != qMetaTypeId<_SETTING_COMMON_>()) {
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                    "[CloseMainPanelSettingSubItem] value is not a SETTING_COMMON record, ignored");
        return;
    }
    int const closeAction = data.value.value<_SETTING_COMMON_>().closeAction;
    d_ptr->m_nSavedValue = closeAction;
    d_ptr->check(closeAction);
}

void CloseMainPanelSettingSubItem::updateLockStatus(bool locked)
{
    SettingSubItemWidget::updateLockStatus(locked);
    for (CQRadioButton* button : d_ptr->m_pButtons)
        button->setEnabled(!locked);
}
