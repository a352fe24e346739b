#include "recorderPlugin.h"

#include "cqpluginmanager.h"

RecorderPlugin::~RecorderPlugin()
{
    note(QStringLiteral("deleted"));
}

QStringList& RecorderPlugin::journal()
{
    static QStringList lines;
    return lines;
}

void RecorderPlugin::note(QString const& what) const
{
    journal().append((pluginId().isEmpty() ? QStringLiteral("?") : pluginId()) + QLatin1Char(' ') + what);
}

int RecorderPlugin::init(QVariant const& host)
{
    QObject* hostObject = host.value<QObject*>();
    note(QStringLiteral("init host=") + (hostObject ? hostObject->objectName() : QStringLiteral("null")));
    emit sig1(pluginId(), QStringLiteral("TST_SELF_PING"), QVariant());
    return 0;
}

int RecorderPlugin::unInit(QVariant const&)
{
    note(QStringLiteral("unInit"));
    return 0;
}

QVariant RecorderPlugin::execCmd(QString cmd, QVariant const& para)
{
    lastThread = QThread::currentThread();
    note(para.canConvert<QString>() ? cmd + QLatin1Char(' ') + para.toString() : cmd);
    QStringList const args = para.toStringList();
    if (cmd == QLatin1String("TST_CMD_SEND") && args.size() == 3)
        emit sig1(args.at(0), args.at(1), args.at(2));
    else if (cmd == QLatin1String("TST_CMD_BROADCAST") && args.size() == 2)
        emit sig(args.at(0), args.at(1));
    else if (cmd == QLatin1String("TST_CMD_DELETE"))
        delete CQPluginManager::plugin(para.toString());
    else if (cmd == QLatin1String("TST_CMD_UNLOAD"))
        CQPluginManager::singleInstance()->unloadPlugin(para.toString());
    return QVariant();
}
