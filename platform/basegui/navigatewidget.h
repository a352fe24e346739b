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
class BASEGUI_EXPORT NavigateWidget : public QWidget, public FrameLinkProxyInterface
{
    Q_OBJECT
public:
    // `height` is the height of the whole navigation (column and pages).
    explicit NavigateWidget(int height = 534, QWidget* parent = nullptr);
    ~NavigateWidget() override;

    // Asked before every change of the current page: false keeps the old one.
    using ChangeItemJudge = std::function<bool(NavigateItemWidget* from, NavigateItemWidget* to)>;
    void setChangeItemJudgeInfo(ChangeItemJudge judge);

    // 0 on success; -1 for a null item or one already added. The first added
    // page becomes current.
    int addItem(NavigateItemWidget* item);
    // 0 on success, -1 if unknown. The page is detached and hidden, not deleted.
    int removeItem(NavigateItemWidget* item);
    // A widget placed at the foot of the button column (it keeps its own geometry).
    void addBottomWidget(QWidget* w);
    QWidget* bottomArea() const;

    int count() const;
    QStringList names() const;                       // bar names, in button order
    NavigateItemWidget* widget(QString const& name) const;   // by bar name
    NavigateItemWidget* currentItem() const;
    bool setCurrentItem(NavigateItemWidget* item);
    // Makes the page whose object name is `objName` current; false if none.
    bool setCurrentWinByObjName(QString const& objName);

    bool gotoChildObject(QString const& name) override;

signals:
    // The bar name of the page that has just become current.
    void sig_currentBtnChanged(QString name);

private:
    struct Private;
    Private* d;
};
