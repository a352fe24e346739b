#pragma once

#include "sampleNavigatePage.h"
#include "spluginregisteritem.h"

#include <QList>
#include <QPoint>
#include <QPointer>

class AssetAreaWidget;

// A navigation page hosting the base plugin's asset strip. The frame only
// exports the strip's class (libui_base_plugin.so, target ui_base_plugin_api);
// the hosting plugin constructs it, owns it, and feeds it through its slots,
// here from the page's own signals as a data source would.
class SampleAssetPage : public SampleNavigatePage
{
    Q_OBJECT
public:
    explicit SampleAssetPage(QWidget* parent = nullptr);
    ~SampleAssetPage() override;

    static QString pageName();
    AssetAreaWidget* assetArea() const;

signals:
    void sig_assetItem(sPluginRegisterItem item);
    void sig_assetState(signed char state);
    void sig_assetLeftWin(QWidget* w, QPoint pos);

private:
    void InitUI();
    void InitControl();
    void InitData();
    void addCell(QString const& objectName, QString const& text, int index, QPoint const& cell);

    AssetAreaWidget* m_pAssetArea = nullptr;
    // The strip hands back what was placed in it (cells and the right slot's
    // widget) instead of deleting it: they are ours to delete.
    QList<QPointer<QWidget>> m_placed;
};
