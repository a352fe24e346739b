#pragma once

#include "cqframe.h"

class MessageTipPrivate;
class QStackedWidget;
class SubMessageTipItemInterface;

// The 744 x 152 strip of the home page that shows one of the message panels
// plugins contribute; a panel brings itself to the front with sig_changeWin.
class MessageTip : public CQFrame
{
    Q_OBJECT
public:
    explicit MessageTip(QWidget* parent);
    ~MessageTip() override;

    // -1 for a null item, else 0. The stack owns the panel while it is registered.
    int registerItem(SubMessageTipItemInterface* item);
    // -1 for a null item, else 0. The panel goes back to its owner, alive.
    int unRegisterItem(SubMessageTipItemInterface* item);

    QStackedWidget* stackedWidget() const;

public slots:
    void slot_changeWin(QWidget* w);

private:
    MessageTipPrivate* d_ptr = nullptr;
};
