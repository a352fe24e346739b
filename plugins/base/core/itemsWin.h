#pragma once

#include "cqmystackedwins.h"

class QVBoxLayout;

// Pop-up under the authentication status icon listing the items' widgets. It
// closes on any press outside itself and swallows that press.
class ItemsWin : public CQMyStackedWins
{
    Q_OBJECT
public:
    explicit ItemsWin(QWidget* parent = nullptr);
    ~ItemsWin() override;

protected:
    void resetUI() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void releaseItems();
    void slot_focusWindowChanged();

    QVBoxLayout* m_pLayout = nullptr;
};
