#pragma once

#include "bridgerecords.h"
#include "msgmgrwininterface.h"

#include <QPointer>

class CQButton;
class CQCloseBtn;
class CQFrame;
class CQLabel;
class CQTextButton;
class DevicePopSubWin;
class PromptTitleWin;
class QVBoxLayout;

// The notice of one device-control event (a device blocked, allowed or
// found). Every request is a window of its own. A request with details offers
// "设备详情", which opens them in a free-standing DevicePopSubWin.
class DevicePopWin : public MsgMgrWinInterface
{
    Q_OBJECT
public:
    DevicePopWin(__sDeviceMgrPopup const& info, QWidget* parent);
    ~DevicePopWin() override;

    // Also fixes the window's height: the message manager stacks by it.
    int changUIType(MsgMgrWinInterface::eUIType type) override;

    DevicePopSubWin* detailsWin() const;

public slots:
    void slot_textBtnAction();

private:
    void initWin();
    void initTitleWin();
    void InitUIBody();
    void InitUIBottom();
    void initControl();
    void unInitControl();

    QVBoxLayout* m_pLayout = nullptr;
    PromptTitleWin* m_pTitleWin = nullptr;
    CQLabel* m_pLabMsgTitle = nullptr;
    CQLabel* m_pLabMsgContent = nullptr;
    CQTextButton* m_pBtnText = nullptr;
    CQFrame* m_pWinBottom = nullptr;
    CQButton* m_pBtnMain = nullptr;
    // No parent: it may outlive this notice; cleared when it is destroyed.
    QPointer<DevicePopSubWin> m_pSubWin;
    CQFrame* m_pTitleWinBackground = nullptr;
    CQLabel* m_pTitleWin1 = nullptr;
    CQCloseBtn* m_pBtnClose = nullptr;
    __sDeviceMgrPopup m_info;
};
