#pragma once

#include "bridge_global.h"

#include <QObject>
#include <QString>

// Exit policy and exit password. Kind 1 is "exit".
class BRIDGE_EXPORT VerifyPluginModelDataInterface : public QObject
{
    Q_OBJECT
public:
    static VerifyPluginModelDataInterface* singleInstance();
    static void UninitInstance(bool now);

    // 2 means a password is required for that kind.
    virtual int getVerifyPolicy(int kind);
    // 0 means accepted.
    virtual int verifyPassword(int kind, QString password);

protected:
    explicit VerifyPluginModelDataInterface(QObject* parent = nullptr);
    ~VerifyPluginModelDataInterface() override;
};
