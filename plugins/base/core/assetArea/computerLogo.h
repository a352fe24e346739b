#pragma once

#include "assetArea_global.h"

#include <QWidget>

class CQNoticeIcon;

// The computer icon at the left of the asset strip, with a small badge that
// tells the machine's state at a glance.
class ASSETAREA_EXPORT ComputerLogo : public QWidget
{
    Q_OBJECT
public:
    // Fixed underlying type: a state received as a plain number may be cast
    // to it before it is checked.
    enum eUIType : int {
        EUITYPE_NORMAL = 0,   // no badge
        EUITYPE_RISK = 1,     // orange badge
        EUITYPE_DANGER = 2,   // red badge
    };
    Q_ENUM(eUIType)

    explicit ComputerLogo(QWidget* parent = nullptr);
    ~ComputerLogo() override;

    // Any other value changes nothing.
    void updateUIType(eUIType type);
    eUIType uiType() const;

    CQNoticeIcon* computerIcon() const;
    CQNoticeIcon* badgeIcon() const;

private:
    void InitUI();

    CQNoticeIcon* m_pComputerIcon = nullptr;
    CQNoticeIcon* m_pBadgeIcon = nullptr;
    eUIType m_type = EUITYPE_NORMAL;
};
