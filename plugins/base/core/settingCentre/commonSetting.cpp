#include "commonSetting.h"

#include "bridgerecords.h"
#include "clogdebug.h"
#include "settingsubitemwidget.h"

namespace {
constexpr char kLogModule[] = "plugins/base/core/settingCentre/commonSetting";
// Layout hint the widget library gives the general page.
constexpr int kPageIntProperty = 200;
} // namespace

class CommonSettingPrivate
{
public:
    explicit CommonSettingPrivate(CommonSetting* q)
        : q_ptr(q)
    {
        InitVars();
    }

    ~CommonSettingPrivate()
    {
        BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                    "[CommonSettingPrivate] delete CommonSettingPrivate obj");
    }

    // The rows fill this record on save, so the page stores a _SETTING_COMMON_.
    void InitVars()
    {
        q_ptr->setIntProperty(kPageIntProperty);
        q_ptr->setPageData(QVariant::fromValue(_SETTING_COMMON_()));
    }

    CommonSetting* q_ptr = nullptr;
};

CommonSetting::CommonSetting(QWidget* parent)
    : SettingItemWidget(parent)
    , d_ptr(new CommonSettingPrivate(this))
{
    setObjectName(QStringLiteral("CommonSetting"));
}

CommonSetting::~CommonSetting()
{
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[CommonSetting] delete CommonSetting obj");
}

QString CommonSetting::getBarObject()
{
    return QStringLiteral("CommonSetting");
}

QString CommonSetting::getBarName()
{
    return QStringLiteral("常规设置");
}

QString CommonSetting::getSelectedIcon()
{
    return QStringLiteral(":/img/commonSettingLogo.png");
}

QString CommonSetting::getUnselectedIcon()
{
    return QStringLiteral(":/img/commonSettingLogo.png");
}

int CommonSetting::getUIType()
{
    return 0;
}

bool CommonSetting::isInheritedControls()
{
    return true;
}

int CommonSetting::registerItem(SettingSubItemWidget* item)
{
    int const ret = SettingItemWidget::registerItem(item);
    // A row that arrives while the page is open shows the stored value at once.
    if (ret == 0 && isVisible())
        item->slot_updatePageInfo();
    return ret;
}

int CommonSetting::unRegisterItem(SettingSubItemWidget* item)
{
    return SettingItemWidget::unRegisterItem(item);
}

bool CommonSetting::slot_updatePageInfo()
{
    return SettingItemWidget::slot_updatePageInfo();
}
