#include "assetArea_p.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "computerLogo.h"
#include "cqline.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMutexLocker>

namespace {

char const* const kModule = "plugins/base/core/assetArea/assetAreaPrivate";

int const kWidth = 744;
int const kHeight = 74;
// The strip holds a handful of small cells; a cell beyond this is a bad
// payload, and a huge one would make the grid allocate every row up to it.
int const kMaxCell = 31;

} // namespace

AssetAreaPrivate::AssetAreaPrivate(AssetArea* q)
    : q_ptr(q)
{
}

AssetAreaPrivate::~AssetAreaPrivate()
{
    basegui::Common::clearGridLayout(m_pGridLayout);
    releaseForeignWidgets();
    m_pGridLayout->deleteLater();
    BFLOG(BFLOG_DEBUG, kModule, "[AssetAreaPrivate] delete AssetAreaPrivate obj");
}

void AssetAreaPrivate::InitUI()
{
    InitUIWindow();
    m_pLayout = new QHBoxLayout(q_ptr);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(0);
    InitUILogo();
    InitUIBody();
    InitUIRightSlot();
    m_pLayout->addStretch();
}

void AssetAreaPrivate::InitUIWindow()
{
    q_ptr->setWindowFlags(q_ptr->windowFlags() | Qt::FramelessWindowHint);
    q_ptr->setFixedSize(kWidth, kHeight);
    q_ptr->setObjectName(QStringLiteral("AssetArea"));
    // A plain QWidget subclass paints no style-sheet background without it.
    q_ptr->setAttribute(Qt::WA_StyledBackground);
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/assetArea.qss")));
}

void AssetAreaPrivate::InitUILogo()
{
    m_pComputerLogo = new ComputerLogo(q_ptr);
    m_pComputerLogo->updateUIType(ComputerLogo::EUITYPE_NORMAL);
    m_pLayout->addWidget(m_pComputerLogo);

    m_pLine = new CQLine(Qt::Vertical, q_ptr);
    m_pLine->setObjectName(QStringLiteral("m_pLine"));
    m_pLine->setFixedSize(1, 42);
    m_pLayout->addWidget(m_pLine);
}

void AssetAreaPrivate::InitUIBody()
{
    m_pWinBody = new QFrame(q_ptr);
    m_pWinBody->setObjectName(QStringLiteral("pWinBody"));
    m_pWinBody->setFixedSize(583, kHeight);
    m_pWinBody->setStyleSheet(QStringLiteral("#pWinBody{background:transparent;}"));
    m_pGridLayout = new QGridLayout(m_pWinBody);
    m_pGridLayout->setContentsMargins(24, 12, 0, 12);
    m_pLayout->addWidget(m_pWinBody);
}

void AssetAreaPrivate::InitUIRightSlot()
{
    m_pWinLeft = new QFrame(q_ptr);
    m_pWinLeft->setObjectName(QStringLiteral("m_pWinLeft"));
    m_pWinLeft->setFixedSize(72, kHeight);
    m_pWinLeft->setStyleSheet(QStringLiteral("#m_pWinLeft{background:transparent;}"));
    m_pLayout->addWidget(m_pWinLeft);
}

QWidget* AssetAreaPrivate::acceptedWidget(sPluginRegisterItem const& item) const
{
    int const index = item.index;
    if (!item.object) {
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] item object is null, index is [%d]", index);
        return nullptr;
    }
    // Objects come from other plugins and may already be gone: only a widget
    // alive right now is ever dereferenced.
    QWidget* w = basegui::Common::liveWidgetAt(item.object);
    if (!w) {
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] item object is not a live widget, index is [%d]", index);
        return nullptr;
    }
    if (item.extra.userType() != QMetaType::QPoint) {
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] item extra is not a point, index is [%d]", index);
        return nullptr;
    }
    QPoint const cell = item.extra.toPoint();
    if (cell.x() < 0 || cell.y() < 0 || cell.x() > kMaxCell || cell.y() > kMaxCell) {
        BFLOG(BFLOG_ERROR, kModule, "[AssetArea] item cell (%d, %d) out of range, index is [%d]", cell.x(), cell.y(),
              index);
        return nullptr;
    }
    if (basegui::Common::refusesOwnAncestor(m_pWinBody, w, "AssetArea"))
        return nullptr;
    return w;
}

bool AssetAreaPrivate::insertItem(int index, Item const& item)
{
    QMutexLocker lock(&m_mutexItems);
    auto const it = m_mapItems.constFind(index);
    // A widget deleted by its owner no longer holds its index.
    if (it != m_mapItems.constEnd() && !it->widget.isNull())
        return false;
    m_mapItems.insert(index, item);
    return true;
}

bool AssetAreaPrivate::eraseItem(int index)
{
    QMutexLocker lock(&m_mutexItems);
    return m_mapItems.remove(index) > 0;
}

void AssetAreaPrivate::updateItem()
{
    // Showing a registered widget runs its show event, which may register or
    // unregister through the strip again: that call is folded into the
    // rebuild under way instead of clearing the grid beneath it.
    if (m_bRebuilding) {
        m_bRebuildPending = true;
        return;
    }
    m_bRebuilding = true;
    do {
        m_bRebuildPending = false;
        layoutItems(liveItems());
    } while (m_bRebuildPending);
    m_bRebuilding = false;

    m_pGridLayout->update();
    m_pLayout->update();
    q_ptr->update();
}

// The map is read under its mutex; the widgets are laid out from the copy,
// so no widget code ever runs while the mutex is held.
QList<AssetAreaPrivate::Item> AssetAreaPrivate::liveItems()
{
    QMutexLocker lock(&m_mutexItems);
    QList<Item> items;
    for (auto it = m_mapItems.begin(); it != m_mapItems.end();) {
        if (it->widget.isNull()) {
            BFLOG(BFLOG_WARN, kModule, "[AssetArea] widget of index [%d] was deleted by its owner, entry dropped",
                  it.key());
            it = m_mapItems.erase(it);
            continue;
        }
        items.append(*it);
        ++it;
    }
    return items;
}

void AssetAreaPrivate::layoutItems(QList<Item> const& items)
{
    basegui::Common::clearGridLayout(m_pGridLayout);
    for (Item const& item : items) {
        // An earlier widget's show event may have deleted this one.
        if (item.widget.isNull())
            continue;
        // Deliberately x for the row and y for the column.
        m_pGridLayout->addWidget(item.widget, item.cell.x(), item.cell.y());
        item.widget->show();
    }
}

void AssetAreaPrivate::releaseForeignWidgets()
{
    // Everything under the body and the right slot was placed there by other
    // plugins, registered or since unregistered: it is theirs to delete, so
    // it is handed back parentless instead of going down with the strip.
    for (QFrame* holder : {m_pWinBody, m_pWinLeft}) {
        for (QWidget* w : holder->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            w->setParent(nullptr);
    }
}
