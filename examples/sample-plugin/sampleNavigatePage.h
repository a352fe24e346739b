#pragma once

#include "navigateitemwidget.h"

class QVBoxLayout;

// A page of the main window's navigation. The navigation shows getBarName()
// on the page's button and finds the page by getBarObject() (here the object
// name), which is also the name FrameLinkProxy::gotoPageByObjName takes.
class SampleNavigatePage : public NavigateItemWidget
{
    Q_OBJECT
public:
    SampleNavigatePage(QString const& objectName, QString const& barName, QString const& description,
                       QWidget* parent = nullptr);
    ~SampleNavigatePage() override;

    QString getBarName() override;

    // Puts `w` below the description, as the page's content; the page owns it.
    void addContent(QWidget* w);

private:
    QString m_barName;
    QVBoxLayout* m_pLayout = nullptr;
};
