#pragma once

#include <QWidget>

class CQButton;
class CQCheckBox;
class PromptTitleWin;

// "关闭": asks what the close button should do this time, minimise to the tray
// or quit, and whether to remember the answer. Deleted when closed.
class MainExitAskWin : public QWidget
{
    Q_OBJECT
public:
    enum eSelectedItem { ESELECTEDITEM_QUIT = 0, ESELECTEDITEM_MINIMIZE = 1 };
    Q_ENUM(eSelectedItem)

    explicit MainExitAskWin(QWidget* parent = nullptr);
    ~MainExitAskWin() override;

    eSelectedItem selectedItem() const;
    bool isRemembered() const;

signals:
    void sig_ok_btn_clicked(MainExitAskWin::eSelectedItem item, bool remember);
    // Closed without an answer (cancel or the title's close button).
    void sig_close_win();

public slots:
    void slot_ok();
    void slot_cancel();

protected:
    // Esc cancels, Enter confirms the choice as it stands.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void InitUI();
    void InitControl();

    PromptTitleWin* m_pTitleWin = nullptr;
    CQCheckBox* m_pCheckBoxMin = nullptr;
    CQCheckBox* m_pCheckBoxQuit = nullptr;
    CQCheckBox* m_pCheckBoxRemmemberChoose = nullptr;
    CQButton* m_pBtnCancel = nullptr;
    CQButton* m_pBtnOK = nullptr;
};
