#include "cqpluginmanager.h"

#include "clogdebug.h"
#include "cqbaseplugin.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QMutex>
#include <QMutexLocker>
#include <QPluginLoader>
#include <QThread>

#include <algorithm>

namespace {

char const* const kModule = "platform/framework/cqpluginmanager";

// The frame has to exist before anyone can mount into it, and the bridge has to
// be up before the other plugins ask it for data.
QString const kBaseId = QStringLiteral("EPLUGIN_ID_BASE");
QString const kBridgeId = QStringLiteral("EPLUGIN_ID_BRIDGE_BASE");

QMutex g_instanceMutex;
CQPluginManager* g_instance = nullptr;

int loadRank(QString const& id)
{
    if (id == kBaseId)
        return 0;
    if (id == kBridgeId)
        return 1;
    return 2;
}

// Keeps the delivery depth right on every way out of execCmd.
class DepthGuard
{
public:
    explicit DepthGuard(int& depth) : m_depth(depth) { ++m_depth; }
    ~DepthGuard() { --m_depth; }
    DepthGuard(DepthGuard const&) = delete;
    DepthGuard& operator=(DepthGuard const&) = delete;

private:
    int& m_depth;
};

} // namespace

CQPluginManager* CQPluginManager::singleInstance()
{
    QMutexLocker lock(&g_instanceMutex);
    if (!g_instance) {
        g_instance = new CQPluginManager;
        // Commands are delivered on the GUI thread whoever asks for the manager first.
        if (QCoreApplication* app = QCoreApplication::instance(); app && g_instance->thread() != app->thread())
            g_instance->moveToThread(app->thread());
    }
    return g_instance;
}

void CQPluginManager::UninitInstance(bool now)
{
    CQPluginManager* manager = nullptr;
    {
        QMutexLocker lock(&g_instanceMutex);
        manager = g_instance;
        g_instance = nullptr;
    }
    if (!manager)
        return;
    if (now)
        delete manager;
    else
        manager->deleteLater();
}

CQBasePlugin* CQPluginManager::plugin(QString const& id)
{
    QMutexLocker lock(&g_instanceMutex);
    if (!g_instance)
        return nullptr;
    int const index = g_instance->indexOf(id);
    return index < 0 ? nullptr : g_instance->m_entries.at(index).plugin.data();
}

CQPluginManager::CQPluginManager(QObject* parent)
    : QObject(parent)
{
}

CQPluginManager::~CQPluginManager()
{
    unloadAll();
    QMutexLocker lock(&g_instanceMutex);
    if (g_instance == this)
        g_instance = nullptr;
    BFLOG(BFLOG_DEBUG, kModule, "[CQPluginManager] delete CQPluginManager obj");
}

void CQPluginManager::setHost(QObject* host)
{
    m_host = host;
}

QObject* CQPluginManager::host() const
{
    return m_host.data();
}

QString CQPluginManager::readPluginId(QString const& file)
{
    if (!QFileInfo(file).isFile())
        return QString();
    // metaData() parses the file's metadata section; the library is not mapped
    // for execution, so a broken plugin cannot run anything here.
    QPluginLoader loader(file);
    QJsonObject const meta = loader.metaData().value(QStringLiteral("MetaData")).toObject();
    return meta.value(QStringLiteral("id")).toString().trimmed();
}

int CQPluginManager::loadPlugins(QString const& dir)
{
    QDir const folder(dir);
    if (!folder.exists()) {
        BFLOG(BFLOG_ERROR, kModule, "[CQPluginManager] plugin folder [%s] does not exist", qUtf8Printable(dir));
        return 0;
    }
    struct Candidate { QString file; QString id; };
    QVector<Candidate> candidates;
    for (QFileInfo const& info : folder.entryInfoList(QDir::Files | QDir::Readable, QDir::Name)) {
        QString const file = info.absoluteFilePath();
        if (!QLibrary::isLibrary(file)) {
            BFLOG(BFLOG_DEBUG, kModule, "[CQPluginManager] [%s] is not a library, skipped", qUtf8Printable(file));
            continue;
        }
        QString const id = readPluginId(file);
        if (id.isEmpty()) {
            BFLOG(BFLOG_ERROR, kModule, "[CQPluginManager] no plugin id in [%s], skipped", qUtf8Printable(file));
            continue;
        }
        candidates.append({file, id});
    }
    std::stable_sort(candidates.begin(), candidates.end(), [](Candidate const& a, Candidate const& b) {
        return loadRank(a.id) < loadRank(b.id);
    });

    int loaded = 0;
    for (Candidate const& candidate : candidates) {
        if (loadPlugin(candidate.file))
            ++loaded;
    }
    BFLOG(BFLOG_INFO, kModule, "[CQPluginManager] loaded %d of %d plugins from [%s]", loaded,
          static_cast<int>(candidates.size()), qUtf8Printable(dir));
    return loaded;
}

bool CQPluginManager::loadPlugin(QString const& file)
{
    QString const id = readPluginId(file);
    if (id.isEmpty()) {
        BFLOG(BFLOG_ERROR, kModule, "[CQPluginManager] no plugin id in [%s], skipped", qUtf8Printable(file));
        return false;
    }
    if (indexOf(id) >= 0) {
        BFLOG(BFLOG_WARN, kModule, "[CQPluginManager] plugin [%s] already loaded, [%s] skipped", qUtf8Printable(id),
              qUtf8Printable(file));
        return false;
    }

    auto* loader = new QPluginLoader(file, this);
    // Bind every symbol now: a missing one fails the load here instead of
    // killing the process at its first call.
    loader->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    QObject* root = loader->instance();
    if (!root) {
        BFLOG(BFLOG_ERROR, kModule, "[CQPluginManager] load [%s] failed: %s", qUtf8Printable(file),
              qUtf8Printable(loader->errorString()));
        delete loader;
        return false;
    }
    auto* plugin = qobject_cast<CQBasePlugin*>(root);
    if (!plugin) {
        BFLOG(BFLOG_ERROR, kModule, "[CQPluginManager] [%s] is not a CQBasePlugin, skipped", qUtf8Printable(file));
        loader->unload();
        delete loader;
        return false;
    }
    plugin->setInfo(loader->metaData().value(QStringLiteral("MetaData")).toObject().toVariantMap());
    return registerPlugin(plugin, id, loader);
}

bool CQPluginManager::addPlugin(CQBasePlugin* plugin, QString const& id)
{
    if (!plugin)
        return false;
    QString const realId = id.isEmpty() ? plugin->pluginId() : id;
    if (realId.isEmpty() || indexOf(realId) >= 0) {
        BFLOG(BFLOG_WARN, kModule, "[CQPluginManager] cannot add plugin with id [%s]", qUtf8Printable(realId));
        return false;
    }
    if (plugin->pluginId() != realId) {
        QVariantMap info = plugin->info().toMap();
        info.insert(QStringLiteral("id"), realId);
        plugin->setInfo(info);
    }
    return registerPlugin(plugin, realId, nullptr);
}

bool CQPluginManager::registerPlugin(CQBasePlugin* plugin, QString const& id, QPluginLoader* loader)
{
    QVector<QString> earlier;
    for (Entry const& entry : qAsConst(m_entries))
        earlier.append(entry.id);

    // Registered and connected before init: a plugin's init may already send
    // commands to itself through the bus.
    m_entries.append({id, plugin, loader});
    connectPlugin(plugin, id);

    QPointer<CQBasePlugin> guard(plugin);
    int const rc = plugin->init(QVariant::fromValue<QObject*>(m_host.data()));
    if (!guard) {
        BFLOG(BFLOG_ERROR, kModule, "[CQPluginManager] plugin [%s] destroyed itself during init", qUtf8Printable(id));
        return false;
    }
    if (rc != 0)
        BFLOG(BFLOG_WARN, kModule, "[CQPluginManager] plugin [%s] init returned %d", qUtf8Printable(id), rc);
    BFLOG(BFLOG_INFO, kModule, "[CQPluginManager] plugin [%s] loaded", qUtf8Printable(id));

    // The newcomer learns about the plugins already there, then everybody
    // (itself included) learns about the newcomer, so no pair depends on the
    // order in which the two were loaded.
    for (QString const& other : qAsConst(earlier)) {
        if (!guard)
            break;
        if (indexOf(other) >= 0)
            execOn(guard, QStringLiteral(PLUGINMANAGE_CMDTYPE_INSTALL), other);
    }
    announce(QStringLiteral(PLUGINMANAGE_CMDTYPE_INSTALL), id);
    emit sig_pluginLoaded(id);
    return true;
}

void CQPluginManager::connectPlugin(CQBasePlugin* plugin, QString const& id)
{
    // Auto connection with the manager as context: direct on the GUI thread,
    // queued to it when a plugin emits from a worker.
    connect(plugin, &CQBasePlugin::sig, this, [this](QString cmd, QVariant para) { broadcast(cmd, para); });
    connect(plugin, &CQBasePlugin::sig1, this,
            [this](QString target, QString cmd, QVariant para) { sendCmd(target, cmd, para); });
    connect(plugin, &QObject::destroyed, this, [this, id]() { slot_pluginDestroyed(id); });
}

void CQPluginManager::slot_pluginDestroyed(QString const& id)
{
    int const index = indexOf(id);
    if (index < 0 || !m_entries.at(index).plugin.isNull())
        return;
    // Deleted by somebody else: forget it, keep its code mapped (see unloadPlugin).
    Entry const entry = m_entries.takeAt(index);
    delete entry.loader;
    BFLOG(BFLOG_WARN, kModule, "[CQPluginManager] plugin [%s] was destroyed without being unloaded",
          qUtf8Printable(id));
    announce(QStringLiteral(PLUGINMANAGE_CMDTYPE_UNSTALL), id);
    emit sig_pluginUnloaded(id);
}

bool CQPluginManager::unloadPlugin(QString const& id)
{
    int index = indexOf(id);
    if (index < 0)
        return false;
    QPointer<CQBasePlugin> plugin = m_entries.at(index).plugin;
    // unInit while still routed: a plugin usually unregisters its widgets from
    // the others on the way out.
    if (plugin)
        plugin->unInit(QVariant());
    index = indexOf(id);
    if (index < 0)
        return false;   // gone during its own unInit
    Entry const entry = m_entries.takeAt(index);
    if (plugin)
        disconnect(plugin, nullptr, this, nullptr);
    announce(QStringLiteral(PLUGINMANAGE_CMDTYPE_UNSTALL), id);

    if (plugin) {
        if (m_deliveryDepth > 0)
            plugin->deleteLater();
        else
            delete plugin.data();
    }
    // The loader is dropped without QPluginLoader::unload(): objects of the
    // plugin's classes may still sit in the deferred-delete queue, and their
    // destructors must find the code mapped. The library stays until exit.
    delete entry.loader;
    BFLOG(BFLOG_INFO, kModule, "[CQPluginManager] plugin [%s] unloaded", qUtf8Printable(id));
    emit sig_pluginUnloaded(id);
    return true;
}

void CQPluginManager::unloadAll()
{
    QStringList ids = pluginIds();
    std::reverse(ids.begin(), ids.end());
    for (QString const& id : qAsConst(ids))
        unloadPlugin(id);
}

QStringList CQPluginManager::pluginIds() const
{
    QStringList ids;
    for (Entry const& entry : m_entries)
        ids.append(entry.id);
    return ids;
}

void CQPluginManager::sendCmd(QString const& target, QString const& cmd, QVariant const& para)
{
    if (QThread::currentThread() != thread()) {
        QMetaObject::invokeMethod(this, [this, target, cmd, para]() { deliver(target, cmd, para); },
                                  Qt::QueuedConnection);
        return;
    }
    deliver(target, cmd, para);
}

void CQPluginManager::broadcast(QString const& cmd, QVariant const& para)
{
    sendCmd(QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), cmd, para);
}

void CQPluginManager::announce(QString const& cmd, QString const& id)
{
    deliver(QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), cmd, QVariant(id));
}

void CQPluginManager::deliver(QString const& target, QString const& cmd, QVariant const& para)
{
    BFLOG(BFLOG_DEBUG, kModule, "[CQPluginManager] cmd [%s] to [%s]", qUtf8Printable(cmd), qUtf8Printable(target));
    if (target == QLatin1String(EPLUGIN_ID_ALL_PLUGIN)) {
        for (QPointer<CQBasePlugin> const& plugin : snapshot()) {
            if (plugin)
                execOn(plugin, cmd, para);
        }
    } else if (int const index = indexOf(target); index >= 0 && m_entries.at(index).plugin) {
        QPointer<CQBasePlugin> const plugin = m_entries.at(index).plugin;
        execOn(plugin, cmd, para);
    } else {
        BFLOG(BFLOG_WARN, kModule, "[CQPluginManager] target plugin [%s] not loaded, cmd [%s] dropped",
              qUtf8Printable(target), qUtf8Printable(cmd));
    }
    emit sig_command(target, cmd, para);
}

void CQPluginManager::execOn(CQBasePlugin* plugin, QString const& cmd, QVariant const& para)
{
    DepthGuard depth(m_deliveryDepth);
    plugin->execCmd(cmd, para);
}

int CQPluginManager::indexOf(QString const& id) const
{
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i).id == id)
            return i;
    }
    return -1;
}

QVector<QPointer<CQBasePlugin>> CQPluginManager::snapshot() const
{
    QVector<QPointer<CQBasePlugin>> plugins;
    plugins.reserve(m_entries.size());
    for (Entry const& entry : m_entries)
        plugins.append(entry.plugin);
    return plugins;
}
