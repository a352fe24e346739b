#include "messageTip.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "submessagetipiteminterface.h"

#include <QStackedWidget>

namespace {
constexpr char kLogModule[] = "plugins/base/core/messageTip";
constexpr int kWidth = 744;
constexpr int kHeight = 152;
} // namespace

class MessageTipPrivate
{
public:
    explicit MessageTipPrivate(MessageTip* q)
        : q_ptr(q)
    {
        m_pStackedWidget = new QStackedWidget(q);
        m_pStackedWidget->setObjectName(QStringLiteral("m_pStackedWidget"));
        m_pStackedWidget->setGeometry(0, 0, kWidth, kHeight);
    }

    ~MessageTipPrivate()
    {
        // Panels belong to the plugins that registered them: hand them back
        // alive rather than letting the stack delete them.
        while (QWidget* panel = m_pStackedWidget->widget(0)) {
            QObject::disconnect(panel, nullptr, q_ptr, nullptr);
            m_pStackedWidget->removeWidget(panel);
            panel->hide();
            panel->setParent(nullptr);
        }
        BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MessageTipPrivate] delete MessageTipPrivate obj");
    }

    QStackedWidget* m_pStackedWidget = nullptr;
    MessageTip* q_ptr = nullptr;
};

MessageTip::MessageTip(QWidget* parent)
    : CQFrame(parent)
    , d_ptr(new MessageTipPrivate(this))
{
    setObjectName(QStringLiteral("MessageTip"));
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setFixedSize(kWidth, kHeight);
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/messageTip.qss")));
}

MessageTip::~MessageTip()
{
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MessageTip] delete MessageTip obj");
}

int MessageTip::registerItem(SubMessageTipItemInterface* item)
{
    if (!item || basegui::Common::refusesOwnAncestor(this, item, "MessageTip"))
        return -1;
    // No duplicate check: a second registration only connects the signal once
    // more, and switching to a panel twice is harmless.
    d_ptr->m_pStackedWidget->addWidget(item);
    connect(item, &SubMessageTipItemInterface::sig_changeWin, this, &MessageTip::slot_changeWin);
    return 0;
}

int MessageTip::unRegisterItem(SubMessageTipItemInterface* item)
{
    if (!item)
        return -1;
    d_ptr->m_pStackedWidget->removeWidget(item);
    if (item->parentWidget() == d_ptr->m_pStackedWidget) {
        item->hide();
        item->setParent(nullptr);
    }
    disconnect(item, &SubMessageTipItemInterface::sig_changeWin, this, &MessageTip::slot_changeWin);
    return 0;
}

QStackedWidget* MessageTip::stackedWidget() const
{
    return d_ptr->m_pStackedWidget;
}

void MessageTip::slot_changeWin(QWidget* w)
{
    if (w && d_ptr->m_pStackedWidget->indexOf(w) >= 0)
        d_ptr->m_pStackedWidget->setCurrentWidget(w);
}
