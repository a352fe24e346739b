#pragma once

#include "basegui_global.h"

#include <QPushButton>

// The title-bar buttons. Style value 1 is the small dark-on-light look used on
// the light title bars; 0 the light-on-accent look of prompt windows.
class BASEGUI_EXPORT CQTitleButton : public QPushButton
{
    Q_OBJECT
public:
    CQTitleButton(QString const& objectName, QString const& iconBase, int style, QWidget* parent);
    int style() const;
};

class BASEGUI_EXPORT CQDropDownBtn : public CQTitleButton
{
    Q_OBJECT
public:
    explicit CQDropDownBtn(int style = 1, QWidget* parent = nullptr);
};

class BASEGUI_EXPORT CQMinBtn : public CQTitleButton
{
    Q_OBJECT
public:
    explicit CQMinBtn(int style = 1, QWidget* parent = nullptr);
};

class BASEGUI_EXPORT CQCloseBtn : public CQTitleButton
{
    Q_OBJECT
public:
    explicit CQCloseBtn(int style = 1, QWidget* parent = nullptr);
};
