#include "msgmgrwininterface.h"

#include "clogdebug.h"
#include "cqbutton.h"

#include <QCloseEvent>

MsgMgrWinInterface::MsgMgrWinInterface(QWidget* parent, QString const& id)
    : QWidget(parent)
    , m_id(id)
{
    // A pop-up appears while the user types elsewhere; it must not take the
    // keyboard, even for the moment before the message manager places it.
    setAttribute(Qt::WA_ShowWithoutActivating);
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
    if (paused) {
        for (CQButton* button : findChildren<CQButton*>()) {
            if (!button->isCounting())
                continue;
            button->setTime(button->remainingTime(), false);
            if (!m_heldButtons.contains(button))
                m_heldButtons << button;
        }
        return;
    }
    for (QPointer<CQButton> const& button : qAsConst(m_heldButtons)) {
        if (button && !button->isCounting())
            button->startTime();
    }
    m_heldButtons.clear();
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
