#pragma once

#include "basegui_global.h"

#include <QWidget>

class QLabel;

// A menu row: icon and text, highlighted under the pointer; emits sig_clicked
// on a left click. Used inside a QWidgetAction.
class BASEGUI_EXPORT CQMenuItem : public QWidget
{
    Q_OBJECT
public:
    CQMenuItem(QString const& iconPath, QString const& text, QWidget* parent = nullptr);
    ~CQMenuItem() override;

    QString text() const;
    void setText(QString const& text);

signals:
    void sig_clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_pLabIcon = nullptr;
    QLabel* m_pLabText = nullptr;
    bool m_hovered = false;
};
