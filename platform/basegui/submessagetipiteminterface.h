#pragma once

#include "basegui_global.h"

#include <QWidget>

// A message panel that a plugin puts into the main window's message tip. It can
// ask the tip to show another panel.
class BASEGUI_EXPORT SubMessageTipItemInterface : public QWidget
{
    Q_OBJECT
public:
    explicit SubMessageTipItemInterface(QWidget* parent = nullptr);
    ~SubMessageTipItemInterface() override;

signals:
    void sig_changeWin(QWidget* target);
};
