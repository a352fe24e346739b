#include "sampleAssetPage.h"

#include "assetAreaWidget.h"
#include "clogdebug.h"
#include "sampleWidgets.h"

#include <QLabel>

namespace {

char const* const kModule = "examples/sample-plugin/sampleAssetPage";

// A cell's point is (row, column): x counts rows, y counts columns.
QPoint const kCellA(0, 0);
QPoint const kCellB(0, 1);
int const kCellIndexA = 1;
int const kCellIndexB = 2;
QSize const kCellSize(150, 22);
// The badge on the computer icon: 0 none, 1 risk, 2 danger.
signed char const kBadgeRisk = 1;
// The right slot is 72 x 74 and places widgets where they are told.
QPoint const kLeftWinPos(4, 26);
QSize const kLeftWinSize(64, 22);

} // namespace

SampleAssetPage::SampleAssetPage(QWidget* parent)
    : SampleNavigatePage(pageName(), QString::fromUtf8("示例资产"),
                         QString::fromUtf8("示例插件：承载基础插件导出的资产区 AssetAreaWidget 的导航页"), parent)
{
    InitUI();
    InitControl();
    InitData();
}

SampleAssetPage::~SampleAssetPage()
{
    for (QPointer<QWidget> const& w : qAsConst(m_placed))
        delete w.data();
    BFLOG(BFLOG_DEBUG, kModule, "[SampleAssetPage] delete SampleAssetPage obj");
}

QString SampleAssetPage::pageName()
{
    return QStringLiteral("SampleAssetPage");
}

AssetAreaWidget* SampleAssetPage::assetArea() const
{
    return m_pAssetArea;
}

void SampleAssetPage::InitUI()
{
    m_pAssetArea = new AssetAreaWidget(this);
    m_pAssetArea->setObjectName(QStringLiteral("SampleAssetArea"));
    addContent(m_pAssetArea);
}

void SampleAssetPage::InitControl()
{
    connect(this, &SampleAssetPage::sig_assetItem, m_pAssetArea, &AssetAreaWidget::slot_registerItem);
    connect(this, &SampleAssetPage::sig_assetState, m_pAssetArea, &AssetAreaWidget::slot_updateState);
    connect(this, &SampleAssetPage::sig_assetLeftWin, m_pAssetArea, &AssetAreaWidget::slot_updateLeftWin);
}

void SampleAssetPage::InitData()
{
    addCell(QStringLiteral("SampleAssetCellA"), QString::fromUtf8("示例资产：第 0 行第 0 列"), kCellIndexA, kCellA);
    addCell(QStringLiteral("SampleAssetCellB"), QString::fromUtf8("示例资产：第 0 行第 1 列"), kCellIndexB, kCellB);
    emit sig_assetState(kBadgeRisk);
    // The right slot keeps no record of what it shows; a second widget would
    // land beside or over this one.
    QLabel* right = SampleWidgets::plainLabel(QStringLiteral("SampleAssetRightSlot"), QString::fromUtf8("右侧槽"),
                                              kLeftWinSize);
    m_placed.append(right);
    emit sig_assetLeftWin(right, kLeftWinPos);
}

void SampleAssetPage::addCell(QString const& objectName, QString const& text, int index, QPoint const& cell)
{
    QLabel* label = SampleWidgets::plainLabel(objectName, text, kCellSize);
    m_placed.append(label);
    sPluginRegisterItem item;
    item.object = label;
    item.index = index;
    item.extra = cell;
    emit sig_assetItem(item);
}
