#include "homePageWidget.h"
#include "homePageWidget_p.h"

#include "basegui_common.h"
#include "cardsWin.h"
#include "clogdebug.h"
#include "cqlabel.h"
#include "dravoguiconfig.h"

#include <QVBoxLayout>

namespace {

char const* const kModule = "plugins/base/core/homePageWidget";
char const* const kGuardDaysName = "CumulativeGuardDays";
char const* const kEngineStatusName = "engineStatusWidget";

} // namespace

HomePageWidget::HomePageWidget(QWidget* parent)
    : NavigateItemWidget(parent)
    , d_ptr(new HomePageWidgetPrivate(this))
{
    d_ptr->InitUI();
    updateTitle(QString::fromUtf8("安全守护每一刻"));
}

HomePageWidget::~HomePageWidget()
{
    delete d_ptr;
    d_ptr = nullptr;
}

QString HomePageWidget::getBarName()
{
    return QString::fromUtf8("安全总览");
}

QString HomePageWidget::getSelectedIcon()
{
    return QStringLiteral(":/img/home_selected.png");
}

QString HomePageWidget::getUnselectedIcon()
{
    return QStringLiteral(":/img/home.png");
}

int HomePageWidget::registerItem(sPluginRegisterItem item)
{
    auto const it = m_mapItems.constFind(item.index);
    // A row whose owner has deleted its widget no longer holds the key.
    if (it != m_mapItems.constEnd() && !it->gone())
        return -1;
    QWidget* const w = basegui::Common::liveWidgetAt(item.object);
    if (basegui::Common::refusesOwnAncestor(this, w, "HomePageWidget"))
        return -1;
    m_mapItems.insert(item.index, Row{item, QPointer<QWidget>(w), w != nullptr});
    resetUI();
    return 0;
}

int HomePageWidget::unRegisterItem(int key)
{
    if (!m_mapItems.contains(key))
        return -1;
    m_mapItems.remove(key);
    resetUI();
    return 0;
}

int HomePageWidget::registerItem2DataArea(sPluginRegisterItem item)
{
    QWidget* w = basegui::Common::liveWidgetAt(item.object);
    CQLabel* area = d_ptr->m_pWinDataArea;
    if (!w || basegui::Common::refusesOwnAncestor(area, w, "HomePageWidget"))
        return -1;
    // The engine status widget of the antivirus plugin replaces the fallback
    // day counter, never the other way round.
    QString const newName = w->objectName();
    for (QWidget* child : area->findChildren<QWidget*>()) {
        QString const childName = child->objectName();
        if (childName == QLatin1String(kGuardDaysName) && newName == QLatin1String(kEngineStatusName)) {
            child->setParent(nullptr);
            child->deleteLater();
            break;
        }
        if (childName == QLatin1String(kEngineStatusName) && newName == QLatin1String(kGuardDaysName))
            return -1;
    }
    if (w->parentWidget() != area)
        w->setParent(area);
    w->move(item.extra.toPoint());
    w->show();
    return 0;
}

int HomePageWidget::registerItem2CardArea(sPluginRegisterItem item)
{
    d_ptr->m_pCardsWin->registerItem(basegui::Common::liveWidgetAt(item.object), item.index);
    return 0;
}

int HomePageWidget::unRegisterItem2CardArea(int key)
{
    d_ptr->m_pCardsWin->unRegisterItem(key);
    return 0;
}

void HomePageWidget::updateTitle(QString const& text)
{
    CQLabel* label = d_ptr->m_pLabelTitle;
    if (!label)
        return;
    QString theme = QStringLiteral("default");
    int const ret = DravoGuiConfig::theme(theme);
    if (ret != 0)
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePlugin] get theme failed, ret is [%d]", ret);

    QString shown = text;
    if (theme != QLatin1String("default")) {
        QString content;
        int const retContent = DravoGuiConfig::homePageContent(content);
        if (retContent != 0)
            BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[HomePageWidget] get icon failed, ret is [%d]", retContent);
        content = content.trimmed();
        if (!content.isEmpty())
            shown = content;
    }
    label->setStyleSheet(HomePageWidgetPrivate::titleStyle(44));
    label->setText(shown);
}

void HomePageWidget::resetUI()
{
    basegui::Common::clearLayout(m_pLayout, false);
    for (auto it = m_mapItems.begin(); it != m_mapItems.end();) {
        if (it->gone()) {
            it = m_mapItems.erase(it);   // deleted by its owner: the row is gone
            continue;
        }
        QWidget* w = it->widget.data();
        if (!w) {
            BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[HomePageWidget] w is null");
        } else {
            m_pLayout->addSpacing(it->item.extra.toInt());
            m_pLayout->addWidget(w, 0, Qt::AlignTop | Qt::AlignHCenter);
            w->show();
        }
        ++it;
    }
    m_pLayout->addStretch(0);
}

bool HomePageWidget::hasItem(int key) const
{
    return m_mapItems.contains(key);
}

CQLabel* HomePageWidget::titleLabel() const
{
    return d_ptr->m_pLabelTitle;
}

CQLabel* HomePageWidget::dataArea() const
{
    return d_ptr->m_pWinDataArea;
}

CardsWin* HomePageWidget::cardsWin() const
{
    return d_ptr->m_pCardsWin;
}
