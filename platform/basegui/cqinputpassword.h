#pragma once

#include "basegui_global.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class CQButton;
class PromptTitleWin;

// A password prompt window: a question, a labelled password field with a hint
// below it, and "取消" / "确定". Submitting emits sig_submit(password); the owner
// checks it and answers with slot_updateUIType(0) or (1: red border and the
// error text in place of the hint). Cancel and the close button emit
// sig_close() and hide the window; the owner decides whether to delete it.
class BASEGUI_EXPORT CQInputPassword : public QWidget
{
    Q_OBJECT
public:
    struct sInfo
    {
        QString prompt;       // the question above the field
        QString label;        // the field's label ("退出密码")
        QString hint;         // grey text under the field
        QString title;        // title strip; empty: "提示"
        QString errorText;    // shown in the error state; empty: "密码错误，请重新输入"
        QString okText;       // empty: "确定"
        QString cancelText;   // empty: "取消"
    };

    enum eUIType { UITYPE_NORMAL = 0, UITYPE_ERROR = 1 };

    explicit CQInputPassword(QWidget* parent = nullptr);
    ~CQInputPassword() override;

    void setInfo(sInfo const& info);
    sInfo info() const;
    int uiType() const;
    QString password() const;
    // Empties the field and returns to the normal look.
    void clear();

    QLineEdit* lineEdit() const;
    CQButton* okButton() const;
    CQButton* cancelButton() const;
    PromptTitleWin* titleWin() const;

public slots:
    // 0 normal, 1 error; anything else is logged and ignored.
    void slot_updateUIType(int type);
    // Emits sig_submit with the field's text; an empty field shows the error
    // look with "请输入密码" instead.
    void slot_submit();

signals:
    void sig_submit(QString password);
    void sig_close();

protected:
    // Enter submits (from the field or anywhere in the window), Esc cancels.
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Private;
    Private* d;
};
