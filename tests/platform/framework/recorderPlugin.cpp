#include "recorderPlugin.h"

#include "cqpluginmanager.h"

RecorderPlugin::RecorderPlugin(QObject* parent)
    : CQBasePlugin(parent)
{
}

RecorderPlugin::~RecorderPlugin()
{
    TestJournal::append(name() + QStringLiteral(" deleted"));
}

QString RecorderPlugin::name() const
{
    return pluginId().isEmpty() ? QStringLiteral("?") : pluginId();
}

int RecorderPlugin::init(QVariant const& host)
{
    QObject* hostObject = host.value<QObject*>();
    TestJournal::append(name() + QStringLiteral(" init host=")
                        + (hostObject ? hostObject->objectName() : QStringLiteral("null")));
    emit sig1(pluginId(), QStringLiteral("TST_SELF_PING"), QVariant());
    return 0;
}

int RecorderPlugin::unInit(QVariant const& para)
{
    Q_UNUSED(para);
    TestJournal::append(name() + QStringLiteral(" unInit"));
    return 0;
}

QVariant RecorderPlugin::execCmd(QString cmd, QVariant const& para)
{
    m_threads.append(QThread::currentThread());
    TestJournal::append(name() + QLatin1Char(' ') + cmd
                        + (para.canConvert<QString>() ? QLatin1Char(' ') + para.toString() : QString()));
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
