#include "myStackedWins1.h"

#include "basegui_common.h"

#include <QHBoxLayout>

MyStackedWins1::MyStackedWins1(QWidget* parent)
    : CQMyStackedWins(parent)
{
    setFixedSize(480, 28);
    setObjectName(QStringLiteral("MyStackedWins1"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/myStackedWins1.qss")));
    m_pLayout = new QHBoxLayout(this);
    m_pLayout->setSpacing(8);
    m_pLayout->setContentsMargins(49, 0, 0, 0);
}

MyStackedWins1::~MyStackedWins1() = default;

void MyStackedWins1::resetUI()
{
    if (!m_pLayout)
        return;
    basegui::Common::clearLayout(m_pLayout, false);
    QList<QWidget*> const badges = items();
    for (QWidget* w : badges) {
        m_pLayout->addWidget(w, 0, Qt::AlignLeft | Qt::AlignVCenter);
        w->show();
    }
    m_pLayout->addStretch();
}
