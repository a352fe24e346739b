#pragma once

#include "basegui_global.h"

#include <QLabel>

class BASEGUI_EXPORT CQLabel : public QLabel
{
    Q_OBJECT
public:
    explicit CQLabel(QWidget* parent = nullptr);
    explicit CQLabel(QString const& text, QWidget* parent = nullptr);
    ~CQLabel() override;

    // Shows `text` fitted to the label's current width: elided with `mode` when
    // too long, the full text then as tool tip. A null label is ignored.
    static void LabelWidthAdjustText(QLabel* label, QString const& text, Qt::TextElideMode mode = Qt::ElideRight);
    // Same, measured with a font of `fontPixelSize` pixels and `reserve` pixels
    // of the width kept free.
    static void TextWidthAdjustLabel(QLabel* label, int fontPixelSize, QString const& text, Qt::TextElideMode mode, int reserve);

    // The text last given to one of the fitting functions, before eliding.
    static QString fullText(QLabel const* label);

protected:
    // A CQLabel fitted once stays fitted when its width changes.
    void resizeEvent(QResizeEvent* event) override;

private:
    static void fitText(QLabel* label, QFont const& font, QString const& text, Qt::TextElideMode mode, int reserve);
    bool m_refitting = false;
};
