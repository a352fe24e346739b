#pragma once

#include <QString>

class QWidget;

// Pictures of the backend's pop-ups for the documentation: a unified notice,
// a device pop-up with its details and a restart order, each in its
// stand-alone and compact look, and three notices as the message manager
// stacks them. The events go the way the backend sends them (backend signal,
// bridge, base plugin, message manager).
class NoticeScreenshots
{
public:
    explicit NoticeScreenshots(QString const& directory);

    void takeAll();

private:
    void raiseNotices();
    void raiseDeviceAndOrder();
    void closeAll();
    void takeLooks(char const* className, QString const& name);
    void takeDetails();
    void takeStack();
    bool save(QWidget* w, QString const& name) const;

    QString m_directory;
};
