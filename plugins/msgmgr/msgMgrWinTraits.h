#pragma once

#include "msgmgrwininterface.h"

#include <QSize>

// What the message manager needs to ask of a window another plugin hands it:
// whether the pointer is a live window at all, turning it into a notification
// that never takes the keyboard focus, and its size in each look. The X11
// specifics stay in here.
class MsgMgrWinTraits
{
public:
    MsgMgrWinTraits() = delete;

    // `candidate` if it is the address of a live top-level MsgMgrWinInterface,
    // else null. The pointer is only compared, never dereferenced, until the
    // application has vouched for it.
    static MsgMgrWinInterface* liveWindow(MsgMgrWinInterface const* candidate);

    // Frameless, above normal windows, shown without activation and refusing
    // the focus, so that a pop-up never steals the keys from what the user is
    // typing into; clicks still reach its buttons. Idempotent: flags are only
    // touched when missing, since changing them hides a shown window.
    static void prepareAsNotification(MsgMgrWinInterface* window);

    // The window's size once switched to `look` (it stays in that look).
    static QSize sizeInLook(MsgMgrWinInterface* window, MsgMgrWinInterface::eUIType look);
    // The size it will have when shown: a window nobody sized yet gets its
    // size hint on show, as Qt itself would give it.
    static QSize currentSize(MsgMgrWinInterface* window);

private:
    static void setX11NotificationType(MsgMgrWinInterface* window);
};
