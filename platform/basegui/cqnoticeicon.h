#pragma once

#include "basegui_global.h"

#include <QPixmap>
#include <QWidget>

class QPainter;

// A status icon painted at any size (24 x 24 and 40 x 40 in the windows), so it
// stays crisp without image files.
class BASEGUI_EXPORT CQNoticeIcon : public QWidget
{
    Q_OBJECT
public:
    enum eIconType {
        ICON_NONE = 0,
        ICON_INFO = 1,          // blue disc, "i"
        ICON_SUCCESS = 2,       // green disc, tick
        ICON_WARNING = 3,       // orange disc, "!"
        ICON_ERROR = 4,         // red disc, cross
        ICON_URGENT = 5,        // red-orange triangle, "!"
        ICON_QUESTION = 6,      // blue disc, "?"
        ICON_SHIELD = 7,        // the product's shield with a tick
        ICON_BADGE_RISK = 13,   // small orange badge, "!"
        ICON_BADGE_DANGER = 14, // small red badge, cross
        ICON_COMPUTER = 15      // a monitor
    };

    explicit CQNoticeIcon(int type = ICON_INFO, QWidget* parent = nullptr);
    ~CQNoticeIcon() override;

    // An unknown type is logged and paints nothing.
    void setIconType(int type);
    int iconType() const;

    static bool isKnownType(int type);
    static void paintIcon(QPainter* painter, QRectF const& rect, int type);
    static QPixmap pixmap(int type, int size, qreal devicePixelRatio = 1.0);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_type = ICON_INFO;
};
