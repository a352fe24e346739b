#include "assetAreaWidget.h"

#include "assetArea.h"
#include "assetAreaLoading.h"
#include "basegui_common.h"
#include "clogdebug.h"

namespace {

char const* const kModule = "plugins/base/core/assetArea/assetAreaWidget";

int const kWidth = 744;
int const kHeight = 74;

} // namespace

AssetAreaWidget::AssetAreaWidget(QWidget* parent)
    : QStackedWidget(parent)
{
    InitUI();
    InitControl();
    insertWidget(kAssetPage, m_pAssetArea);
    setCurrentIndex(kLoadingPage);
}

AssetAreaWidget::~AssetAreaWidget()
{
    BFLOG(BFLOG_DEBUG, kModule, "[AssetAreaWidget] delete AssetAreaWidget obj");
}

void AssetAreaWidget::InitUI()
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setFixedSize(kWidth, kHeight);
    setObjectName(QStringLiteral("AssetAreaWidget"));
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/assetAreaWidget.qss")));

    m_pLoading = new AssetAreaLoading(this);
    insertWidget(kLoadingPage, m_pLoading);
    m_pAssetArea = new AssetArea(this);
}

void AssetAreaWidget::InitControl()
{
    // Direct: the refresh runs inside the show handling, so the strip is
    // rebuilt before the first frame that could show it.
    connect(this, &AssetAreaWidget::sig_refreshDataUI, m_pAssetArea, &AssetArea::slot_refresh, Qt::DirectConnection);
    connect(m_pAssetArea, &AssetArea::sig_refreshEnd, this, &AssetAreaWidget::slot_refreshDataUIEnd);
}

AssetArea* AssetAreaWidget::assetArea() const
{
    return m_pAssetArea;
}

AssetAreaLoading* AssetAreaWidget::loadingPage() const
{
    return m_pLoading;
}

void AssetAreaWidget::slot_registerItem(sPluginRegisterItem item)
{
    m_pAssetArea->slot_registerItem(item);
}

void AssetAreaWidget::slot_unRegisterItem(int index)
{
    m_pAssetArea->slot_unRegisterItem(index);
}

void AssetAreaWidget::slot_updateState(signed char state)
{
    m_pAssetArea->slot_updateState(state);
}

void AssetAreaWidget::slot_updateLeftWin(QWidget* w, QPoint pos)
{
    m_pAssetArea->slot_updateLeftWin(w, pos);
}

void AssetAreaWidget::slot_refreshDataUIEnd()
{
    setCurrentIndex(kAssetPage);
}

void AssetAreaWidget::showEvent(QShowEvent* event)
{
    QStackedWidget::showEvent(event);
    setCurrentIndex(kLoadingPage);
    emit sig_refreshDataUI();
}
