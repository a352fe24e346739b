#pragma once

#include "framework_global.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QPair>

class FrameLinkProxyInterface;

// Registry of named FrameLinkProxyInterface objects of the running frame.
class FRAMEWORK_EXPORT FrameLinkProxy : public QObject
{
    Q_OBJECT
public:
    static FrameLinkProxy* singleInstance();
    static void UninitInstance(bool now);
    // The proxy if it exists, without creating one (for code running at teardown).
    static FrameLinkProxy* existingInstance();

    bool mount(QString const& name, FrameLinkProxyInterface* iface);   // false if name taken or null
    bool unmount(QString const& name);
    FrameLinkProxyInterface* find(QString const& name) const;
    QStringList names() const;   // in mount order

    // Asks the interface mounted under `name`, else every interface in mount
    // order, to gotoChildObject(name) until one accepts. False if none did.
    bool gotoPageByObjName(QString const& name);

signals:
    void sig_mounted(QString name);
    void sig_unmounted(QString name);

private:
    explicit FrameLinkProxy(QObject* parent = nullptr);
    ~FrameLinkProxy() override;
    bool isMounted(FrameLinkProxyInterface* iface) const;
    QVector<QPair<QString, FrameLinkProxyInterface*>> m_mounts;
};
