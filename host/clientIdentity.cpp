#include "clientIdentity.h"

#include "clientIconEngine.h"
#include "clogdebug.h"
#include "dravoguiconfig.h"

#include <QApplication>

// Q_INIT_RESOURCE cannot stand in a namespace; the host is a static library,
// whose resource would otherwise be dropped by the linker.
static void initClientIcons()
{
    Q_INIT_RESOURCE(quorix_gui_icons);
}

namespace {

char const* const kModule = "host/clientIdentity";
char const* const kDefaultProductName = "Quorix终端安全管理系统";
int const kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

QIcon builtInIcon()
{
    initClientIcons();
    QMap<int, QString> files;
    for (int const size : kIconSizes)
        files.insert(size, QStringLiteral(":/quorix-gui/icons/%1.png").arg(size));
    return QIcon(new ClientIconEngine(files));
}

} // namespace

QString ClientIdentity::desktopFileName()
{
    return QStringLiteral("quorix-gui");
}

QString ClientIdentity::productName()
{
    QString name;
    if (DravoGuiConfig::productName(name) != 0 || name.trimmed().isEmpty())
        return QString::fromUtf8(kDefaultProductName);
    return name.trimmed();
}

QIcon ClientIdentity::icon()
{
    return QIcon::fromTheme(desktopFileName(), builtInIcon());
}

void ClientIdentity::apply()
{
    QGuiApplication::setDesktopFileName(desktopFileName());
    QGuiApplication::setApplicationDisplayName(productName());
    QIcon const windowIcon = icon();
    if (windowIcon.isNull())
        BFLOG(BFLOG_WARN, kModule, "[ClientIdentity] no client icon, windows keep the desktop's default");
    QApplication::setWindowIcon(windowIcon);
}
