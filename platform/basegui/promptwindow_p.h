#pragma once

#include "cqnoticeicon.h"

#include <QBoxLayout>
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

// The body every prompt shares: its notice icon at the top left and, beside it,
// the column that takes the prompt's texts (returned for the caller to fill).
inline QVBoxLayout* addNoticeBody(QVBoxLayout* main, CQNoticeIcon* icon)
{
    auto* body = new QHBoxLayout;
    body->setContentsMargins(24, 24, 24, 0);
    body->setSpacing(12);
    icon->setFixedSize(24, 24);
    body->addWidget(icon, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(8);
    body->addLayout(texts, 1);
    main->addLayout(body);
    return texts;
}

} // namespace detail
} // namespace basegui
