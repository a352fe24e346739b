// A well-formed Qt plugin whose root object is not a CQBasePlugin.
#include <QObject>
#include <QtPlugin>

class NotBasePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.TestPlugin/1.0" FILE "notBasePlugin.json")
};

#include "notBasePlugin.moc"
