#pragma once

#include "framework_global.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

class CQBasePlugin;
class QPluginLoader;

// Loads the GUI plugins of a client and routes their commands on the GUI thread.
class FRAMEWORK_EXPORT CQPluginManager : public QObject
{
    Q_OBJECT
public:
    static CQPluginManager* singleInstance();
    static void UninitInstance(bool now);
    // The loaded plugin with that id, or null (also when there is no manager).
    static CQBasePlugin* plugin(QString const& id);

    // What `init` of each plugin receives (the main window).
    void setHost(QObject* host);
    QObject* host() const;

    // Reads the metadata id of a plugin file without running its code; "" if none.
    static QString readPluginId(QString const& file);

    // Loads every plugin of `dir`: "EPLUGIN_ID_BASE" first, "EPLUGIN_ID_BRIDGE_BASE"
    // next, then the rest in file-name order. A file that fails is logged and
    // skipped. Returns how many were loaded.
    int loadPlugins(QString const& dir);
    // Loads one file, calls init, announces it with PLUGINMANAGE_CMDTYPE_INSTALL
    // to every loaded plugin. False if it failed or its id is already loaded.
    bool loadPlugin(QString const& file);
    // Adds an already constructed plugin (tests, statically linked plugins).
    bool addPlugin(CQBasePlugin* plugin, QString const& id);
    // unInit, announce PLUGINMANAGE_CMDTYPE_UNSTALL, delete and unload.
    bool unloadPlugin(QString const& id);
    // Unloads all in reverse load order.
    void unloadAll();

    QStringList pluginIds() const;

    // Routing, also usable by the host itself.
    void sendCmd(QString const& target, QString const& cmd, QVariant const& para);
    void broadcast(QString const& cmd, QVariant const& para);

signals:
    // Every command seen on the bus; the host watches for its own commands here.
    void sig_command(QString target, QString cmd, QVariant para);
    void sig_pluginLoaded(QString id);
    void sig_pluginUnloaded(QString id);

private:
    explicit CQPluginManager(QObject* parent = nullptr);
    ~CQPluginManager() override;

    struct Entry {
        QString id;
        QPointer<CQBasePlugin> plugin;
        QPluginLoader* loader = nullptr;
    };
    bool registerPlugin(CQBasePlugin* plugin, QString const& id, QPluginLoader* loader);
    void connectPlugin(CQBasePlugin* plugin, QString const& id);
    void slot_pluginDestroyed(QString const& id);
    void announce(QString const& cmd, QString const& id);
    void deliver(QString const& target, QString const& cmd, QVariant const& para);
    void execOn(CQBasePlugin* plugin, QString const& cmd, QVariant const& para);
    int indexOf(QString const& id) const;
    // Guards of the plugins in load order, taken before a delivery loop so that a
    // plugin deleted by another one's execCmd is skipped instead of touched.
    QVector<QPointer<CQBasePlugin>> snapshot() const;

    QVector<Entry> m_entries;
    QPointer<QObject> m_host;
    // > 0 while an execCmd is running: a plugin unloaded from inside a command is
    // then deleted later, since its own code may still be on the stack.
    int m_deliveryDepth = 0;
};
