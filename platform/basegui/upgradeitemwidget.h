#pragma once

#include "basegui_global.h"

#include <QWidget>

// An entry of the upgrade plugin's list of upgradable items: each plugin that
// can be upgraded hands one over, naming itself and its item type.
class BASEGUI_EXPORT UpgradeItemWidget : public QWidget
{
    Q_OBJECT
public:
    explicit UpgradeItemWidget(QWidget* parent = nullptr);
    ~UpgradeItemWidget() override;

    virtual QString name() const;
    virtual int type() const;
};
