#pragma once

#include "basegui_global.h"

#include <QWidget>

class QLabel;
class QMenu;
class QWidgetAction;

// A menu row: icon and text, highlighted under the pointer; emits sig_clicked
// on a left click. Used inside a QWidgetAction: the click then also closes the
// menu and triggers the action, as a plain menu entry would.
class BASEGUI_EXPORT CQMenuItem : public QWidget
{
    Q_OBJECT
public:
    CQMenuItem(QString const& iconPath, QString const& text, QWidget* parent = nullptr);
    ~CQMenuItem() override;

    QString text() const;
    void setText(QString const& text);
    void setIcon(QString const& iconPath);
    bool isHovered() const;

signals:
    void sig_clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void InitUI();
    void activate();
    QWidgetAction* findOwnAction(QMenu* menu) const;
    void setHovered(bool hovered);

    QLabel* m_pLabIcon = nullptr;
    QLabel* m_pLabText = nullptr;
    bool m_hovered = false;
};
