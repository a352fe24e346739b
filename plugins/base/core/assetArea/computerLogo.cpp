#include "computerLogo.h"

#include "cqnoticeicon.h"

ComputerLogo::ComputerLogo(QWidget* parent)
    : QWidget(parent)
{
    InitUI();
}

ComputerLogo::~ComputerLogo() = default;

void ComputerLogo::InitUI()
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setObjectName(QStringLiteral("ComputerLogo"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedSize(88, 74);
    setStyleSheet(QStringLiteral("ComputerLogo{background:transparent;}"));

    m_pComputerIcon = new CQNoticeIcon(CQNoticeIcon::ICON_COMPUTER, this);
    m_pComputerIcon->setObjectName(QStringLiteral("m_pComputerIcon"));
    m_pComputerIcon->setGeometry(24, 17, 40, 40);

    // Drawn over the monitor's lower right corner.
    m_pBadgeIcon = new CQNoticeIcon(CQNoticeIcon::ICON_NONE, this);
    m_pBadgeIcon->setObjectName(QStringLiteral("m_pBadgeIcon"));
    m_pBadgeIcon->setGeometry(52, 45, 16, 16);
    m_pBadgeIcon->hide();
}

void ComputerLogo::updateUIType(eUIType type)
{
    switch (type) {
    case EUITYPE_NORMAL:
        m_pBadgeIcon->hide();
        break;
    case EUITYPE_RISK:
        m_pBadgeIcon->setIconType(CQNoticeIcon::ICON_BADGE_RISK);
        m_pBadgeIcon->show();
        break;
    case EUITYPE_DANGER:
        m_pBadgeIcon->setIconType(CQNoticeIcon::ICON_BADGE_DANGER);
        m_pBadgeIcon->show();
        break;
    default:
        return;
    }
    m_type = type;
}

ComputerLogo::eUIType ComputerLogo::uiType() const
{
    return m_type;
}

CQNoticeIcon* ComputerLogo::computerIcon() const
{
    return m_pComputerIcon;
}

CQNoticeIcon* ComputerLogo::badgeIcon() const
{
    return m_pBadgeIcon;
}
