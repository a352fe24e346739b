#include "homePageWidget_p.h"

#include "basegui_common.h"
#include "cardsWin.h"
#include "cqlabel.h"

#include <QVBoxLayout>

namespace {

int const kRowWidth = 772;

sPluginRegisterItem builtInRow(QWidget* w, int key, int spaceAbove)
{
    sPluginRegisterItem item;
    item.object = w;
    item.index = key;
    item.extra = spaceAbove;
    return item;
}

} // namespace

HomePageWidgetPrivate::HomePageWidgetPrivate(HomePageWidget* q)
    : q_ptr(q)
{
}

HomePageWidgetPrivate::~HomePageWidgetPrivate() = default;

void HomePageWidgetPrivate::InitUI()
{
    q_ptr->m_pLayout = new QVBoxLayout(q_ptr);
    q_ptr->m_pLayout->setSpacing(0);
    q_ptr->m_pLayout->setContentsMargins(40, 0, 40, 0);

    InitUIWindow();
    InitUITitle();
    InitUIDataArea();
    InitUICardArea();
}

void HomePageWidgetPrivate::InitUIWindow()
{
    q_ptr->setWindowFlags(q_ptr->windowFlags() | Qt::FramelessWindowHint);
    q_ptr->setFixedSize(852, 534);
    q_ptr->setObjectName(QStringLiteral("HomePageWidget"));
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/homePageWidget.qss")));
}

void HomePageWidgetPrivate::InitUITitle()
{
    m_pLabelTitle = new CQLabel(q_ptr);
    m_pLabelTitle->setObjectName(QStringLiteral("m_pLabelTitle"));
    m_pLabelTitle->setFixedSize(kRowWidth, 52);
    q_ptr->registerItem(builtInRow(m_pLabelTitle, 10, 30));
}

void HomePageWidgetPrivate::InitUIDataArea()
{
    m_pWinDataArea = new CQLabel(q_ptr);
    m_pWinDataArea->setObjectName(QStringLiteral("m_pWinDataArea"));
    m_pWinDataArea->setFixedSize(kRowWidth, 60);
    q_ptr->registerItem(builtInRow(m_pWinDataArea, 20, 12));
}

void HomePageWidgetPrivate::InitUICardArea()
{
    m_pCardsWin = new CardsWin(q_ptr);
    q_ptr->registerItem(builtInRow(m_pCardsWin, 30, 40));
}

QString HomePageWidgetPrivate::titleStyle(int px)
{
    return QStringLiteral("#m_pLabelTitle{font-family:Noto Sans CJK SC;font-size:%1px;color:#333444;font-weight: 500;}").arg(px);
}
