#pragma once

#include "settingitemwidget.h"

#include <QPointer>

// The sample's page in the settings centre. The centre adds pages under
// getBarObject() but takes them out again by getBarName(), so both must stay
// the same for the page's whole life.
class SampleSettingPage : public SettingItemWidget
{
    Q_OBJECT
public:
    explicit SampleSettingPage(QWidget* parent = nullptr);
    ~SampleSettingPage() override;

    QString getBarName() override;
    QString getBarObject() override;

    // A plain-label row, the shape of every row the sample contributes.
    static SettingSubItemWidget* createRow(QString const& objectName, QString const& text);

public slots:
    bool slot_savePageInfo() override;

private:
    // A page hands its rows back instead of deleting them.
    QPointer<SettingSubItemWidget> m_pRow;
};
