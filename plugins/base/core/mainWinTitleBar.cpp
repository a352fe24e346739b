#include "mainWinTitleBar.h"
#include "mainWinTitleBar_p.h"

#include "basegui_common.h"
#include "cqtitlebuttons.h"
#include "cqcloudbrainlabel.h"
#include "messagecenterpluginmodeldatainterface.h"

#include <QMutexLocker>

MainWinTitleBar::MainWinTitleBar(QWidget* parent)
    : CQFrame(parent)
    , d_ptr(new MainWinTitleBarPrivate(this))
{
    d_ptr->InitUI();

    registerWin(d_ptr->m_pBtnDropDown, EBASETITLEBARDIR_RIGHT, EBASETITLEBAROBJPOS_DROPDOWN);
    registerWin(d_ptr->m_pBtnMin, EBASETITLEBARDIR_RIGHT, EBASETITLEBAROBJPOS_MIN);
    registerWin(d_ptr->m_pBtnClose, EBASETITLEBARDIR_RIGHT, EBASETITLEBAROBJPOS_CLOSE);
    registerWin(d_ptr->m_pCloudBrainLabel, EBASETITLEBARDIR_RIGHT, EBASETITLEBAROBJPOS_CLOUDBRAIN);

    connect(d_ptr->m_pBtnDropDown, &QPushButton::clicked, this, &MainWinTitleBar::slot_setting);
    connect(d_ptr->m_pBtnMin, &QPushButton::clicked, this, &MainWinTitleBar::slot_minimize);
    connect(d_ptr->m_pBtnClose, &QPushButton::clicked, this, &MainWinTitleBar::slot_close);

    getUnreadMsgCount();
}

MainWinTitleBar::~MainWinTitleBar()
{
    delete d_ptr;
    d_ptr = nullptr;
}

void MainWinTitleBar::registerWin(QWidget* w, eBaseTitleBarDir dir, eBaseTitleBarObjPosID pos)
{
    if (!w || basegui::Common::refusesOwnAncestor(this, w, "MainWinTitleBar"))
        return;
    MainWinTitleBarPrivate::AreaMap* map = nullptr;
    QMutex* mutex = nullptr;
    if (d_ptr->area(dir, map, mutex)) {
        QMutexLocker lock(mutex);
        auto const it = map->constFind(pos);
        // A position whose widget has been deleted by its owner is free again.
        if (it != map->constEnd() && !it.value().isNull())
            return;
        map->insert(pos, QPointer<QWidget>(w));
    }
    d_ptr->resetUI();
}

void MainWinTitleBar::unRegisterWin(QWidget* w, eBaseTitleBarDir dir, eBaseTitleBarObjPosID pos)
{
    if (!w)
        return;
    w->setParent(nullptr);
    w->hide();

    MainWinTitleBarPrivate::AreaMap* map = nullptr;
    QMutex* mutex = nullptr;
    if (d_ptr->area(dir, map, mutex)) {
        QMutexLocker lock(mutex);
        if (!map->contains(pos))
            return;
        map->remove(pos);
    }
    d_ptr->resetUI();
}

void MainWinTitleBar::setBackgroundColor(QString const& titleColor, QString const& logoColor)
{
    setStyleSheet(QStringLiteral("#MainWinTitleBar{background:%1}").arg(titleColor));
    d_ptr->m_pLogoTitleBackground->setStyleSheet(QStringLiteral("#m_pLogoTitleBackground{background:%1}").arg(logoColor));
}

void MainWinTitleBar::getUnreadMsgCount()
{
    MessageCenterPluginModelDataInterface* bridge = MessageCenterPluginModelDataInterface::singleInstance();
    if (bridge)
        bridge->requestUnreadMsgCount();
}

void MainWinTitleBar::slot_updateCloudBrainDays(int days)
{
    d_ptr->m_pCloudBrainLabel->slot_updateDays(days);
}

void MainWinTitleBar::slot_base_info(__sBaseModuleBaseInfo info)
{
    // The first field of the record, the low 32 bits, is the day count.
    slot_updateCloudBrainDays(static_cast<int32_t>(static_cast<uint32_t>(info.value & 0xFFFFFFFFu)));
}

void MainWinTitleBar::slot_minimize()
{
    emit sig_minimize();
}

void MainWinTitleBar::slot_close()
{
    emit sig_close();
}

void MainWinTitleBar::slot_setting()
{
    emit sig_setting();
}
