#pragma once

#include "cqmystackedwins.h"

class QHBoxLayout;

// The home page's card row: module cards side by side in ascending key order.
// At most four are shown (the row is 772 wide); cards with higher keys stay
// registered and move up when one of the first four leaves.
class CardsWin : public CQMyStackedWins
{
    Q_OBJECT
public:
    static int const kMaxVisibleCards = 4;

    explicit CardsWin(QWidget* parent = nullptr);
    ~CardsWin() override;

protected:
    void resetUI() override;

private:
    QHBoxLayout* m_pLayout = nullptr;
};
