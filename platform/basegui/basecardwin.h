#pragma once

#include "basegui_global.h"

#include <QFrame>
#include <QMap>
#include <QPointer>

class QLabel;

// A home-page card (187 x 130, white, rounded): title at the top left, a state
// tag at the top right, and blocks registered under keys laid out below, left to
// right and wrapping onto the next line when a row is full; end() finishes the
// building and lays the blocks out (later changes relayout at once). The card
// is built by its subclass, so it takes the state widget and the blocks as its
// children.
class BASEGUI_EXPORT BaseCardWin : public QFrame
{
    Q_OBJECT
public:
    explicit BaseCardWin(QWidget* parent = nullptr);
    ~BaseCardWin() override;

    void setTitle(QString const& title);
    QString title() const;
    void setStateWidget(QWidget* w);
    // Blocks appear in descending key order from the left (8 before 4).
    // 0 on success; -1 for a null widget or a key already taken.
    int registerItem(QWidget* w, int key);
    void end();
    QWidget* stateWidget() const;

    static constexpr int CardWidth = 187;
    static constexpr int CardHeight = 130;

private:
    struct Private;
    Private* d;
};
