#pragma once

#include "basegui_global.h"

#include <QObject>

class QWidget;

// Rounded corners for a frameless pop-up (a menu) that stay clean whether or
// not a compositing manager runs. Rounded corners need the window to be
// see-through outside them; a translucent window on an X server without a
// compositor shows black there instead. So the pop-up is made translucent
// only when the desktop composites, and otherwise is cut to its rounded shape
// with a window mask (corners without anti-aliasing, but the desktop shows
// through them).
//
// The decision is taken each time the pop-up shows: the translucency when it
// is first shown (it cannot change once the native window exists), the mask on
// every show and resize, so a compositor that stops later never leaves black
// corners. Meant for the right-top menu and the tray menu alike:
//     CQPopupShape::install(menu, 8);   // before the first show
class BASEGUI_EXPORT CQPopupShape : public QObject
{
    Q_OBJECT
public:
    enum eCompositing { COMPOSITING_ASK = -1, COMPOSITING_OFF = 0, COMPOSITING_ON = 1 };

    // Parented to `popup` and gone with it; null for a null popup (logged).
    static CQPopupShape* install(QWidget* popup, int radius);

    // Whether the desktop composites translucent windows: on X11 whether the
    // screen's _NET_WM_CM_S<n> selection has an owner, on Wayland always;
    // other platforms (the offscreen one of the pictures) count as composited.
    static bool isCompositing();
    // Fixes isCompositing()'s answer (tests); COMPOSITING_ASK asks the display again.
    static void setCompositingOverride(eCompositing value);

    int radius() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CQPopupShape(QWidget* popup, int radius);
    void updateMask();

    QWidget* m_pPopup = nullptr;
    int m_radius = 0;
    bool m_compositing = true;
};
