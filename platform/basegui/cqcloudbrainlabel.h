#pragma once

#include "basegui_global.h"

#include <QWidget>

// Title-bar counter of the days under cloud-brain protection; a negative
// count shows as "--".
class BASEGUI_EXPORT CQCloudBrainLabel : public QWidget
{
    Q_OBJECT
public:
    explicit CQCloudBrainLabel(int days = -1, QWidget* parent = nullptr);
    ~CQCloudBrainLabel() override;

    int days() const;
    QString displayText() const;

public slots:
    void slot_updateDays(int days);
};
