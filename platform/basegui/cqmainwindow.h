#pragma once

#include "basegui_global.h"

#include <QMetaObject>
#include <QPointer>
#include <QWidget>

// Frameless top-level window: a title widget across the top (drags the window)
// and a body below it. The body can be taken from the frame link proxy: the
// frame widget of whatever gets mounted under the body mount name.
//
// The window does not own its title and body in the sense of deleting them on
// replacement: a replaced one is hidden and detached, one deleted by its owner
// simply leaves its place empty. A 1-pixel #DFE1E6 border is drawn over
// everything, so the parts can take the full width.
//
// Show and hide hooks: preShowEvent() runs before the window appears and
// postShowEvent() after; preHideEvent() runs before it hides and can veto the
// hide by returning false; postHideEvent() runs after.
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
    QString bodyMountName() const;

    // Shows the window (restored if minimised), raises and activates it.
    void activateShow();

    void setVisible(bool visible) override;

protected:
    // Whether the window is ready to be shown; it is shown either way (a
    // window asked to appear does appear), the answer is for subclasses.
    virtual bool preShowEvent();
    virtual void postShowEvent();
    // false keeps the window on screen.
    virtual bool preHideEvent();
    virtual void postHideEvent();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    // Asks preHideEvent() before the close is accepted, so a veto also keeps
    // a window with WA_DeleteOnClose alive.
    void closeEvent(QCloseEvent* event) override;

private:
    void InitUI();
    void slot_mounted(QString const& name);
    void slot_partDestroyed(QObject* part);
    void relayout();
    void adopt(QWidget* part);
    void release(QWidget* part);
    bool handleTitleMouse(QEvent* event);
    void raiseBorder();

    QPointer<QWidget> m_title;
    QPointer<QWidget> m_body;
    QString m_bodyMountName;
    QPoint m_dragOffset;
    bool m_dragging = false;

    QWidget* m_pBorderWin = nullptr;
    QMetaObject::Connection m_mountConnection;
    bool m_inRelayout = false;
    bool m_inVisibilityHook = false;
    bool m_borderRaisePending = false;
    bool m_mountRetried = false;
    bool m_hideApproved = false;
};
