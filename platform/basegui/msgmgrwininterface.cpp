#include "msgmgrwininterface.h"

#include "clogdebug.h"
#include "cqbutton.h"

#include <QCloseEvent>

MsgMgrWinInterface::MsgMgrWinInterface(QWidget* parent, QString const& id)
    : QWidget(parent)
    , m_id(id)
{
}

// Whoever tracks the window by id must hear about it even when it is deleted
// without a close (deleteLater by an owner, parent teardown).
MsgMgrWinInterface::~MsgMgrWinInterface()
{
    sendPreClose();
}

QString MsgMgrWinInterface::id() const
{
    return m_id;
}

int MsgMgrWinInterface::changUIType(eUIType type)
{
    m_uiType = type;
    return 0;
}

MsgMgrWinInterface::eUIType MsgMgrWinInterface::uiType() const
{
    return m_uiType;
}

void MsgMgrWinInterface::setCountdownPaused(bool paused)
{
    for (CQButton* button : findChildren<CQButton*>()) {
        if (paused && button->isCounting())
            button->setTime(button->remainingTime(), false);
        else if (!paused && !button->isCounting() && button->remainingTime() > 0)
            button->startTime();
    }
}

int MsgMgrWinInterface::registerMetaType()
{
    return qRegisterMetaType<sMsgMgrWinInfo>("sMsgMgrWinInfo");
}

void MsgMgrWinInterface::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    if (event->isAccepted())
        sendPreClose();
}

void MsgMgrWinInterface::sendPreClose()
{
    if (m_preCloseSent)
        return;
    m_preCloseSent = true;
    BFLOG(1, "platform/basegui/msgmgrwininterface", "[MsgMgrWinInterface] pre close [%s]", qUtf8Printable(m_id));
    emit sig_preClose(m_id);
}
