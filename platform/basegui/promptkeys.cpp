#include "promptkeys.h"

#include <QAbstractButton>
#include <QKeyEvent>

bool PromptKeys::handle(QKeyEvent* event, QAbstractButton* defaultButton, std::function<void()> const& cancel)
{
    if (!event || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event->key()) {
    case Qt::Key_Escape:
        if (!cancel)
            return false;
        event->accept();
        cancel();
        return true;
    case Qt::Key_Enter:
    case Qt::Key_Return:
        event->accept();
        if (!event->isAutoRepeat() && defaultButton && defaultButton->isVisible() && defaultButton->isEnabled())
            defaultButton->click();
        return true;
    default:
        return false;
    }
}
