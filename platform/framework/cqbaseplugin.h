#pragma once

#include "framework_global.h"

#include <QObject>
#include <QString>
#include <QVariant>

// Well-known plugin ids and framework commands.
#define EPLUGIN_ID_ALL_PLUGIN "EPLUGIN_ID_ALL_PLUGIN"
#define PLUGINMANAGE_CMDTYPE_INSTALL "PLUGINMANAGE_CMDTYPE_INSTALL"
#define PLUGINMANAGE_CMDTYPE_UNSTALL "PLUGINMANAGE_CMDTYPE_UNSTALL"

// Base of every GUI plugin. Plugins talk to each other only through execCmd and
// the two signals, which the plugin manager routes:
//   sig(cmd, payload)            reaches every loaded plugin (and the host);
//   sig1(target, cmd, payload)   reaches the plugin `target`, or every plugin for
//                                EPLUGIN_ID_ALL_PLUGIN.
class FRAMEWORK_EXPORT CQBasePlugin : public QObject
{
    Q_OBJECT
public:
    explicit CQBasePlugin(QObject* parent = nullptr);
    ~CQBasePlugin() override;

    // `host` holds the main window as a QObject* (QVariant::fromValue<QObject*>).
    virtual int init(QVariant const& host);
    virtual int unInit(QVariant const& para);
    virtual QVariant execCmd(QString cmd, QVariant const& para);
    // The plugin's metadata object ("id", "version", "path", ...) as a QVariantMap.
    virtual QVariant info();

    // Set by the plugin manager from the file's metadata before init.
    void setInfo(QVariantMap const& meta);
    QString pluginId() const;

signals:
    void sig(QString cmd, QVariant para);
    void sig1(QString pluginId, QString cmd, QVariant para);

private:
    QVariantMap m_info;
};
