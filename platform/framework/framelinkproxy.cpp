#include "framelinkproxy.h"

#include "clogdebug.h"
#include "framelinkproxyinterface.h"

#include <QCoreApplication>
#include <QThread>

namespace {

char const* const kModule = "platform/framework/framelinkproxy";

FrameLinkProxy* g_proxy = nullptr;

} // namespace

FrameLinkProxy* FrameLinkProxy::singleInstance()
{
    if (!g_proxy) {
        g_proxy = new FrameLinkProxy;
        if (QCoreApplication* app = QCoreApplication::instance(); app && g_proxy->thread() != app->thread())
            g_proxy->moveToThread(app->thread());
    }
    return g_proxy;
}

FrameLinkProxy* FrameLinkProxy::existingInstance()
{
    return g_proxy;
}

void FrameLinkProxy::UninitInstance(bool now)
{
    FrameLinkProxy* proxy = g_proxy;
    g_proxy = nullptr;
    if (!proxy)
        return;
    if (now)
        delete proxy;
    else
        proxy->deleteLater();
}

FrameLinkProxy::FrameLinkProxy(QObject* parent)
    : QObject(parent)
{
}

FrameLinkProxy::~FrameLinkProxy()
{
    if (g_proxy == this)
        g_proxy = nullptr;
    BFLOG(BFLOG_DEBUG, kModule, "[FrameLinkProxy] delete FrameLinkProxy obj");
}

bool FrameLinkProxy::mount(QString const& name, FrameLinkProxyInterface* iface)
{
    if (name.isEmpty() || !iface) {
        BFLOG(BFLOG_ERROR, kModule, "[FrameLinkProxy] mount with empty name or null interface refused");
        return false;
    }
    if (find(name)) {
        BFLOG(BFLOG_WARN, kModule, "[FrameLinkProxy] name [%s] already mounted", qUtf8Printable(name));
        return false;
    }
    m_mounts.append(qMakePair(name, iface));
    BFLOG(BFLOG_DEBUG, kModule, "[FrameLinkProxy] mounted [%s]", qUtf8Printable(name));
    emit sig_mounted(name);
    return true;
}

bool FrameLinkProxy::unmount(QString const& name)
{
    for (int i = 0; i < m_mounts.size(); ++i) {
        if (m_mounts.at(i).first == name) {
            m_mounts.removeAt(i);
            BFLOG(BFLOG_DEBUG, kModule, "[FrameLinkProxy] unmounted [%s]", qUtf8Printable(name));
            emit sig_unmounted(name);
            return true;
        }
    }
    return false;
}

FrameLinkProxyInterface* FrameLinkProxy::find(QString const& name) const
{
    for (auto const& mount : m_mounts) {
        if (mount.first == name)
            return mount.second;
    }
    return nullptr;
}

QStringList FrameLinkProxy::names() const
{
    QStringList list;
    for (auto const& mount : m_mounts)
        list.append(mount.first);
    return list;
}

bool FrameLinkProxy::isMounted(FrameLinkProxyInterface* iface) const
{
    for (auto const& mount : m_mounts) {
        if (mount.second == iface)
            return true;
    }
    return false;
}

bool FrameLinkProxy::gotoPageByObjName(QString const& name)
{
    FrameLinkProxyInterface* const named = find(name);
    if (named && named->gotoChildObject(name))
        return true;
    // A page may unmount interfaces while it is being shown, so walk a copy and
    // ask only those still mounted.
    auto const mounts = m_mounts;
    for (auto const& mount : mounts) {
        if (mount.second == named || !isMounted(mount.second))
            continue;
        if (mount.second->gotoChildObject(name))
            return true;
    }
    BFLOG(BFLOG_WARN, kModule, "[FrameLinkProxy] no page named [%s]", qUtf8Printable(name));
    return false;
}
