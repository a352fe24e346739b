#include "goodsShelf.h"

#include "basegui_common.h"
#include "clogdebug.h"

#include <QGridLayout>
#include <QMutexLocker>

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
constexpr int kColumns = 3;
constexpr int kTileWidth = 87;
constexpr int kTileHeight = 65;
constexpr int kShelfWidth = 268;
} // namespace

TmpItem::TmpItem(QWidget* parent)
    : CQLabel(parent)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setObjectName(QStringLiteral("TmpItem"));
    setFixedSize(kTileWidth, kTileHeight);
    setStyleSheet(QStringLiteral("#TmpItem{background:transparent;}"));
}

GoodsShelf::GoodsShelf(QWidget* parent)
    : CQFrame(parent)
{
    InitUI();
    updateUI();
}

GoodsShelf::~GoodsShelf()
{
    basegui::Common::clearGridLayout(m_pGridLayout);
    // Tiles belong to the plugins that registered them: hand them back alive.
    QList<QWidget*> const tiles = items();
    for (QWidget* w : tiles) {
        disconnect(w, nullptr, this, nullptr);
        w->hide();
        w->setParent(nullptr);
    }
    m_pGridLayout->deleteLater();
    if (m_pTmpItemA)
        m_pTmpItemA->deleteLater();
    if (m_pTmpItemB)
        m_pTmpItemB->deleteLater();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[GoodsShelf] delete GoodsShelf obj");
}

void GoodsShelf::InitUI()
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setFixedWidth(kShelfWidth);
    m_pGridLayout = new QGridLayout(this);
    m_pGridLayout->setContentsMargins(0, 0, 0, 0);
    m_pGridLayout->setHorizontalSpacing(0);
    m_pGridLayout->setVerticalSpacing(0);
}

int GoodsShelf::registerItem(QWidget* w, int index)
{
    if (!w) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[GoodsShelf] paras is null");
        return -1;
    }
    if (basegui::Common::refusesOwnAncestor(this, w, "GoodsShelf"))
        return -1;
    {
        QMutexLocker locker(&m_mutex);
        if (!m_items.insert(index, w)) {
            BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[GoodsShelf] the w already exists.");
            return -1;
        }
        // Fillers keep a short first row at three columns; they are only
        // adjusted when a tile arrives, never when one leaves.
        int const n = m_items.count();
        if (n == 1) {
            createFiller(m_pTmpItemA);
            createFiller(m_pTmpItemB);
        } else if (n == 2) {
            createFiller(m_pTmpItemA);
            dropFiller(m_pTmpItemB);
        } else {
            dropFiller(m_pTmpItemA);
            dropFiller(m_pTmpItemB);
        }
    }
    connect(w, &QObject::destroyed, this, &GoodsShelf::slot_itemDestroyed, Qt::UniqueConnection);
    w->show();
    updateUI();
    return 0;
}

int GoodsShelf::unRegisterItem(int index)
{
    QWidget* taken = nullptr;
    {
        QMutexLocker locker(&m_mutex);
        if (!m_items.contains(index)) {
            BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[GoodsShelf] the w does not exist.");
            return -1;
        }
        taken = m_items.take(index);
    }
    if (taken) {
        disconnect(taken, &QObject::destroyed, this, &GoodsShelf::slot_itemDestroyed);
        m_pGridLayout->removeWidget(taken);
        if (taken->parentWidget() == this) {
            taken->hide();
            taken->setParent(nullptr);
        }
    }
    updateUI();
    return 0;
}

void GoodsShelf::updateUI()
{
    basegui::Common::clearGridLayout(m_pGridLayout);
    QList<QWidget*> placed = items();
    // A filler already handed to deleteLater() is still placed; it drops out
    // of the grid by itself once it is destroyed.
    for (TmpItem* filler : {m_pTmpItemA.data(), m_pTmpItemB.data()}) {
        if (filler)
            placed.append(filler);
    }
    int k = 0;
    for (QWidget* w : placed) {
        m_pGridLayout->addWidget(w, k / kColumns, k % kColumns, 1, 1, Qt::AlignLeft | Qt::AlignTop);
        w->show();
        ++k;
    }
    setVisible(k != 0);
    // Whole rows only: four or five tiles still give the height of one row.
    setFixedHeight((k / kColumns) * kTileHeight);
}

QList<QWidget*> GoodsShelf::items() const
{
    QMutexLocker locker(&m_mutex);
    return m_items.values();
}

int GoodsShelf::fillerCount() const
{
    return (m_pTmpItemA ? 1 : 0) + (m_pTmpItemB ? 1 : 0);
}

TmpItem* GoodsShelf::createFiller(QPointer<TmpItem>& slot)
{
    if (!slot)
        slot = new TmpItem(this);
    return slot;
}

void GoodsShelf::dropFiller(QPointer<TmpItem>& slot)
{
    if (slot)
        slot->deleteLater();
}

void GoodsShelf::slot_itemDestroyed()
{
    // The tile is gone; relay the shelf out once its destruction is over.
    QMetaObject::invokeMethod(this, [this]() { updateUI(); }, Qt::QueuedConnection);
}
