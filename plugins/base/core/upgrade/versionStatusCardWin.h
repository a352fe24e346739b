#pragma once

#include "basecardwin.h"
#include "bridgerecords.h"

#include <QList>

class VersionStatusCardWinPrivate;

// Home-page card "版本状态": the dates of the virus library and of the
// vulnerability library, as the upgrade bridge reports them.
class VersionStatusCardWin : public BaseCardWin
{
    Q_OBJECT
public:
    explicit VersionStatusCardWin(QWidget* parent = nullptr);
    ~VersionStatusCardWin() override;

    // Asks the upgrade bridge for the current versions (answer: sig_checkUpdateInfo).
    void updateVersion();
    QString virusVersion() const;
    QString vulnerabilityVersion() const;

public slots:
    void slot_checkUpgradeInfo(QString userId, QList<_VERINFO_> const& versions);

private:
    VersionStatusCardWinPrivate* d_ptr = nullptr;
};
