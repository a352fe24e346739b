#include "cqbaseplugin.h"

#include "clogdebug.h"

CQBasePlugin::CQBasePlugin(QObject* parent)
    : QObject(parent)
{
}

CQBasePlugin::~CQBasePlugin()
{
    BFLOG(BFLOG_DEBUG, "platform/framework", "[CQBasePlugin] delete CQBasePlugin obj, id [%s]",
          qUtf8Printable(pluginId()));
}

int CQBasePlugin::init(QVariant const& host)
{
    Q_UNUSED(host);
    return 0;
}

int CQBasePlugin::unInit(QVariant const& para)
{
    Q_UNUSED(para);
    return 0;
}

QVariant CQBasePlugin::execCmd(QString cmd, QVariant const& para)
{
    Q_UNUSED(cmd);
    Q_UNUSED(para);
    return QVariant();
}

QVariant CQBasePlugin::info()
{
    return m_info;
}

void CQBasePlugin::setInfo(QVariantMap const& meta)
{
    m_info = meta;
}

QString CQBasePlugin::pluginId() const
{
    return m_info.value(QStringLiteral("id")).toString();
}
