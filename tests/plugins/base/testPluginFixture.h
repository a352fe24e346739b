#pragma once

#include "basePlugin.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "spluginregisteritem.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>

#include <algorithm>

// A base plugin on a real main window, registered with the real plugin
// manager under "EPLUGIN_ID_BASE" so that what it sends to itself comes back
// through execCmd, as in the client.
class TestPluginFixture
{
public:
    TestPluginFixture()
    {
        m_main->resize(1000, 580);
        m_main->setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
        manager()->setHost(m_main);
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
    // Another plugin present under that id (a plain CQBasePlugin, announced as a load is).
    void addPresentPlugin(QString const& id)
    {
        if (manager()->addPlugin(new CQBasePlugin(), id))
            m_extra << id;
    }
    BasePlugin* plugin() const { return m_plugin; }
    CQMainWindow* mainWindow() const { return m_main; }

private:
    QPointer<CQMainWindow> m_main = new CQMainWindow();
    QPointer<BasePlugin> m_plugin = new BasePlugin();
    QStringList m_extra;
};

inline sPluginRegisterItem record(QObject* object, int index, QVariant const& extra = QVariant())
{
    sPluginRegisterItem item;
    item.object = object;
    item.index = index;
    item.extra = extra;
    return item;
}

// The same record as a command's payload.
inline QVariant packed(QObject* object, int index, QVariant const& extra = QVariant())
{
    return QVariant::fromValue(record(object, index, extra));
}

// QSignalSpy keeps a QVariant argument wrapped in another QVariant.
inline QVariant unwrap(QVariant const& v)
{
    return v.userType() == QMetaType::QVariant ? v.value<QVariant>() : v;
}

// How many recorded emissions carry `value` as argument `at` (and `target`, if given, as argument 0).
inline int countArg(QSignalSpy const& spy, int at, QString const& value, QString const& target = QString())
{
    auto const carries = [&](QList<QVariant> const& args) {
        return args.at(at).toString() == value && (target.isEmpty() || args.at(0).toString() == target);
    };
    return int(std::count_if(spy.begin(), spy.end(), carries));
}

template <typename T>
QList<T*> openWindows()
{
    QList<T*> out;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* t = qobject_cast<T*>(w); t && t->isVisible())
            out << t;
    }
    return out;
}
