#pragma once

#include <QObject>

class QWidget;

// Emits sig_firstPaint once, from the event loop, after `window` has received
// its first paint event, i.e. once it has really been drawn (start-up
// measurements end there).
class FirstPaintWatcher : public QObject
{
    Q_OBJECT
public:
    explicit FirstPaintWatcher(QWidget* window, QObject* parent = nullptr);

signals:
    void sig_firstPaint();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_seen = false;
};
