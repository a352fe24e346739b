#pragma once

#include "basegui_global.h"

#include <QFrame>

// Plain frame of the kit; styled by object name through style sheets.
class BASEGUI_EXPORT CQFrame : public QFrame
{
    Q_OBJECT
public:
    explicit CQFrame(QWidget* parent = nullptr);
    ~CQFrame() override;
};
