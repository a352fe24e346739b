#pragma once

#include "baseTestPage.h"

#include "bridgerecords.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

// What the backend orders the GUI to do: an administrator's shutdown or
// restart (method, count-down), a backend prompt of each kind, a jump to a
// page, the main window and tray-menu events, the acknowledgement of the weak
// password check, and quitting the client.
class BaseTestOrderPage : public BaseTestPage
{
    Q_OBJECT
public:
    // The parameterless events of the window box, in its list's order.
    enum eWindowEvent {
        WINDOW_CENTER_SHOW = 0,
        WINDOW_HIDE = 1,
        WINDOW_TRAY_POP_SHOW = 2,
        WINDOW_TRAY_POP_HIDE = 3,
        WINDOW_APP_QUIT = 4
    };

    explicit BaseTestOrderPage(QWidget* parent = nullptr);
    ~BaseTestOrderPage() override;

    // The prompt record as the fields stand.
    _sNoticeWinInfo_ prompt() const;

private:
    void InitUIPower();
    void InitUIPrompt();
    void InitUIJump();
    void InitUIWindow();
    void InitUIWeakPasswd();
    void emitWindowEvent() const;

    QComboBox* m_pComboPowerMethod = nullptr;
    QSpinBox* m_pSpinPowerTime = nullptr;
    QComboBox* m_pComboPromptType = nullptr;
    QLineEdit* m_pEditPromptText1 = nullptr;
    QPlainTextEdit* m_pEditPromptText2 = nullptr;
    QPlainTextEdit* m_pEditPromptText3 = nullptr;
    QPlainTextEdit* m_pEditPromptText4 = nullptr;
    QLineEdit* m_pEditJumpPage = nullptr;
    QComboBox* m_pComboWindowEvent = nullptr;
};
