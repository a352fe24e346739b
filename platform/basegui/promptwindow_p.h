#pragma once

#include <QLayout>
#include <QWidget>

namespace basegui {
namespace detail {

// Prompt windows keep a fixed width and take the height their content needs at
// that width: word-wrapped texts make the height depend on the width, which a
// fixed-size layout constraint would ignore (it shrinks the width to fit).
inline void fitHeightToWidth(QWidget* w)
{
    QLayout* layout = w ? w->layout() : nullptr;
    if (!layout)
        return;
    layout->activate();
    int const height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(w->width())
                                                   : layout->totalSizeHint().height();
    w->setFixedHeight(height);
}

} // namespace detail
} // namespace basegui
