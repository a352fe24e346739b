#include "sampleSettingPage.h"

#include "clogdebug.h"
#include "sampleWidgets.h"
#include "settingsubitemwidget.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {
char const* const kModule = "examples/sample-plugin/sampleSettingPage";
int const kRowWidth = 700;
int const kRowHeight = 48;
} // namespace

SampleSettingPage::SampleSettingPage(QWidget* parent)
    : SettingItemWidget(parent)
{
    // The centre refuses a page without an object name.
    setObjectName(QStringLiteral("SampleSettingPage"));
    m_pRow = createRow(QStringLiteral("SampleSettingPageRow"),
                       QString::fromUtf8("示例插件：设置中心里的一页，由 BASEPLUGIN_CMD_REGISTER_SETTING 注册"));
    registerItem(m_pRow);
}

SampleSettingPage::~SampleSettingPage()
{
    delete m_pRow.data();
    BFLOG(BFLOG_DEBUG, kModule, "[SampleSettingPage] delete SampleSettingPage obj");
}

QString SampleSettingPage::getBarName()
{
    return QString::fromUtf8("示例设置");
}

QString SampleSettingPage::getBarObject()
{
    return objectName();
}

SettingSubItemWidget* SampleSettingPage::createRow(QString const& objectName, QString const& text)
{
    auto* row = new SettingSubItemWidget();
    row->setObjectName(objectName);
    row->setFixedHeight(kRowHeight);
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(SampleWidgets::plainLabel(objectName + QStringLiteral("_Label"), text,
                                                QSize(kRowWidth, kRowHeight - 8)),
                      0, Qt::AlignLeft | Qt::AlignVCenter);
    return row;
}

// The sample keeps no settings in the backend. A page with a record of its own
// leaves this to SettingItemWidget, which passes the page data through every
// row and stores the result.
bool SampleSettingPage::slot_savePageInfo()
{
    BFLOG(BFLOG_INFO, kModule, "[SampleSettingPage] nothing to store");
    return true;
}
