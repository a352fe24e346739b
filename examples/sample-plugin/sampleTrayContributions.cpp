#include "sampleTrayContributions.h"

#include "baseCmdDefine.h"
#include "cqmenuitem.h"
#include "sampleBus.h"
#include "sampleMainWindowContributions.h"
#include "sampleWidgets.h"

#include <QLabel>

namespace {

// The tray menu orders rows by key: the frame's title (-400), hint (-300),
// goods shelf (-200), settings (20) and quit (500). The sample's rows stand
// between settings and quit.
int const kStatusRowKey = 100;
int const kActionRowKey = 110;
// Shelf tiles are 87 x 65, three to a row, ordered by their own keys.
int const kGoodsKeyA = 10;
int const kGoodsKeyB = 11;
QSize const kTileSize(87, 65);
// The menu fixes every row at its width (268).
QSize const kStatusRowSize(268, 36);

} // namespace

SampleTrayContributions::SampleTrayContributions(SampleBus& bus)
    : m_bus(bus)
{
}

SampleTrayContributions::~SampleTrayContributions()
{
    unmount();
}

void SampleTrayContributions::mount()
{
    mountRows();
    mountGoods();
}

// Tray rows go out as they came in, widget and key, but the menu frees the key
// whoever holds it; goods tiles go by key alone.
void SampleTrayContributions::unmount()
{
    if (SampleWidgets::isPlaced(m_pStatusRow))
        m_bus.sendRecord(BASEPLUGIN_CMD_UNREGISTER_TRAY, m_pStatusRow, kStatusRowKey);
    if (SampleWidgets::isPlaced(m_pActionRow))
        m_bus.sendRecord(BASEPLUGIN_CMD_UNREGISTER_TRAY, m_pActionRow, kActionRowKey);
    if (SampleWidgets::isPlaced(m_pGoodsA))
        m_bus.sendKey(BASEPLUGIN_CMD_UNREGISTER_TRAY_GOODS, kGoodsKeyA);
    if (SampleWidgets::isPlaced(m_pGoodsB))
        m_bus.sendKey(BASEPLUGIN_CMD_UNREGISTER_TRAY_GOODS, kGoodsKeyB);
    SampleWidgets::dispose(m_pStatusRow);
    SampleWidgets::dispose(m_pActionRow);
    SampleWidgets::dispose(m_pGoodsA);
    SampleWidgets::dispose(m_pGoodsB);
}

void SampleTrayContributions::trayMenuOpening()
{
    ++m_nTrayShows;
    updateStatusText();
}

void SampleTrayContributions::mountRows()
{
    if (!m_pStatusRow) {
        m_pStatusRow = SampleWidgets::plainLabel(QStringLiteral("SampleTrayStatusRow"), QString(), kStatusRowSize);
        updateStatusText();
    }
    if (!m_pActionRow) {
        auto* row = new CQMenuItem(QString(), QString::fromUtf8("示例：打开示例页面"));
        row->setObjectName(QStringLiteral("SampleTrayActionRow"));
        QObject::connect(row, &CQMenuItem::sig_clicked, row, &SampleMainWindowContributions::openPage);
        m_pActionRow = row;
    }
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_TRAY, m_pStatusRow, kStatusRowKey);
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_TRAY, m_pActionRow, kActionRowKey);
}

void SampleTrayContributions::mountGoods()
{
    if (!m_pGoodsA)
        m_pGoodsA = SampleWidgets::plainLabel(QStringLiteral("SampleGoodsTileA"), QString::fromUtf8("示例货架 A"),
                                              kTileSize);
    if (!m_pGoodsB)
        m_pGoodsB = SampleWidgets::plainLabel(QStringLiteral("SampleGoodsTileB"), QString::fromUtf8("示例货架 B"),
                                              kTileSize);
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, m_pGoodsA, kGoodsKeyA);
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, m_pGoodsB, kGoodsKeyB);
}

void SampleTrayContributions::updateStatusText()
{
    if (m_pStatusRow)
        m_pStatusRow->setText(QString::fromUtf8("示例插件：托盘菜单行（已打开 %1 次）").arg(m_nTrayShows));
}
