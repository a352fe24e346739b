#include "sampleHomePageContributions.h"

#include "basecardwin.h"
#include "baseCmdDefine.h"
#include "cqbutton.h"
#include "sampleBus.h"
#include "sampleWidgets.h"
#include "submessagetipiteminterface.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

// The page's own rows are the title (10), the data area (20) and the card row
// (30); 25 puts the sample's row between data area and cards, with 8 pixels
// above it (the record's extra).
int const kRowKey = 25;
int const kRowSpaceAbove = 8;
int const kRowWidth = 772;
// The card row shows the four cards with the lowest keys; the frame's own
// version card sits at 1000, so 500 keeps the sample's card before it.
int const kCardKey = 500;
// The data area is 772 x 60 and places widgets where their record says.
QPoint const kDataAreaPos(560, 16);
// The message tip is 744 x 152 and shows one panel at a time.
QSize const kPanelSize(744, 152);

} // namespace

SampleHomePageContributions::SampleHomePageContributions(SampleBus& bus)
    : m_bus(bus)
{
}

SampleHomePageContributions::~SampleHomePageContributions()
{
    unmount();
}

void SampleHomePageContributions::mount()
{
    mountRow();
    mountCard();
    mountDataAreaWidget();
    mountMessagePanels();
}

// Rows and cards are taken out by key. The data area has no command to take a
// widget out: deleting it (dispose) is how it leaves.
void SampleHomePageContributions::unmount()
{
    if (SampleWidgets::isPlaced(m_pRow))
        m_bus.sendKey(BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE, kRowKey);
    if (SampleWidgets::isPlaced(m_pCard))
        m_bus.sendKey(BASEPLUGIN_CMD_UNREGISTER_CARDAREA, kCardKey);
    for (SubMessageTipItemInterface* panel : {m_pPanelA.data(), m_pPanelB.data()}) {
        if (panel)
            m_bus.sendPointer(BASEPLUGIN_CMDTYPE_DELITEM2MESSAGETIP, panel);
    }
    SampleWidgets::dispose(m_pRow);
    SampleWidgets::dispose(m_pCard);
    SampleWidgets::dispose(m_pDataAreaWidget);
    SampleWidgets::dispose(m_pPanelA);
    SampleWidgets::dispose(m_pPanelB);
}

void SampleHomePageContributions::mountRow()
{
    if (!m_pRow)
        m_pRow = SampleWidgets::plainLabel(QStringLiteral("SampleHomePageRow"),
                                           QString::fromUtf8("示例插件：首页的一行，由 BASEPLUGIN_CMD_REGISTER_HOMEPAGE 注册"),
                                           QSize(kRowWidth, 36));
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_HOMEPAGE, m_pRow, kRowKey, kRowSpaceAbove);
}

void SampleHomePageContributions::mountCard()
{
    if (!m_pCard) {
        // The kit styles a card by its object name ("BaseCardWin"): keep it.
        auto* card = new BaseCardWin();
        card->setTitle(QString::fromUtf8("示例卡片"));
        card->setStateWidget(SampleWidgets::plainLabel(QStringLiteral("SampleCardState"), QString::fromUtf8("示例"),
                                                       QSize(38, 18)));
        card->registerItem(SampleWidgets::plainLabel(QStringLiteral("SampleCardBlock"),
                                                     QString::fromUtf8("示例：卡片区"),
                                                     QSize(155, 60)),
                           0);
        card->end();
        m_pCard = card;
    }
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_CARDAREA, m_pCard, kCardKey);
}

void SampleHomePageContributions::mountDataAreaWidget()
{
    if (!m_pDataAreaWidget)
        m_pDataAreaWidget = SampleWidgets::plainLabel(QStringLiteral("SampleDataAreaWidget"),
                                                      QString::fromUtf8("示例：数据区"), QSize(180, 28));
    m_bus.sendRecord(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, m_pDataAreaWidget, 0, kDataAreaPos);
}

// Each panel's button asks the tip for the other panel; the tip ignores a
// request for a panel it does not hold.
void SampleHomePageContributions::mountMessagePanels()
{
    if (!m_pPanelA || !m_pPanelB) {
        SampleWidgets::dispose(m_pPanelA);
        SampleWidgets::dispose(m_pPanelB);
        m_pPanelA = createPanel(QStringLiteral("SampleMessagePanelA"),
                                QString::fromUtf8("示例插件：消息提示第一条，由 BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP 注册"));
        m_pPanelB = createPanel(QStringLiteral("SampleMessagePanelB"), QString::fromUtf8("示例插件：消息提示第二条"));
        linkPanels(m_pPanelA, m_pPanelB);
        linkPanels(m_pPanelB, m_pPanelA);
    }
    m_bus.sendPointer(BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP, m_pPanelA.data());
    m_bus.sendPointer(BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP, m_pPanelB.data());
}

// The frame may delete a panel it holds (with its own widget tree), so the
// other one is held by a guard; a null target is ignored by the tip.
void SampleHomePageContributions::linkPanels(SubMessageTipItemInterface* from, SubMessageTipItemInterface* to)
{
    QPointer<SubMessageTipItemInterface> const target(to);
    QObject::connect(from->findChild<CQButton*>(), &QPushButton::clicked, from,
                     [from, target]() { emit from->sig_changeWin(target.data()); });
}

SubMessageTipItemInterface* SampleHomePageContributions::createPanel(QString const& objectName, QString const& text)
{
    auto* panel = new SubMessageTipItemInterface();
    panel->setObjectName(objectName);
    panel->setFixedSize(kPanelSize);
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(SampleWidgets::plainLabel(objectName + QStringLiteral("_Label"), text, QSize(560, 80)));
    auto* next = new CQButton(QString::fromUtf8("下一条"), CQButton::KIND_LIGHT, 14, 400, panel);
    next->setObjectName(objectName + QStringLiteral("_Next"));
    next->setFixedSize(88, 32);
    layout->addWidget(next);
    return panel;
}
