#pragma once

#include "bridge_global.h"

#include <QObject>
#include <QVector>

// The message centre's counters.
class BRIDGE_EXPORT MessageCenterPluginModelDataInterface : public QObject
{
    Q_OBJECT
public:
    static MessageCenterPluginModelDataInterface* singleInstance();
    static void UninitInstance(bool now);

    // Answers with sig_unreadMsgCount.
    virtual int requestUnreadMsgCount();

signals:
    void sig_unreadMsgCount(int count);

protected:
    explicit MessageCenterPluginModelDataInterface(QObject* parent = nullptr);
    ~MessageCenterPluginModelDataInterface() override;

private:
    void bindBackend();

    QVector<QMetaObject::Connection> m_backendLinks;
};
