#pragma once

#include "cqmainwindow.h"
#include "framelinkproxyinterface.h"

class SettingCentreWidgetPrivate;
class SettingItemWidget;
class NavigateItemWidget;

// The settings window: a title bar, the list of pages on the left and the
// current page on the right. Switching pages or hiding the window with unsaved
// edits asks first.
class SettingCentreWidget : public CQMainWindow, public FrameLinkProxyInterface
{
    Q_OBJECT
    friend class SettingCentreWidgetPrivate;

public:
    explicit SettingCentreWidget(QWidget* parent = nullptr);
    ~SettingCentreWidget() override;

    // False for null, a page without object name, or a key already present.
    bool addItem(SettingItemWidget* page);
    // By the page's bar name (or key); false if unknown.
    bool removeItem(QString const& key);
    SettingItemWidget* findItem(QString const& key) const;
    int itemCount() const;
    SettingItemWidget* currentItem() const;
    int currentIndex() const;

    bool gotoChildObject(QString const& name) override;

    // Show and hide with the pages' hooks: the hide is refused (false) when the
    // user keeps unsaved edits.
    bool tryHide();

    bool preShowEvent();
    void postShowEvent();
    bool preHideEvent();
    void postHideEvent();

    // 0 allows leaving the current page, all bits set vetoes it.
    int mutableCurrentWidget();

    // The settings-centre title: "<product> - 设置中心".
    static QString settingCentreName();

signals:
    void sig_close();

public slots:
    void slot_saveCurrentPage(QObject* button);
    void slot_currentChanged(int index);
    void slot_update_ui();

private:
    SettingCentreWidgetPrivate* d_ptr = nullptr;
};
