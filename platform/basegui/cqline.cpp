#include "cqline.h"

#include "clogdebug.h"

#include <QColor>

CQLine::CQLine(Qt::Orientation orientation, QWidget* parent)
    : QFrame(parent)
{
    setObjectName("CQLine");
    setFrameShape(QFrame::NoFrame);
    setOrientation(orientation);
}

CQLine::CQLine(QWidget* parent)
    : CQLine(Qt::Vertical, parent)
{
}

CQLine::~CQLine() = default;

void CQLine::setOrientation(Qt::Orientation orientation)
{
    m_orientation = orientation;
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    if (orientation == Qt::Vertical) {
        setFixedWidth(1);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    } else {
        setFixedHeight(1);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    applyStyle();
}

Qt::Orientation CQLine::orientation() const
{
    return m_orientation;
}

void CQLine::setColor(QString const& color)
{
    if (!QColor::isValidColor(color)) {
        BFLOG(3, "platform/basegui/cqline", "[CQLine] invalid colour [%s]", qUtf8Printable(color));
        return;
    }
    m_color = color;
    applyStyle();
}

void CQLine::applyStyle()
{
    setStyleSheet(QStringLiteral("CQLine{background:%1;border:none;}").arg(m_color));
}
