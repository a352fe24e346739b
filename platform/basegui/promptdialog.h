#pragma once

#include "basegui_global.h"

#include <QDialog>

class QLabel;
class CQButton;
class CQNoticeIcon;
class PromptTitleWin;

// A modal yes/no question: exec() returns 1 (QDialog::Accepted) for the OK
// button and 0 for cancel, the close button or Esc. A test answers it by
// accepting or rejecting the dialog from a queued call while exec() runs.
class BASEGUI_EXPORT PromptDialog : public QDialog
{
    Q_OBJECT
public:
    enum eMode {
        MODE_ONE_ROW_ONE_BTN = 0,
        MODE_ONE_ROW_TWO_BTN = 1,
        MODE_TWO_ROW_ONE_BTN = 2,
        MODE_TWO_ROW_TWO_BTN = 3
    };

    explicit PromptDialog(QWidget* parent = nullptr);
    PromptDialog(int mode, QString const& line1, QString const& line2, QWidget* parent = nullptr);
    ~PromptDialog() override;

    // An unknown mode is logged and taken as MODE_TWO_ROW_TWO_BTN.
    void setParas(int mode, QString const& line1, QString const& line2 = QString());
    int mode() const;
    void setTitle(QString const& title);
    void setButtonTexts(QString const& okText, QString const& cancelText);
    void setIconType(int noticeIconType);
    // Centres the dialog over `w`'s window (over the screen for null).
    void centreOn(QWidget* w);

    CQButton* okButton() const;
    CQButton* cancelButton() const;
    PromptTitleWin* titleWin() const;

protected:
    // Esc rejects, Enter accepts (QDialog's own handling would press a
    // focused button, and the kit's buttons take no focus).
    void keyPressEvent(QKeyEvent* event) override;

private:
    void InitUI();
    void InitControl();

    int m_mode = MODE_TWO_ROW_TWO_BTN;
    PromptTitleWin* m_pTitleWin = nullptr;
    CQNoticeIcon* m_pIcon = nullptr;
    QLabel* m_pLabLine1 = nullptr;
    QLabel* m_pLabLine2 = nullptr;
    CQButton* m_pBtnOk = nullptr;
    CQButton* m_pBtnCancel = nullptr;
};
