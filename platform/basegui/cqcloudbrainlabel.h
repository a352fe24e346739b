#pragma once

#include "basegui_global.h"

#include <QWidget>

class QPainter;

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

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void slot_updateDays(int days);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString countText() const;
    static void paintCloud(QPainter& painter, QRectF const& box);

    int m_days = -1;
};
