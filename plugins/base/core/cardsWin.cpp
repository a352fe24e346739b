#include "cardsWin.h"

#include "basegui_common.h"

#include <QHBoxLayout>

CardsWin::CardsWin(QWidget* parent)
    : CQMyStackedWins(parent)
{
    setObjectName(QStringLiteral("CardsWin"));
    setFixedSize(772, 130);
    setStyleSheet(QStringLiteral("#CardsWin{background:transparent;}"));
    m_pLayout = new QHBoxLayout(this);
    m_pLayout->setSpacing(8);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
}

CardsWin::~CardsWin() = default;

void CardsWin::resetUI()
{
    if (!m_pLayout)
        return;
    basegui::Common::clearLayout(m_pLayout, false);
    int shown = 0;
    for (QWidget* card : items()) {
        if (shown < kMaxVisibleCards) {
            m_pLayout->addWidget(card, 0, Qt::AlignLeft | Qt::AlignVCenter);
            card->show();
            ++shown;
        } else if (isAncestorOf(card)) {
            // Pushed out of the first four by a card with a lower key: it stays
            // registered but must not linger at its old place in the row.
            card->hide();
        }
    }
    m_pLayout->addStretch(0);
}
