#pragma once

#include "framework_global.h"

#include <QPointer>
#include <QString>
#include <QWidget>

// Something the frame can navigate into: a navigation bar, a settings window.
// It is mounted on the FrameLinkProxy under a name; the widget given at mount
// time is what the frame shows for it (e.g. the navigation bar's background).
class FRAMEWORK_EXPORT FrameLinkProxyInterface
{
public:
    FrameLinkProxyInterface();
    virtual ~FrameLinkProxyInterface();

    // Registers this interface on FrameLinkProxy::singleInstance() under `name`.
    bool mount(QString const& name, QWidget* frameWidget);
    void unmount();
    QString mountName() const;
    QWidget* frameWidget() const;

    // Show the child page whose object name is `name`; true if this interface had it.
    virtual bool gotoChildObject(QString const& name) = 0;

private:
    QString m_name;
    QPointer<QWidget> m_frameWidget;
};
