#pragma once

#include "assetArea_global.h"

#include <QDialog>

class CQLoadingWin;

// The asset strip's stand-in while its data is being refreshed: a spinner
// with "加载中" that turns only while the page is on screen.
class ASSETAREA_EXPORT AssetAreaLoading : public QDialog
{
    Q_OBJECT
public:
    explicit AssetAreaLoading(QWidget* parent = nullptr);
    ~AssetAreaLoading() override;

    CQLoadingWin* loadingWin() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void InitUI();

    CQLoadingWin* m_pLoadingWin = nullptr;
};
