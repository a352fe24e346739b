#pragma once

#include "basegui_global.h"

#include <QPointer>
#include <QWidget>

// Frameless top-level window: a title widget across the top (drags the window)
// and a body below it. The body can be taken from the frame link proxy: the
// frame widget of whatever gets mounted under the body mount name.
class BASEGUI_EXPORT CQMainWindow : public QWidget
{
    Q_OBJECT
public:
    explicit CQMainWindow(QWidget* parent = nullptr);
    ~CQMainWindow() override;

    void setTitleWidget(QWidget* title);
    QWidget* titleWidget() const;
    void setBodyWidget(QWidget* body);
    QWidget* bodyWidget() const;
    // Takes the frame widget mounted on FrameLinkProxy under `name` as the body,
    // now if it is mounted, else as soon as it is.
    void setBodyMountName(QString const& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void slot_mounted(QString const& name);
    void relayout();

    QPointer<QWidget> m_title;
    QPointer<QWidget> m_body;
    QString m_bodyMountName;
    QPoint m_dragOffset;
    bool m_dragging = false;
};
