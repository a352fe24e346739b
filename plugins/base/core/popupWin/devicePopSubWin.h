#pragma once

#include "cqframe.h"

class CQButton;
class CQLabel;
class PromptTitleWin;
class QVBoxLayout;

// The details of a device-control notice in a window of their own, centred
// on the screen. It has no parent, so it stays open when its notice goes.
class DevicePopSubWin : public CQFrame
{
    Q_OBJECT
public:
    DevicePopSubWin(QString const& title, QString const& detail, QWidget* parent);
    ~DevicePopSubWin() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void initWin();
    void initTitleWin(QString const& title);
    void InitUIBody(QString const& detail);
    void InitUIBottom();
    void initControl();
    void unInitControl();

    QVBoxLayout* m_pLayout = nullptr;
    PromptTitleWin* m_pTitleWin = nullptr;
    CQLabel* m_pLabMsgTitle = nullptr;
    CQLabel* m_pLabMsgContent = nullptr;
    CQFrame* m_pWinBottom = nullptr;
    CQButton* m_pBtnClose = nullptr;
};
