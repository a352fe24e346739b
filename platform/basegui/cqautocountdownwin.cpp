#include "cqautocountdownwin.h"

#include <QTimer>

CQAutoCountDownWin::CQAutoCountDownWin(QWidget* parent)
    : QLabel(parent)
{
    setObjectName("CQAutoCountDownWin");
    setStyleSheet("CQAutoCountDownWin{font-family:\"Noto Sans CJK SC\";font-size:12px;color:#7A7B85;"
                  "background:transparent;}");
    m_timer = new QTimer(this);
    m_timer->setInterval(1000);
    connect(m_timer, &QTimer::timeout, this, &CQAutoCountDownWin::slot_tick);
}

CQAutoCountDownWin::~CQAutoCountDownWin() = default;

void CQAutoCountDownWin::setInfo(sInfo const& info)
{
    m_timer->stop();
    m_info = info;
    m_remaining = qMax(0, info.seconds);
    showRemaining();
}

CQAutoCountDownWin::sInfo CQAutoCountDownWin::info() const
{
    return m_info;
}

bool CQAutoCountDownWin::start()
{
    if (m_remaining <= 0)
        return false;
    m_timer->start();
    return true;
}

void CQAutoCountDownWin::stop()
{
    m_timer->stop();
}

int CQAutoCountDownWin::remaining() const
{
    return m_remaining;
}

bool CQAutoCountDownWin::isRunning() const
{
    return m_timer->isActive();
}

QString CQAutoCountDownWin::formatText(QString const& text, int seconds)
{
    if (text.isEmpty())
        return QString::fromUtf8("%1秒后自动关闭").arg(seconds);
    if (text.contains(QLatin1String("%1")))
        return QString(text).arg(seconds);
    return QStringLiteral("%1 (%2s)").arg(text).arg(seconds);
}

void CQAutoCountDownWin::slot_tick()
{
    --m_remaining;
    showRemaining();
    emit sig_time_changed(qMax(0, m_remaining));
    if (m_remaining > 0)
        return;
    m_remaining = 0;
    m_timer->stop();
    emit sig_time_is_zero();
}

void CQAutoCountDownWin::showRemaining()
{
    setText(m_remaining > 0 ? formatText(m_info.text, m_remaining) : QString());
}
