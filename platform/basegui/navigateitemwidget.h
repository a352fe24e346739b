#pragma once

#include "basegui_global.h"

#include <QString>
#include <QWidget>

// A page of a NavigateWidget. The navigation shows getBarName() on the page's
// button and switches pages through the show/hide hooks.
class BASEGUI_EXPORT NavigateItemWidget : public QWidget
{
    Q_OBJECT
public:
    explicit NavigateItemWidget(QWidget* parent = nullptr);
    ~NavigateItemWidget() override;

    // Called before the page becomes current / stops being current; returning
    // false from a pre-hook vetoes the change.
    virtual bool preShowEvent();
    virtual void postShowEvent();
    virtual bool preHideEvent();
    virtual void postHideEvent();

    virtual QString getBarName();        // button text; default: the object name
    virtual QString getSelectedIcon();   // resource path of the button icon when current
    virtual QString getUnselectedIcon();
    virtual int getUIType();
    virtual QString getBarObject();      // key of the page; default: the object name
};
