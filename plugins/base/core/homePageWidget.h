#pragma once

#include "navigateitemwidget.h"
#include "spluginregisteritem.h"

#include <QMap>
#include <QPointer>

class CardsWin;
class CQLabel;
class HomePageWidgetPrivate;
class QVBoxLayout;

// The first page of the main window ("安全总览"): a column of rows ordered by
// key (the title line at 10, the data area at 20, the card row at 30), into
// which other plugins add rows of their own through the command bus. Rows,
// data-area widgets and cards belong to whoever registered them.
class HomePageWidget : public NavigateItemWidget
{
    Q_OBJECT
    friend class HomePageWidgetPrivate;

public:
    explicit HomePageWidget(QWidget* parent = nullptr);
    ~HomePageWidget() override;

    QString getBarName() override;
    QString getSelectedIcon() override;
    QString getUnselectedIcon() override;

    // 0, or -1 if the key is taken (the first registration wins). The item's
    // extra is the space in pixels above the row.
    int registerItem(sPluginRegisterItem item);
    // 0, or -1 for an unknown key. The widget is neither hidden nor deleted.
    int unRegisterItem(int key);
    // Free-positioned widget at the QPoint in extra; 0, or -1 if refused.
    int registerItem2DataArea(sPluginRegisterItem item);
    int registerItem2CardArea(sPluginRegisterItem item);
    int unRegisterItem2CardArea(int key);
    void updateTitle(QString const& text);
    void resetUI();

    bool hasItem(int key) const;
    CQLabel* titleLabel() const;
    CQLabel* dataArea() const;
    CardsWin* cardsWin() const;

private:
    // The record as registered. A row that was a live widget keeps a guard,
    // since owners delete their rows whenever they like; any other object is
    // only an address (it may be stale or made up) and is never touched.
    struct Row {
        sPluginRegisterItem item;
        QPointer<QWidget> widget;
        bool wasWidget = false;
        bool gone() const { return wasWidget && widget.isNull(); }
    };

    QVBoxLayout* m_pLayout = nullptr;
    QMap<int, Row> m_mapItems;
    HomePageWidgetPrivate* d_ptr = nullptr;
};
