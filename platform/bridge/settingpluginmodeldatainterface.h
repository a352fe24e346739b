#pragma once

#include "bridge_global.h"
#include "bridgerecords.h"

#include <QObject>
#include <QVector>
#include <QString>
#include <QVariant>

// Settings read and write. The store may block; callers run it off the GUI thread.
class BRIDGE_EXPORT SettingPluginModelDataInterface : public QObject
{
    Q_OBJECT
public:
    static SettingPluginModelDataInterface* singleInstance();
    static void UninitInstance(bool now);

    // Reads the stored record whose meta-type name is `typeName` ("SETTING_COMMON",
    // "_SETTING_COMMON_", ...). Unknown names give key -1 and an invalid value.
    virtual __sSettingData getSettingData(QString typeName);
    // Stores a record held in `data` (e.g. a _SETTING_COMMON_). True on success.
    virtual bool setSettingData(QVariant data);

signals:
    // Stored settings changed (by any writer).
    void sig_updateData();

protected:
    explicit SettingPluginModelDataInterface(QObject* parent = nullptr);
    ~SettingPluginModelDataInterface() override;

private:
    void bindBackend();

    QVector<QMetaObject::Connection> m_backendLinks;
};
