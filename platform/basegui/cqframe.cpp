#include "cqframe.h"

CQFrame::CQFrame(QWidget* parent)
    : QFrame(parent)
{
    // Style sheets give these frames their backgrounds and borders; without
    // the attribute a frame used as a top-level window would paint none.
    setAttribute(Qt::WA_StyledBackground, true);
}

CQFrame::~CQFrame() = default;
