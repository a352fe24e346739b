#pragma once

#include "basegui_global.h"

#include <QWidget>

// A short message that fades in over a window, stays, fades out and deletes
// itself. It never takes focus or clicks. A new toast over the same window
// replaces the one still showing there.
class BASEGUI_EXPORT CQToastWidget : public QWidget
{
    Q_OBJECT
public:
    // Icon types: 0 none, 1 information, 2 warning, 3 success, 4 question,
    // 5 failure, 6 error; others are shown without an icon.
    enum eIconType {
        ICON_NONE = 0,
        ICON_INFO = 1,
        ICON_WARNING = 2,
        ICON_SUCCESS = 3,
        ICON_QUESTION = 4,
        ICON_FAILURE = 5,
        ICON_ERROR = 6
    };

    // Shows `text` centred over `parent` (over the screen for null) for `msecs`
    // milliseconds (<= 0: 2000) plus the fades. Returns the toast, which deletes
    // itself when done.
    static CQToastWidget* showToast(QWidget* parent, QString const& text, int iconType = ICON_NONE, int msecs = 2000);

    ~CQToastWidget() override;

    QString text() const;
    int iconType() const;
    static int noticeIconType(int toastIconType);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CQToastWidget(QWidget* parent, QString const& text, int iconType);
    void place();
    void start(int msecs);

    QString m_text;
    int m_iconType = ICON_NONE;
};
