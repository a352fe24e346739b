#include "assetArea.h"
#include "assetArea_p.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "computerLogo.h"

#include <QFrame>
#include <QMutexLocker>
#include <QPointer>

namespace {

char const* const kModule = "plugins/base/core/assetArea/assetArea";

} // namespace

AssetArea::AssetArea(QWidget* parent)
    : QWidget(parent)
    , d_ptr(new AssetAreaPrivate(this))
{
    d_ptr->InitUI();
}

AssetArea::~AssetArea()
{
    BFLOG(BFLOG_DEBUG, kModule, "[AssetArea] delete AssetArea obj");
    delete d_ptr;
    d_ptr = nullptr;
}

bool AssetArea::hasItem(int index) const
{
    QMutexLocker lock(&d_ptr->m_mutexItems);
    auto const it = d_ptr->m_mapItems.constFind(index);
    return it != d_ptr->m_mapItems.constEnd() && !it->widget.isNull();
}

ComputerLogo* AssetArea::computerLogo() const
{
    return d_ptr->m_pComputerLogo;
}

QGridLayout* AssetArea::gridLayout() const
{
    return d_ptr->m_pGridLayout;
}

QFrame* AssetArea::rightSlot() const
{
    return d_ptr->m_pWinLeft;
}

void AssetArea::slot_refresh()
{
    if (d_ptr->m_bRefreshing) {
        BFLOG(BFLOG_DEBUG, kModule, "[AssetArea] refresh already running, dropped");
        return;
    }
    d_ptr->m_bRefreshing = true;
    d_ptr->updateItem();
    // A receiver of the signal may delete the strip.
    QPointer<AssetArea> alive(this);
    emit sig_refreshEnd();
    if (alive)
        d_ptr->m_bRefreshing = false;
}

void AssetArea::slot_showRefresh()
{
    if (isHidden())
        return;
    slot_refresh();
}

void AssetArea::slot_registerItem(sPluginRegisterItem item)
{
    QWidget* w = d_ptr->acceptedWidget(item);
    if (!w)
        return;
    // The first registration under an index wins; a second one is no error.
    if (!d_ptr->insertItem(item.index, AssetAreaPrivate::Item{w, item.extra.toPoint()}))
        return;
    d_ptr->updateItem();
}

void AssetArea::slot_unRegisterItem(int index)
{
    if (d_ptr->eraseItem(index))
        d_ptr->updateItem();
}

void AssetArea::slot_updateState(signed char state)
{
    switch (state) {
    case ComputerLogo::EUITYPE_NORMAL:
    case ComputerLogo::EUITYPE_RISK:
    case ComputerLogo::EUITYPE_DANGER:
        d_ptr->m_pComputerLogo->updateUIType(static_cast<ComputerLogo::eUIType>(state));
        break;
    default:
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] unknown state [%d], ignored", int(state));
        break;
    }
}

void AssetArea::slot_updateLeftWin(QWidget* w, QPoint pos)
{
    if (!w) {
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] left win is null");
        return;
    }
    // The pointer comes from another plugin and may be stale: it is only
    // used once it matches a widget alive right now.
    QWidget* live = basegui::Common::liveWidgetAt(w);
    if (!live) {
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] left win is not a live widget");
        return;
    }
    if (basegui::Common::refusesOwnAncestor(d_ptr->m_pWinLeft, live, "AssetArea"))
        return;
    if (live->parentWidget() != d_ptr->m_pWinLeft)
        live->setParent(d_ptr->m_pWinLeft);
    live->move(pos);
    live->show();
}
