#pragma once

#include "basegui_global.h"

#include <QPushButton>

// The kit's push button: a kind (look), a font size and weight, a count-down
// shown as "text (Ns)" that emits sig_time_is_zero() when it runs out, and a
// loading state with a turning spinner in place of the icon.
class BASEGUI_EXPORT CQButton : public QPushButton
{
    Q_OBJECT
public:
    enum eKind {
        KIND_PRIMARY = 0,     // accent fill, white text
        KIND_LIGHT = 1,       // light accent fill, accent text
        KIND_SECONDARY = 2,   // white with a grey border, dark text
        KIND_DANGER = 3       // red fill, white text
    };

    explicit CQButton(QWidget* parent = nullptr);
    CQButton(int kind, int fontSize, int fontWeight, QWidget* parent = nullptr);
    CQButton(QString const& text, int kind, int fontSize = 14, int fontWeight = 400, QWidget* parent = nullptr);
    ~CQButton() override;

    // An unknown kind falls back to KIND_PRIMARY (logged).
    void setParas(int kind, int fontSize, int fontWeight);
    void setKind(int kind);
    int kind() const;
    void setFontSize(int pixelSize);
    int fontSize() const;
    void setFontWeight(int weight);
    int fontWeight() const;

    // Shows "text (Ns)"; with `start` it counts down once a second and emits
    // sig_time_is_zero() on reaching 0, the plain text back in place. seconds <= 0
    // stops any count-down. A caption set with setText() during a count-down is
    // kept as the new text.
    void setTime(int seconds, bool start);
    void startTime();
    void stopTime();
    int remainingTime() const;
    bool isCounting() const;
    // The caption without the count-down suffix.
    QString plainText() const;

    // Loading state: a spinner of `iconSize` pixels turning `step` degrees per
    // frame replaces the icon and `text` the caption, until stopLoadingStatus().
    void startLoadingStatus(int iconSize, QString const& text, int step);
    void stopLoadingStatus();
    bool isLoading() const;

signals:
    void sig_time_is_zero();
    void sig_time_changed(int seconds);

private:
    struct Private;
    Private* d;
};
