#pragma once

#include "assetArea_global.h"
#include "spluginregisteritem.h"

#include <QPoint>
#include <QStackedWidget>

class AssetArea;
class AssetAreaLoading;

// The public face of the asset strip, for the plugin whose page hosts it: a
// two-page stack that shows the loading page (0) each time it is shown,
// refreshes the strip (1) and then shows the strip.
class ASSETAREA_EXPORT AssetAreaWidget : public QStackedWidget
{
    Q_OBJECT
public:
    static constexpr int kLoadingPage = 0;
    static constexpr int kAssetPage = 1;

    explicit AssetAreaWidget(QWidget* parent = nullptr);
    ~AssetAreaWidget() override;

    AssetArea* assetArea() const;
    AssetAreaLoading* loadingPage() const;

signals:
    void sig_refreshDataUI();

public slots:
    void slot_registerItem(sPluginRegisterItem item);
    void slot_unRegisterItem(int index);
    void slot_updateState(signed char state);
    void slot_updateLeftWin(QWidget* w, QPoint pos);
    void slot_refreshDataUIEnd();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void InitUI();
    void InitControl();

    AssetAreaLoading* m_pLoading = nullptr;
    AssetArea* m_pAssetArea = nullptr;
};
