#pragma once

#include "basegui_global.h"

#include <functional>

class QAbstractButton;
class QKeyEvent;

// Esc and Enter on the kit's prompt windows, the way a dialog answers them:
// Esc does what the window's cancel or close button does, Enter (or Return)
// presses its default button. The kit's buttons never take the focus, so
// there is no focused button to prefer.
//
// An auto-repeated Enter is swallowed: a key held down on one prompt must not
// answer the next one that opens under it (the quit flow's ask window, then
// its confirmation).
class BASEGUI_EXPORT PromptKeys
{
public:
    // true when the key was taken (the event is then accepted); the caller
    // passes any other key on to its base class. A hidden or disabled default
    // button is not pressed, and a null `cancel` leaves Esc alone.
    static bool handle(QKeyEvent* event, QAbstractButton* defaultButton, std::function<void()> const& cancel);

private:
    PromptKeys() = delete;
};
