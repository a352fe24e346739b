#pragma once

#include "basegui_global.h"

#include <QFrame>

// A 1-pixel separator in the border colour; its thickness is fixed, its length
// follows the layout or a fixed size (e.g. 1 x 42 for a vertical line).
class BASEGUI_EXPORT CQLine : public QFrame
{
    Q_OBJECT
public:
    explicit CQLine(Qt::Orientation orientation = Qt::Vertical, QWidget* parent = nullptr);
    explicit CQLine(QWidget* parent);
    ~CQLine() override;

    void setOrientation(Qt::Orientation orientation);
    Qt::Orientation orientation() const;
    // A "#RRGGBB" (or any QColor name); an invalid name is ignored.
    void setColor(QString const& color);

private:
    void applyStyle();

    Qt::Orientation m_orientation = Qt::Vertical;
    QString m_color = QStringLiteral("#DFE1E6");
};
