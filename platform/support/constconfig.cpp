#include "constconfig.h"

#include <QDir>
#include <QFileInfo>
#include <QtGlobal>

namespace {

QString cleanAbsolute(QString const& path)
{
    QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    while (clean.size() > 1 && clean.endsWith(QLatin1Char('/')))
        clean.chop(1);
    return clean;
}

} // namespace

QString ConstConfig::executableDir()
{
    // /proc/self/exe works before (and without) a QCoreApplication, which the
    // configuration readers may well be asked for first.
    QFileInfo exe(QStringLiteral("/proc/self/exe"));
    QString target = exe.symLinkTarget();
    if (target.isEmpty())
        return QDir::currentPath();
    return QFileInfo(target).absolutePath();
}

QString ConstConfig::installRoot()
{
    QString const fromEnv = qEnvironmentVariable("QUORIX_ROOT");
    if (!fromEnv.trimmed().isEmpty())
        return cleanAbsolute(fromEnv);
    QString const dir = executableDir();
    if (QFileInfo(dir).fileName() == QLatin1String("bin"))
        return cleanAbsolute(dir + QStringLiteral("/.."));
    return cleanAbsolute(dir);
}

QString ConstConfig::pluginSubDir()
{
    return QStringLiteral("lib/plugins-gui");
}

QString ConstConfig::pluginDir()
{
    return installRoot() + QLatin1Char('/') + pluginSubDir();
}

QString ConstConfig::etcDir()
{
    return installRoot() + QStringLiteral("/etc");
}

QString ConstConfig::brandingFile()
{
    return etcDir() + QStringLiteral("/branding.ini");
}

QString ConstConfig::clientName()
{
    return QStringLiteral("quorix-gui");
}

QString ConstConfig::defaultProductName()
{
    return QString::fromUtf8("Quorix终端安全管理系统");
}

QString ConstConfig::defaultTheme()
{
    return QStringLiteral("default");
}

QString ConstConfig::defaultLogoIconPath()
{
    return QStringLiteral(":/img/logo.ico");
}

QString ConstConfig::defaultHomePageContent()
{
    // No text of the brand's own: the home page keeps the title it was given.
    return QString();
}

QString ConstConfig::xdgDir(char const* variable, QString const& homeRelative)
{
    // The XDG rules ignore relative values.
    QString const base = qEnvironmentVariable(variable);
    if (base.startsWith(QLatin1Char('/')))
        return cleanAbsolute(base + QStringLiteral("/quorix"));
    QString home = qEnvironmentVariable("HOME");
    if (home.isEmpty())
        home = QDir::homePath();
    return cleanAbsolute(home + QLatin1Char('/') + homeRelative + QStringLiteral("/quorix"));
}

QString ConstConfig::userConfigDir()
{
    return xdgDir("XDG_CONFIG_HOME", QStringLiteral(".config"));
}

QString ConstConfig::userDataDir()
{
    return xdgDir("XDG_DATA_HOME", QStringLiteral(".local/share"));
}
