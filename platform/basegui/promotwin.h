#pragma once

#include "basegui_global.h"
#include "cqautocountdownwin.h"
#include "cqbutton.h"

#include <QWidget>

class QLabel;
class CQNoticeIcon;
class PromptTitleWin;

// A prompt window: title strip, a notice icon after its kind, up to three
// texts, an optional count-down, and one or two buttons. It is shown without
// blocking (show(), never a nested loop), so the caller, or a test, answers it
// through its buttons or signals. Deleted when closed.
class BASEGUI_EXPORT PromotWin : public QWidget
{
    Q_OBJECT
public:
    enum eKind {
        KIND_INFO = 1,
        KIND_SUCCESS = 2,
        KIND_WARNING = 3,
        KIND_ERROR = 4,
        KIND_URGENT = 5
    };

    struct sInfo
    {
        int width = -1;                          // window width; -1 (or too small): 420
        int modal = 1;                           // 1: window-modal over its parent; 0: not modal
        int kind = KIND_INFO;                    // 1..5, the notice icon; others shown as KIND_INFO
        QString title;                           // title strip; empty: "提示"
        QString text;                            // the message
        QString subText;                         // a second, lighter line
        QString detail;                          // small grey text below
        CQAutoCountDownWin::sInfo countDown;     // closes the prompt when it runs out
        QString leftBtnText;                     // empty: no left button
        int leftBtnKind = CQButton::KIND_SECONDARY;
        QString rightBtnText;                    // empty: "确定"
        int rightBtnKind = CQButton::KIND_PRIMARY;
    };

    enum eResult { RESULT_NONE = -1, RESULT_LEFT = 0, RESULT_RIGHT = 1, RESULT_TIMEOUT = 2 };

    explicit PromotWin(QWidget* parent = nullptr);
    ~PromotWin() override;

    // May be called again on an open prompt: it then shows the new content and
    // restarts the count-down.
    void setParas(sInfo const& info);
    sInfo paras() const;
    // How the prompt was answered so far.
    int result() const;

    PromptTitleWin* titleWin() const;
    CQButton* leftButton() const;
    CQButton* rightButton() const;
    CQNoticeIcon* noticeIcon() const;
    CQAutoCountDownWin* countDownWin() const;

    static int noticeIconType(int kind);

signals:
    void sig_left_btn_clicked();
    void sig_right_btn_clicked();
    // The count-down ran out; the prompt closes unanswered.
    void sig_time_is_zero();
    // Emitted once when the window closes, whatever closed it.
    void sig_close();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // Esc closes unanswered, as the title's close button does; Enter presses
    // the right-hand button.
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Private;
    Private* d;
};
