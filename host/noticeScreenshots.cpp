#include "noticeScreenshots.h"

#include "bridgerecords.h"
#include "msgmgrwininterface.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"
#include "screenshotTaker.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QWidget>

#include <algorithm>

namespace {

int const kStackMargin = 24;

QList<MsgMgrWinInterface*> openPopups(char const* className = nullptr)
{
    QList<MsgMgrWinInterface*> out;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* popup = qobject_cast<MsgMgrWinInterface*>(w);
        if (popup && popup->isVisible() && (!className || popup->inherits(className)))
            out << popup;
    }
    return out;
}

__sUniNoticeMsgInfo notice(char const* id, char const* title, char const* heading, char const* body, int level)
{
    __sUniNoticeMsgInfo info;
    info.id = QString::fromLatin1(id);
    info.text2 = QString::fromUtf8(title);
    info.text1 = QString::fromUtf8(heading);
    info.text3 = QString::fromUtf8(body);
    info.value1 = level;
    info.number1 = 60;
    return info;
}

} // namespace

NoticeScreenshots::NoticeScreenshots(QString const& directory)
    : m_directory(directory)
{
}

bool NoticeScreenshots::save(QWidget* w, QString const& name) const
{
    return ScreenshotTaker::savePicture(m_directory, name, w ? w->grab() : QPixmap());
}

// The notices first and alone: with the other pop-ups on the small offscreen
// screen the message manager would hold some of them back in its queue.
void NoticeScreenshots::takeAll()
{
    raiseNotices();
    takeStack();
    takeLooks("UniNoticeMsg", QStringLiteral("uni-notice"));
    closeAll();
    raiseDeviceAndOrder();
    takeLooks("DevicePopWin", QStringLiteral("device-pop"));
    takeLooks("BootWin", QStringLiteral("boot-win"));
    takeDetails();
    closeAll();
}

void NoticeScreenshots::closeAll()
{
    for (MsgMgrWinInterface* popup : openPopups())
        popup->close();
    ScreenshotTaker::settle();
}

void NoticeScreenshots::raiseNotices()
{
    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    emit backend->sig_UniNotifyMsg(notice("shot-1", "病毒查杀", "发现 3 个威胁", "下载目录中的威胁已全部隔离。", 0));
    __sUniNoticeMsgInfo withLink = notice("shot-2", "漏洞修复", "", "有 2 个高危漏洞等待修复。", 0);
    withLink.text4 = QString::fromUtf8("立即修复");
    withLink.number4 = 1;
    withLink.number2 = 4;
    emit backend->sig_UniNotifyMsg(withLink);
    emit backend->sig_UniNotifyMsg(notice("shot-3", "主动防御", "已阻止可疑进程", "进程 /tmp/x 试图修改系统文件，已被阻止。", 2));
    ScreenshotTaker::settle();
}

void NoticeScreenshots::raiseDeviceAndOrder()
{
    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    emit backend->sig_device_mgr_msg(__sDeviceMgrPopup{QString::fromUtf8("外设管控"), QString::fromUtf8("已禁用 USB 存储设备"),
                                                        QString::fromUtf8("根据管理员策略，USB 存储设备 SanDisk Ultra 已被禁用。"),
                                                        QString(), 60, QString::fromUtf8("厂商: SanDisk\n型号: Ultra\n序列号: 4C530001")});
    emit backend->sig_shutdown_reboot_notice(2, 60);
    ScreenshotTaker::settle();
}

// Both looks of the first open window of that class.
void NoticeScreenshots::takeLooks(char const* className, QString const& name)
{
    QList<MsgMgrWinInterface*> const popups = openPopups(className);
    MsgMgrWinInterface* popup = popups.isEmpty() ? nullptr : popups.first();
    if (!popup) {
        save(nullptr, name);
        return;
    }
    MsgMgrWinInterface::eUIType const before = popup->uiType();
    popup->changUIType(MsgMgrWinInterface::EUITYPE_ALONE);
    ScreenshotTaker::settle();
    save(popup, name);
    popup->changUIType(MsgMgrWinInterface::EUITYPE_COMPACT);
    ScreenshotTaker::settle();
    save(popup, name + QStringLiteral("-compact"));
    popup->changUIType(before);
}

void NoticeScreenshots::takeDetails()
{
    QList<MsgMgrWinInterface*> const popups = openPopups("DevicePopWin");
    QPushButton* details = popups.isEmpty() ? nullptr : popups.first()->findChild<QPushButton*>(QStringLiteral("m_pBtnText"));
    if (details)
        details->click();
    ScreenshotTaker::settle();
    QWidget* win = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String("DevicePopSubWin") && w->isVisible())
            win = w;
    }
    save(win, QStringLiteral("device-details"));
    if (win)
        win->close();
}

// The unified notices as the message manager placed them, painted at their
// screen positions over a plain desktop.
void NoticeScreenshots::takeStack()
{
    QList<MsgMgrWinInterface*> const popups = openPopups("UniNoticeMsg");
    if (popups.isEmpty()) {
        save(nullptr, QStringLiteral("notice-stack"));
        return;
    }
    QRect area;
    for (MsgMgrWinInterface* popup : popups)
        area |= popup->frameGeometry();
    area.adjust(-kStackMargin, -kStackMargin, kStackMargin, kStackMargin);
    QPixmap shot(area.size());
    shot.fill(QColor(QStringLiteral("#5B6B84")));
    QPainter painter(&shot);
    for (MsgMgrWinInterface* popup : popups)
        painter.drawPixmap(popup->frameGeometry().topLeft() - area.topLeft(), popup->grab());
    painter.end();
    ScreenshotTaker::savePicture(m_directory, QStringLiteral("notice-stack"), shot);
}
