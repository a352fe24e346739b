#pragma once

#include "basegui_global.h"
#include "navigateitemwidget.h"
#include "objectguard.h"

#include <QList>
#include <QPointer>
#include <QVariant>

class SettingSubItemWidget;
class QPushButton;
class QVBoxLayout;

// A page of the settings centre: rows (SettingSubItemWidget) stacked in a
// column, and a save button. Saving passes the page data through every row and
// stores the result through m_pfSetSettingData.
class BASEGUI_EXPORT SettingItemWidget : public NavigateItemWidget
{
    Q_OBJECT
public:
    using SetSettingDataFn = bool (*)(QVariant data);
    // Installed by the settings centre; null until then (saving then fails).
    static SetSettingDataFn m_pfSetSettingData;

    explicit SettingItemWidget(QWidget* parent = nullptr);
    ~SettingItemWidget() override;

    virtual bool isInheritedControls();
    // Adds a row at the end (-1 for null or a row already there); 0 on success.
    virtual int registerItem(SettingSubItemWidget* item);
    // Takes a row out (detached, hidden, not deleted); -1 if unknown.
    virtual int unRegisterItem(SettingSubItemWidget* item);
    QList<SettingSubItemWidget*> items() const;

    // The record the rows fill on save (e.g. a QVariant holding a settings struct).
    void setPageData(QVariant const& data);
    QVariant pageData() const;
    // A page-specific layout hint: the minimum height of the rows column, so a
    // short page keeps its rows at the top and the save button at the bottom
    // (200 for the general page).
    void setIntProperty(int value);
    int intProperty() const;
    // The save button ("保存", a CQButton).
    QPushButton* saveButton() const;

public slots:
    // Reloads every row.
    virtual bool slot_updatePageInfo();
    // Passes the page data through every row, then stores it with m_pfSetSettingData.
    virtual bool slot_savePageInfo();
    // True when every row shows what is stored.
    virtual bool slot_isSavedPageInfo();

signals:
    // The save button was pressed; the argument is the button.
    void sig_save(QObject* button);

private:
    bool collectAndStore(QList<ObjectGuard<SettingSubItemWidget>> const& rows, QVariant& data, QString const& name);

    struct Private;
    Private* d;
};
