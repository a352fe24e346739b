#include "settingitemwidget.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "settingsubitemwidget.h"

#include <algorithm>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
char const* const kModule = "platform/basegui/settingitemwidget";
}

SettingItemWidget::SetSettingDataFn SettingItemWidget::m_pfSetSettingData = nullptr;

struct SettingItemWidget::Private
{
    SettingItemWidget* q = nullptr;
    QWidget* rowsWin = nullptr;
    QVBoxLayout* rowsLayout = nullptr;
    CQButton* saveButton = nullptr;
    QList<ObjectGuard<SettingSubItemWidget>> rows;
    QVariant pageData;
    int intProperty = 0;

    void InitUI();
    QList<SettingSubItemWidget*> liveRows() const;
    int find(QObject const* row) const;
    void dropDeleted();
};

void SettingItemWidget::Private::InitUI()
{
    q->setAttribute(Qt::WA_StyledBackground);
    auto* main = new QVBoxLayout(q);
    main->setContentsMargins(40, 24, 40, 24);
    main->setSpacing(0);

    rowsWin = new QWidget(q);
    rowsWin->setObjectName("m_pWinRows");
    rowsLayout = new QVBoxLayout(rowsWin);
    rowsLayout->setContentsMargins(0, 0, 0, 0);
    rowsLayout->setSpacing(24);
    rowsLayout->addStretch(1);
    main->addWidget(rowsWin, 1);

    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(0, 16, 0, 0);
    bottom->addStretch(1);
    saveButton = new CQButton(QString::fromUtf8("保存"), CQButton::KIND_PRIMARY, 14, 400, q);
    saveButton->setObjectName("m_pBtnSave");
    saveButton->setFixedSize(88, 32);
    bottom->addWidget(saveButton);
    main->addLayout(bottom);

    QObject::connect(saveButton, &QPushButton::clicked, q, [this]() { emit q->sig_save(saveButton); });
}

QList<SettingSubItemWidget*> SettingItemWidget::Private::liveRows() const
{
    QList<SettingSubItemWidget*> list;
    for (auto const& row : rows) {
        if (row)
            list << row.data();
    }
    return list;
}

void SettingItemWidget::Private::dropDeleted()
{
    rows.erase(std::remove_if(rows.begin(), rows.end(), [](auto const& row) { return row.isNull(); }), rows.end());
}

int SettingItemWidget::Private::find(QObject const* row) const
{
    for (int i = 0; row && i < rows.size(); ++i) {
        if (rows.at(i).is(row))
            return i;
    }
    return -1;
}

SettingItemWidget::SettingItemWidget(QWidget* parent)
    : NavigateItemWidget(parent)
    , d(new Private)
{
    d->q = this;
    d->InitUI();
}

// Rows belong to whoever registered them: hand back the live ones.
SettingItemWidget::~SettingItemWidget()
{
    for (SettingSubItemWidget* row : d->liveRows()) {
        disconnect(row, nullptr, this, nullptr);
        row->hide();
        row->setParent(nullptr);
    }
    delete d;
    d = nullptr;
}

bool SettingItemWidget::isInheritedControls()
{
    return false;
}

int SettingItemWidget::registerItem(SettingSubItemWidget* item)
{
    if (!item) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[SettingItemWidget] item is null");
        return -1;
    }
    if (basegui::Common::refusesOwnAncestor(this, item, "SettingItemWidget"))
        return -1;
    if (d->find(item) >= 0) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[SettingItemWidget] item already registered");
        return -1;
    }
    d->dropDeleted();
    d->rows.append(item);
    // before the trailing stretch
    d->rowsLayout->insertWidget(d->rowsLayout->count() - 1, item);
    item->show();
    connect(item, &QObject::destroyed, this, [this](QObject* o) {
        int const index = d->find(o);
        if (index >= 0)
            d->rows.removeAt(index);
        d->dropDeleted();
    });
    return 0;
}

int SettingItemWidget::unRegisterItem(SettingSubItemWidget* item)
{
    int const index = d->find(item);
    if (index < 0) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[SettingItemWidget] item not found");
        return -1;
    }
    d->rows.removeAt(index);
    disconnect(item, nullptr, this, nullptr);
    d->rowsLayout->removeWidget(item);
    item->hide();
    item->setParent(nullptr);
    return 0;
}

QList<SettingSubItemWidget*> SettingItemWidget::items() const
{
    return d->liveRows();
}

void SettingItemWidget::setPageData(QVariant const& data)
{
    d->pageData = data;
}

QVariant SettingItemWidget::pageData() const
{
    return d->pageData;
}

void SettingItemWidget::setIntProperty(int value)
{
    d->intProperty = value;
    d->rowsWin->setMinimumHeight(qMax(0, value));
}

int SettingItemWidget::intProperty() const
{
    return d->intProperty;
}

QPushButton* SettingItemWidget::saveButton() const
{
    return d->saveButton;
}

// Rows are walked through guards: a row's reload or save may spin an event
// loop in which another row, or this page, is deleted.
bool SettingItemWidget::slot_updatePageInfo()
{
    bool ok = true;
    QList<ObjectGuard<SettingSubItemWidget>> const rows = d->rows;
    for (auto const& row : rows) {
        if (row)
            ok = row->slot_updatePageInfo() && ok;
    }
    return ok;
}

bool SettingItemWidget::slot_savePageInfo()
{
    QPointer<SettingItemWidget> const self(this);
    QString const name = getBarName();
    QVariant data = d->pageData;
    QList<ObjectGuard<SettingSubItemWidget>> const rows = d->rows;
    bool const stored = collectAndStore(rows, data, name);
    // The store spins an event loop: the page or a row may be gone by now.
    for (auto const& row : rows) {
        if (row)
            row->slot_saveFinished(stored);
    }
    if (stored && self)
        d->pageData = data;
    return stored;
}

bool SettingItemWidget::collectAndStore(QList<ObjectGuard<SettingSubItemWidget>> const& rows, QVariant& data,
                                        QString const& name)
{
    for (auto const& row : rows) {
        if (row && !row->slot_savePageInfo(data)) {
            BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[SettingItemWidget] %s: a row refused to save",
                        qUtf8Printable(name));
            return false;
        }
    }
    if (!m_pfSetSettingData) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[SettingItemWidget] m_pfSetSettingData is null, not save");
        return false;
    }
    if (!m_pfSetSettingData(data)) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[SettingItemWidget] %s: store failed",
                    qUtf8Printable(name));
        return false;
    }
    return true;
}

bool SettingItemWidget::slot_isSavedPageInfo()
{
    QList<ObjectGuard<SettingSubItemWidget>> const rows = d->rows;
    for (auto const& row : rows) {
        if (row && !row->slot_isSavedPageInfo())
            return false;
    }
    return true;
}
