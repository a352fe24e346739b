#pragma once

#include "bridge_global.h"
#include "bridgerecords.h"

#include <QList>
#include <QObject>
#include <QString>

// Library and client versions of the upgrade service.
class BRIDGE_EXPORT UpgradePluginModelDataInterface : public QObject
{
    Q_OBJECT
public:
    static UpgradePluginModelDataInterface* singleInstance();
    static void UninitInstance(bool now);

    virtual QString getUserID();
    // Answers with sig_checkUpdateInfo; kind 7 asks for the current library versions.
    virtual int checkUpdate(QString userId, int kind);

signals:
    void sig_checkUpdateInfo(QString userId, QList<_VERINFO_> versions);

protected:
    explicit UpgradePluginModelDataInterface(QObject* parent = nullptr);
    ~UpgradePluginModelDataInterface() override;
};
