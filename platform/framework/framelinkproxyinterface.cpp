#include "framelinkproxyinterface.h"

#include "framelinkproxy.h"

FrameLinkProxyInterface::FrameLinkProxyInterface() = default;

FrameLinkProxyInterface::~FrameLinkProxyInterface()
{
    unmount();
}

bool FrameLinkProxyInterface::mount(QString const& name, QWidget* frameWidget)
{
    FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
    if (!m_name.isEmpty() && proxy->find(m_name) == this) {
        if (m_name == name) {
            m_frameWidget = frameWidget;
            return true;
        }
        unmount();
    }
    // Name and widget are set before the proxy announces the name, so whoever
    // reacts to sig_mounted finds them.
    QPointer<QWidget> const previous = m_frameWidget;
    m_frameWidget = frameWidget;
    m_name = name;
    if (!proxy->mount(name, this)) {
        m_frameWidget = previous;
        m_name.clear();
        return false;
    }
    return true;
}

void FrameLinkProxyInterface::unmount()
{
    if (m_name.isEmpty())
        return;
    QString const name = m_name;
    m_name.clear();
    FrameLinkProxy* proxy = FrameLinkProxy::existingInstance();
    if (proxy && proxy->find(name) == this)
        proxy->unmount(name);
}

QString FrameLinkProxyInterface::mountName() const
{
    return m_name;
}

QWidget* FrameLinkProxyInterface::frameWidget() const
{
    return m_frameWidget.data();
}
