#pragma once

#include "basegui_global.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

class QPainter;
class QTimer;

// A spinner with a text beside it, centred in the widget. The spinner turns
// only between startLoading() and stopLoading().
class BASEGUI_EXPORT CQLoadingWin : public QWidget
{
    Q_OBJECT
public:
    explicit CQLoadingWin(QWidget* parent = nullptr);
    ~CQLoadingWin() override;

    void setLoadingIconSize(int size);
    int loadingIconSize() const;
    // `spacing` is the gap in pixels between the spinner and the text.
    void setText(QString const& text, int spacing = 8);
    QString text() const;

    void startLoading();
    void stopLoading();
    bool isLoading() const;

    // The spinner drawing shared by the kit (buttons in their loading state):
    // a light track with an accent arc starting at `angle` degrees.
    static void paintSpinner(QPainter* painter, QRectF const& rect, int angle, QColor const& color);
    static QPixmap spinnerPixmap(int size, int angle, QColor const& color, qreal devicePixelRatio = 1.0);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void InitVars();
    void slot_tick();

    QTimer* m_timer = nullptr;
    int m_angle = 0;
    int m_iconSize = 16;
    int m_spacing = 8;
    QString m_text;
};
