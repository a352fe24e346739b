#pragma once

#include "basePlugin.h"
#include "cqbaseplugin.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStringList>

// A base plugin on a real main window, registered with the real plugin
// manager under "EPLUGIN_ID_BASE" so that what it sends to itself comes back
// through execCmd, as in the client. Other plugin ids can be stood in by plain
// CQBasePlugin objects (they answer nothing, they are only present).
class TestPluginFixture
{
public:
    TestPluginFixture()
    {
        m_main = new CQMainWindow();
        m_main->resize(1000, 580);
        m_main->setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
        manager()->setHost(m_main);
        m_plugin = new BasePlugin();
        manager()->addPlugin(m_plugin, QStringLiteral("EPLUGIN_ID_BASE"));
    }

    ~TestPluginFixture()
    {
        for (QString const& id : qAsConst(m_extra))
            manager()->unloadPlugin(id);
        manager()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE"));
        delete m_main.data();
        manager()->setHost(nullptr);
        flushDeletes();
    }

    static CQPluginManager* manager() { return CQPluginManager::singleInstance(); }

    // Deferred deletions run now, as when the event loop next turns.
    static void flushDeletes()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Makes a plugin with that id present (announced to everybody, as a load is).
    void addPresentPlugin(QString const& id)
    {
        if (manager()->addPlugin(new CQBasePlugin(), id))
            m_extra << id;
    }

    BasePlugin* plugin() const { return m_plugin; }
    CQMainWindow* mainWindow() const { return m_main; }

private:
    QPointer<CQMainWindow> m_main;
    QPointer<BasePlugin> m_plugin;
    QStringList m_extra;
};
