#pragma once

#include "cqmystackedwins.h"

class QHBoxLayout;

// The badge row of the about window: badges side by side in key order, left
// aligned, with no limit on their number.
class MyStackedWins1 : public CQMyStackedWins
{
    Q_OBJECT
public:
    explicit MyStackedWins1(QWidget* parent = nullptr);
    ~MyStackedWins1() override;

protected:
    void resetUI() override;

private:
    QHBoxLayout* m_pLayout = nullptr;
};
