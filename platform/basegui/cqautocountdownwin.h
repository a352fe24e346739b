#pragma once

#include "basegui_global.h"

#include <QLabel>

class QTimer;

// A label that counts seconds down ("5秒后自动关闭") and emits
// sig_time_is_zero() when it reaches 0.
class BASEGUI_EXPORT CQAutoCountDownWin : public QLabel
{
    Q_OBJECT
public:
    struct sInfo
    {
        int seconds = -1;   // -1 (or 0): no count-down
        QString text;       // "%1" takes the seconds; empty: "%1秒后自动关闭"
    };

    explicit CQAutoCountDownWin(QWidget* parent = nullptr);
    ~CQAutoCountDownWin() override;

    // Stops any running count-down and shows the new one (not started).
    void setInfo(sInfo const& info);
    sInfo info() const;
    // False (and nothing runs) when there are no seconds to count.
    bool start();
    void stop();
    int remaining() const;
    bool isRunning() const;

    static QString formatText(QString const& text, int seconds);

signals:
    void sig_time_changed(int seconds);
    void sig_time_is_zero();

private:
    void slot_tick();
    void showRemaining();

    sInfo m_info;
    int m_remaining = 0;
    QTimer* m_timer = nullptr;
};
