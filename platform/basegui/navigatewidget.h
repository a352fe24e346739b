#pragma once

#include "basegui_global.h"
#include "framelinkproxyinterface.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <functional>

class NavigateItemWidget;
class QAbstractButton;
class QStackedWidget;
class QVBoxLayout;

// Navigation: a column of page buttons (148 wide) with a bottom area at its foot,
// and the page stack beside it.
//
// Geometry: the widget is fixed at (148 + 852) x height. The column is 148 x height
// and transparent, so the parent's background shows through; its foot holds the
// bottom area (148 x 42 at y = height - 42). The page area is 852 x height at
// x = 148. The main window uses height 534 (1000 x 534 below its 46-high title);
// the settings centre builds it with 680 and limits its pages to 784 x 575.
//
// Pages are never owned: removeItem() and the destructor hand every page back
// detached and hidden; a page deleted by its owner simply drops out.
class BASEGUI_EXPORT NavigateWidget : public QWidget, public FrameLinkProxyInterface
{
    Q_OBJECT
public:
    static constexpr int BarWidth = 148;
    static constexpr int PageAreaWidth = 852;
    static constexpr int BottomHeight = 42;

    // `height` is the height of the whole navigation (column and pages).
    explicit NavigateWidget(int height = 534, QWidget* parent = nullptr);
    ~NavigateWidget() override;

    // Asked before every change of the current page: false keeps the old one.
    // `from` is null when no page is current yet.
    using ChangeItemJudge = std::function<bool(NavigateItemWidget* from, NavigateItemWidget* to)>;
    void setChangeItemJudgeInfo(ChangeItemJudge judge);

    // 0 on success; -1 for a null item or one already added. The first added
    // page becomes current (without asking the judge or the hooks).
    int addItem(NavigateItemWidget* item);
    // 0 on success, -1 if unknown. The page is detached and hidden, not deleted.
    // If it was current, its neighbour becomes current without asking.
    int removeItem(NavigateItemWidget* item);
    // A widget placed at the foot of the button column (it keeps its own geometry).
    void addBottomWidget(QWidget* w);
    QWidget* bottomArea() const;

    int count() const;
    QStringList names() const;                       // bar names, in button order
    // By bar name; failing that by getBarObject(), then by object name. Null for "".
    NavigateItemWidget* widget(QString const& name) const;
    NavigateItemWidget* currentItem() const;
    // Switches with the full protocol: judge, new page's preShowEvent, old page's
    // preHideEvent (any false vetoes), then postHideEvent / postShowEvent and the
    // change signals. True if `item` is current afterwards.
    bool setCurrentItem(NavigateItemWidget* item);
    // Makes the page whose object name is `objName` current; false if there is
    // no such page (a page that is found but vetoed still returns true).
    bool setCurrentWinByObjName(QString const& objName);

    bool gotoChildObject(QString const& name) override;

    // Index-based access, in button order.
    int indexOf(NavigateItemWidget* item) const;
    NavigateItemWidget* item(int index) const;
    int currentIndex() const;
    bool setCurrentIndex(int index);
    // Shows `item` without asking the judge and without calling the hooks, for
    // owners that run their own switching protocol; emits the change signals.
    bool forceCurrentItem(NavigateItemWidget* item);
    // The button of a page (null if unknown).
    QAbstractButton* itemButton(NavigateItemWidget* item) const;

signals:
    // The bar name of the page that has just become current.
    void sig_currentBtnChanged(QString name);
    // The index of the page that has just become current (-1: none left).
    void sig_currentChanged(int index);

private:
    struct Private;
    Private* d;
};
