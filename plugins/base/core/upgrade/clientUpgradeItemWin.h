#pragma once

#include "upgradeitemwidget.h"

class QLabel;

// The client itself as an item of the upgrade plugin's list.
class ClientUpgradeItemWin : public UpgradeItemWidget
{
    Q_OBJECT
public:
    explicit ClientUpgradeItemWin(QWidget* parent = nullptr);
    ~ClientUpgradeItemWin() override;

    QString name() const override;   // "客户端"
    int type() const override;       // 2

public slots:
    // The client version the bridge reports; shown beside the name.
    void slot_setClientVersionInfo(QString version);

private:
    QLabel* m_pLabelName = nullptr;
    QLabel* m_pLabelVersion = nullptr;
};
