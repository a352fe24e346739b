#pragma once

#include <QObject>
#include <QRect>

class QScreen;

// Follows the area the notification stack may use: the primary screen's
// available geometry (the screen less its panels). Any change that may move it
// (resolution, a panel moved or resized, a screen added or removed, another
// primary screen) is checked, and sig_availableGeometryChanged is emitted only
// when the area really differs.
class MsgMgrScreenWatcher : public QObject
{
    Q_OBJECT
public:
    explicit MsgMgrScreenWatcher(QObject* parent = nullptr);
    ~MsgMgrScreenWatcher() override;

    void start();
    void stop();
    bool isWatching() const;
    // The area now, or an empty rectangle when there is no screen.
    QRect availableGeometry() const;

signals:
    void sig_availableGeometryChanged(QRect available);

private slots:
    void slot_screenAdded(QScreen* screen);
    void slot_screenRemoved(QScreen* screen);
    void slot_recheck();

private:
    void watchScreen(QScreen* screen);
    static QRect primaryAvailableGeometry();

    QRect m_lastAvailable;
    bool m_watching = false;
};
