#pragma once

#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "msgmgrwininterface.h"

#include <QApplication>
#include <QFile>
#include <QRect>
#include <QVariant>

// The message manager module from the build tree, loaded through the real
// plugin manager as the host loads it, and unloaded when the fixture goes.
class TestMsgMgrFixture
{
public:
    static QString moduleFile()
    {
        return qEnvironmentVariable("QUORIX_ROOT") + QStringLiteral("/lib/plugins-gui/libui_msgmgr_plugin.so");
    }
    static bool moduleBuilt() { return QFile::exists(moduleFile()); }

    TestMsgMgrFixture() { m_loaded = CQPluginManager::singleInstance()->loadPlugin(moduleFile()); }
    ~TestMsgMgrFixture()
    {
        if (m_loaded)
            CQPluginManager::singleInstance()->unloadPlugin(QStringLiteral("EPLUGIN_ID_MSGMGR"));
        flushDeletes();
    }

    bool loaded() const { return m_loaded && plugin(); }
    static CQBasePlugin* plugin() { return CQPluginManager::plugin(QStringLiteral("EPLUGIN_ID_MSGMGR")); }
    static QObject* stack() { return plugin() ? plugin()->findChild<QObject*>(QStringLiteral("m_pMsgMgrStack")) : nullptr; }

    static QVariant send(QVariant const& payload, QString const& cmd = QStringLiteral("EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN"))
    {
        return plugin()->execCmd(cmd, payload);
    }
    static QVariant registerWin(MsgMgrWinInterface* window)
    {
        sMsgMgrWinInfo info;
        info.winId = window->id();
        info.ownerPluginId = QStringLiteral("EPLUGIN_ID_BASE");
        info.window = window;
        return send(QVariant::fromValue(info));
    }
    // What the screen watcher reports when the panel moves or the resolution changes.
    static void changeArea(QRect const& area)
    {
        QMetaObject::invokeMethod(stack(), "slot_availableGeometryChanged", Q_ARG(QRect, area));
    }
    static void flushDeletes()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    bool m_loaded = false;
};
