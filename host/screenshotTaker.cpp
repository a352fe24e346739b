#include "screenshotTaker.h"

#include "clogdebug.h"
#include "cqbaseplugin.h"
#include "cqmenu.h"
#include "cqmenuitem.h"
#include "cqpluginmanager.h"
#include "framelinkproxy.h"
#include "noticeScreenshots.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>
#include <QWidgetAction>

namespace {

char const* const kModule = "host/screenshotTaker";

QWidget* topLevelByName(QString const& name)
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name)
            return w;
    }
    return nullptr;
}

CQMenu* rightTopMenu()
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* menu = qobject_cast<CQMenu*>(w))
            return menu;
    }
    return nullptr;
}

} // namespace

// Lets layouts, style sheets and queued bridge answers settle before a grab.
void ScreenshotTaker::settle()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

bool ScreenshotTaker::savePicture(QString const& directory, QString const& name, QPixmap const& picture)
{
    if (picture.isNull()) {
        BFLOG(BFLOG_WARN, kModule, "[ScreenshotTaker] no window for [%s]", qUtf8Printable(name));
        return false;
    }
    QString const path = QDir(directory).filePath(name + QStringLiteral(".png"));
    bool const ok = picture.save(path, "PNG");
    BFLOG(ok ? BFLOG_INFO : BFLOG_ERROR, kModule, "[ScreenshotTaker] %s [%s]", ok ? "saved" : "cannot save",
          qUtf8Printable(path));
    return ok;
}

ScreenshotTaker::ScreenshotTaker(QWidget* mainWindow, QString const& directory, QObject* parent)
    : QObject(parent)
    , m_pMainWindow(mainWindow)
    , m_directory(directory)
{
}

bool ScreenshotTaker::save(QWidget* w, QString const& name)
{
    return savePicture(m_directory, name, w ? w->grab() : QPixmap());
}

void ScreenshotTaker::slot_takeAll()
{
    QDir().mkpath(m_directory);
    settle();
    takeMainWindow();
    takeRightTopMenu();
    takeTrayMenu();
    takeAboutWindow();
    takeSettingCentre();
    NoticeScreenshots(m_directory).takeAll();
    emit sig_done();
}

void ScreenshotTaker::takeMainWindow()
{
    save(m_pMainWindow, QStringLiteral("main-window"));
}

void ScreenshotTaker::takeRightTopMenu()
{
    // The same broadcast the title bar's menu button sends before the menu pops up.
    CQPluginManager::singleInstance()->sendCmd(QString::fromLatin1(EPLUGIN_ID_ALL_PLUGIN),
                                               QStringLiteral("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW"), QVariant());
    CQMenu* menu = rightTopMenu();
    if (!menu) {
        save(nullptr, QStringLiteral("right-top-menu"));
        return;
    }
    menu->adjustSize();
    menu->ensurePolished();
    save(menu, QStringLiteral("right-top-menu"));
}

void ScreenshotTaker::takeTrayMenu()
{
    QWidget* menu = topLevelByName(QStringLiteral("MenuWidget"));
    if (!menu) {
        save(nullptr, QStringLiteral("tray-menu"));
        return;
    }
    menu->adjustSize();
    save(menu, QStringLiteral("tray-menu"));
}

void ScreenshotTaker::takeAboutWindow()
{
    CQMenu* menu = rightTopMenu();
    if (!menu) {
        save(nullptr, QStringLiteral("about-window"));
        return;
    }
    for (QAction* action : menu->actions()) {
        auto* widgetAction = qobject_cast<QWidgetAction*>(action);
        auto* item = widgetAction ? qobject_cast<CQMenuItem*>(widgetAction->defaultWidget()) : nullptr;
        if (item && item->text() == QString::fromUtf8("关于我们")) {
            action->trigger();
            break;
        }
    }
    settle();
    QWidget* about = topLevelByName(QStringLiteral("CWinAbout"));
    save(about, QStringLiteral("about-window"));
    if (about)
        about->close();
}

void ScreenshotTaker::takeSettingCentre()
{
    FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("SettingCentreWidget"));
    settle();
    save(topLevelByName(QStringLiteral("SettingCentreWidget")), QStringLiteral("setting-centre"));
}
