#pragma once

#include "bridgerecords.h"
#include "msgmgrwininterface.h"

class CQButton;
class CQFrame;
class CQLabel;
class PromptTitleWin;

// An administrator's shutdown or restart order. The user carries it out at
// once or rejects it; when the count-down on the action button runs out it is
// carried out without them. Closing the window through its title bar rejects.
class BootWin : public MsgMgrWinInterface
{
    Q_OBJECT
public:
    explicit BootWin(QWidget* parent);
    ~BootWin() override;

    // 0 and 1 shut down, 2 restarts; any other value is stored but leaves the
    // texts as they were.
    void setMethod(eDevMgr method);
    eDevMgr method() const;
    void setTime(int seconds);
    // -1 before any setMethod (logged); 0 otherwise.
    int changUIType(MsgMgrWinInterface::eUIType type) override;
    // An administrator's deadline does not move while the pointer rests here.
    void setCountdownPaused(bool paused) override;

signals:
    void sig_reject();
    void sig_boot(eDevMgr method);

public slots:
    void slot_reject();
    void slot_boot();

protected:
    // Esc is no answer to an administrator's order: it neither carries it
    // out nor rejects it, and the window stays.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void InitUIWin();
    void InitUIBody();
    void InitControl();

    PromptTitleWin* m_pTitleWin = nullptr;
    CQFrame* m_pBodyWin = nullptr;
    CQLabel* m_pLabTitle = nullptr;
    CQLabel* m_pLabContent = nullptr;
    CQButton* m_pBtnBoot = nullptr;
    CQButton* m_pBtnReject = nullptr;
    eDevMgr m_method = static_cast<eDevMgr>(-1);
    // Exactly one of sig_boot and sig_reject per window, even if the count-down
    // ends while a click is being handled.
    bool m_answered = false;
};
