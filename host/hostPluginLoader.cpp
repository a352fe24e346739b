#include "hostPluginLoader.h"

#include "clogdebug.h"
#include "cqpluginmanager.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

char const* const kModule = "host/hostPluginLoader";

// Two spellings of one folder (a link, "a/../a") name the same plugins.
QString identity(QString const& folder)
{
    QString const canonical = QFileInfo(folder).canonicalFilePath();
    return canonical.isEmpty() ? folder : canonical;
}

} // namespace

QStringList HostPluginLoader::extraFolders(QStringList const& requested, QString const& variable,
                                           QString const& mainFolder)
{
    QStringList candidates = requested;
    candidates += variable.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    QSet<QString> seen{identity(QDir::cleanPath(QDir(mainFolder).absolutePath()))};
    QStringList folders;
    for (QString const& candidate : qAsConst(candidates)) {
        if (candidate.trimmed().isEmpty())
            continue;
        QString const folder = QDir::cleanPath(QDir(candidate).absolutePath());
        QString const key = identity(folder);
        if (seen.contains(key))
            continue;
        seen.insert(key);
        folders.append(folder);
    }
    return folders;
}

HostPluginLoader::HostPluginLoader(QString mainFolder, QStringList extraFolders)
    : m_mainFolder(std::move(mainFolder))
    , m_extraFolders(std::move(extraFolders))
{
}

int HostPluginLoader::loadAll()
{
    int const loaded = CQPluginManager::singleInstance()->loadPlugins(m_mainFolder);
    for (QString const& folder : qAsConst(m_extraFolders))
        loadExtraFolder(folder);
    return loaded;
}

int HostPluginLoader::loadExtraFolder(QString const& folder)
{
    if (!QFileInfo(folder).isDir()) {
        BFLOG(BFLOG_WARN, kModule, "[HostPluginLoader] extra plugin folder [%s] does not exist, skipped",
              qUtf8Printable(folder));
        return 0;
    }
    int const loaded = CQPluginManager::singleInstance()->loadPlugins(folder);
    BFLOG(BFLOG_INFO, kModule, "[HostPluginLoader] extra plugin folder [%s]: %d plugins loaded", qUtf8Printable(folder),
          loaded);
    return loaded;
}
