#include "navigatewidget.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "navigateitemwidget.h"
#include "objectguard.h"

#include <QButtonGroup>
#include <QIcon>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

char const* const kModule = "platform/basegui/navigatewidget";

char const* const kBarStyle =
    "#m_pWinNavigateBar{background:transparent;border:none;}"
    "#m_pWinNavigateBottom{background:transparent;border:none;}"
    "QPushButton#m_pBtnNavigate{border:none;border-radius:6px;background:transparent;"
    "color:#333444;font-family:\"Noto Sans CJK SC\";font-size:14px;text-align:left;padding-left:16px;}"
    "QPushButton#m_pBtnNavigate:hover{background:#EBF3FF;}"
    "QPushButton#m_pBtnNavigate:checked{background:#356DEE;color:#FFFFFF;}";

constexpr int kButtonWidth = 132;
constexpr int kButtonHeight = 40;

} // namespace

struct NavigateWidget::Private
{
    struct Entry
    {
        NavigateItemWidget* raw = nullptr;   // identity only; never dereferenced
        QPointer<NavigateItemWidget> page;
        QPushButton* button = nullptr;
        QString barName;
    };

    NavigateWidget* q = nullptr;
    QWidget* bar = nullptr;
    QVBoxLayout* barLayout = nullptr;
    QWidget* bottom = nullptr;
    QStackedWidget* stack = nullptr;
    QButtonGroup* group = nullptr;
    QList<Entry> entries;
    ObjectGuard<NavigateItemWidget> current;
    ChangeItemJudge judge;

    void InitUI(int height);
    int find(QObject const* page) const;
    QPushButton* createButton(NavigateItemWidget* item);
    void syncButtons();
    void apply(NavigateItemWidget* to);
    bool askSwitch(NavigateItemWidget* from, NavigateItemWidget* to);
    void takeEntry(int index);
    void slot_pageDestroyed(QObject* page);
};

void NavigateWidget::Private::InitUI(int height)
{
    q->setFixedSize(BarWidth + PageAreaWidth, height);
    q->setStyleSheet(kBarStyle);

    bar = new QWidget(q);
    bar->setObjectName("m_pWinNavigateBar");
    bar->setAttribute(Qt::WA_StyledBackground);
    bar->setGeometry(0, 0, BarWidth, height);
    barLayout = new QVBoxLayout(bar);
    barLayout->setContentsMargins(8, 12, 8, BottomHeight);
    barLayout->setSpacing(4);
    barLayout->addStretch(1);

    bottom = new QWidget(bar);
    bottom->setObjectName("m_pWinNavigateBottom");
    bottom->setGeometry(0, height - BottomHeight, BarWidth, BottomHeight);

    stack = new QStackedWidget(q);
    stack->setObjectName("m_pStackedWidget");
    stack->setGeometry(BarWidth, 0, PageAreaWidth, height);

    group = new QButtonGroup(q);
    group->setExclusive(true);
}

int NavigateWidget::Private::find(QObject const* page) const
{
    if (!page)
        return -1;
    for (int i = 0; i < entries.size(); ++i) {
        if (static_cast<QObject const*>(entries.at(i).raw) == page)
            return i;
    }
    return -1;
}

QPushButton* NavigateWidget::Private::createButton(NavigateItemWidget* item)
{
    auto* button = new QPushButton(item->getBarName(), bar);
    button->setObjectName("m_pBtnNavigate");
    button->setCheckable(true);
    button->setFixedSize(kButtonWidth, kButtonHeight);
    button->setCursor(Qt::PointingHandCursor);
    button->setFocusPolicy(Qt::NoFocus);

    QString const selected = item->getSelectedIcon();
    QString const unselected = item->getUnselectedIcon();
    if (!selected.isEmpty() || !unselected.isEmpty()) {
        QIcon icon;
        icon.addFile(unselected.isEmpty() ? selected : unselected, QSize(), QIcon::Normal, QIcon::Off);
        icon.addFile(selected.isEmpty() ? unselected : selected, QSize(), QIcon::Normal, QIcon::On);
        button->setIcon(icon);
        button->setIconSize(QSize(20, 20));
    }
    group->addButton(button);
    barLayout->insertWidget(entries.size(), button, 0, Qt::AlignHCenter);

    QPointer<NavigateItemWidget> target(item);
    QObject::connect(button, &QPushButton::clicked, q, [this, target]() {
        if (target)
            q->setCurrentItem(target);
        syncButtons();
    });
    return button;
}

// The exclusive group checks a clicked button before anyone could veto the
// switch, so the buttons are always re-derived from the current page.
void NavigateWidget::Private::syncButtons()
{
    int const index = find(current.object());
    if (index < 0) {
        group->setExclusive(false);
        for (auto const& e : entries)
            e.button->setChecked(false);
        group->setExclusive(true);
        return;
    }
    entries.at(index).button->setChecked(true);
}

void NavigateWidget::Private::apply(NavigateItemWidget* to)
{
    current = to;
    if (to)
        stack->setCurrentWidget(to);
    syncButtons();
    int const index = find(to);
    emit q->sig_currentChanged(index);
    if (index >= 0)
        emit q->sig_currentBtnChanged(entries.at(index).barName);
}

bool NavigateWidget::Private::askSwitch(NavigateItemWidget* from, NavigateItemWidget* to)
{
    QPointer<NavigateItemWidget> guardFrom(from);
    QPointer<NavigateItemWidget> guardTo(to);
    if (judge && !judge(from, to)) {
        BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] change item vetoed by judge");
        return false;
    }
    // The judge may run a nested event loop (a modal question) during which
    // either page can be deleted.
    if (!guardTo)
        return false;
    if (!to->preShowEvent()) {
        BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] preShowEvent vetoed the change");
        return false;
    }
    if (guardFrom && !guardFrom->preHideEvent()) {
        BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] preHideEvent vetoed the change");
        return false;
    }
    return guardTo != nullptr;
}

void NavigateWidget::Private::takeEntry(int index)
{
    Entry const e = entries.takeAt(index);
    group->removeButton(e.button);
    e.button->hide();
    // The button may be the sender of the click that led here.
    e.button->deleteLater();

    if (!current.is(e.raw) && !current.isNull())
        return;
    NavigateItemWidget* next = nullptr;
    if (!entries.isEmpty())
        next = entries.at(qMin(index, entries.size() - 1)).page;
    apply(next);
}

void NavigateWidget::Private::slot_pageDestroyed(QObject* page)
{
    int const index = find(page);
    if (index < 0)
        return;
    BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] page [%s] destroyed, dropped",
                qUtf8Printable(entries.at(index).barName));
    takeEntry(index);
}

NavigateWidget::NavigateWidget(int height, QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
    d->q = this;
    if (height <= BottomHeight) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] height %d too small, use 534", height);
        height = 534;
    }
    d->InitUI(height);
}

NavigateWidget::~NavigateWidget()
{
    for (auto const& e : d->entries) {
        if (!e.page)
            continue;
        disconnect(e.page, nullptr, this, nullptr);
        d->stack->removeWidget(e.page);
        e.page->hide();
        e.page->setParent(nullptr);
    }
    delete d;
    d = nullptr;
}

void NavigateWidget::setChangeItemJudgeInfo(ChangeItemJudge judge)
{
    d->judge = std::move(judge);
}

int NavigateWidget::addItem(NavigateItemWidget* item)
{
    if (!item) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] item is null, not add.");
        return -1;
    }
    if (basegui::Common::refusesOwnAncestor(this, item, "NavigateWidget"))
        return -1;
    if (d->find(item) >= 0) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] item [%s] already added, not add.",
                    qUtf8Printable(item->getBarName()));
        return -1;
    }
    Private::Entry e;
    e.raw = item;
    e.page = item;
    e.barName = item->getBarName();
    e.button = d->createButton(item);
    d->entries.append(e);
    d->stack->addWidget(item);
    connect(item, &QObject::destroyed, this, [this](QObject* o) { d->slot_pageDestroyed(o); });

    if (!d->current)
        d->apply(item);
    return 0;
}

int NavigateWidget::removeItem(NavigateItemWidget* item)
{
    int const index = d->find(item);
    if (index < 0) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] item not found, not remove.");
        return -1;
    }
    disconnect(item, nullptr, this, nullptr);
    d->stack->removeWidget(item);
    item->hide();
    item->setParent(nullptr);
    d->takeEntry(index);
    return 0;
}

void NavigateWidget::addBottomWidget(QWidget* w)
{
    if (!w) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] bottom widget is null");
        return;
    }
    if (basegui::Common::refusesOwnAncestor(d->bottom, w, "NavigateWidget"))
        return;
    QPoint const pos = w->pos();
    w->setParent(d->bottom);
    w->move(pos);
    w->show();
}

QWidget* NavigateWidget::bottomArea() const
{
    return d->bottom;
}

int NavigateWidget::count() const
{
    return d->entries.size();
}

QStringList NavigateWidget::names() const
{
    QStringList list;
    for (auto const& e : d->entries)
        list << e.barName;
    return list;
}

NavigateItemWidget* NavigateWidget::widget(QString const& name) const
{
    if (name.isEmpty())
        return nullptr;
    using Key = std::function<QString(Private::Entry const&)>;
    Key const keys[] = {
        [](Private::Entry const& e) { return e.barName; },
        [](Private::Entry const& e) { return e.page->getBarObject(); },
        [](Private::Entry const& e) { return e.page->objectName(); },
    };
    for (auto const& key : keys) {
        for (auto const& e : d->entries) {
            if (e.page && key(e) == name)
                return e.page;
        }
    }
    return nullptr;
}

NavigateItemWidget* NavigateWidget::currentItem() const
{
    return d->current;
}

bool NavigateWidget::setCurrentItem(NavigateItemWidget* item)
{
    if (d->find(item) < 0) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[NavigateWidget] item not found, not switch.");
        return false;
    }
    if (item == d->current)
        return true;
    QPointer<NavigateItemWidget> from = d->current.data();
    if (!d->askSwitch(from, item)) {
        d->syncButtons();
        return false;
    }
    d->apply(item);
    if (from)
        from->postHideEvent();
    if (d->current == item)
        item->postShowEvent();
    return d->current == item;
}

bool NavigateWidget::setCurrentWinByObjName(QString const& objName)
{
    if (objName.isEmpty())
        return false;
    for (auto const& e : d->entries) {
        if (e.page && e.page->objectName() == objName) {
            setCurrentItem(e.page);
            return true;
        }
    }
    return false;
}

bool NavigateWidget::gotoChildObject(QString const& name)
{
    return setCurrentWinByObjName(name);
}

int NavigateWidget::indexOf(NavigateItemWidget* item) const
{
    return d->find(item);
}

NavigateItemWidget* NavigateWidget::item(int index) const
{
    if (index < 0 || index >= d->entries.size())
        return nullptr;
    return d->entries.at(index).page;
}

int NavigateWidget::currentIndex() const
{
    return d->find(d->current.object());
}

bool NavigateWidget::setCurrentIndex(int index)
{
    NavigateItemWidget* page = item(index);
    return page && setCurrentItem(page);
}

bool NavigateWidget::forceCurrentItem(NavigateItemWidget* item)
{
    if (d->find(item) < 0)
        return false;
    if (item != d->current)
        d->apply(item);
    return true;
}

QAbstractButton* NavigateWidget::itemButton(NavigateItemWidget* item) const
{
    int const index = d->find(item);
    return index < 0 ? nullptr : d->entries.at(index).button;
}
