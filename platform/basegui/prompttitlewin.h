#pragma once

#include "basegui_global.h"

#include <QFrame>

class QAbstractButton;
class CQLabel;
class CQNoticeIcon;
class CQCloseBtn;

// The title strip of the kit's prompt and pop-up windows: optional shield icon,
// the title, and a close button. Pressing and dragging it moves its window.
class BASEGUI_EXPORT PromptTitleWin : public QFrame
{
    Q_OBJECT
public:
    enum eType {
        TYPE_NORMAL = 0,   // light blue strip, dark text
        TYPE_ACCENT = 1,   // accent strip, white text
        TYPE_URGENT = 2    // red-orange strip, white text
    };

    explicit PromptTitleWin(QWidget* parent = nullptr);
    ~PromptTitleWin() override;

    // An unknown type is logged and shown as TYPE_NORMAL.
    void setParas(int type, QString const& title, bool showIcon, bool showClose);
    void setTitle(QString const& title);
    QString title() const;
    int type() const;
    // Overrides the type's colours ("#DBEAFF", "#333444"); invalid names are ignored.
    void setBackgroundColor(QString const& color);
    void setTitleColor(QString const& color);
    QAbstractButton* closeButton() const;

signals:
    void sig_close_btn_clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void InitUI();
    void applyStyle();

    int m_type = TYPE_NORMAL;
    QString m_background;
    QString m_titleColor;
    CQNoticeIcon* m_pIcon = nullptr;
    CQLabel* m_pLabelTitle = nullptr;
    CQCloseBtn* m_pCloseBtn = nullptr;
    QPoint m_dragOffset;
    bool m_dragging = false;
};
