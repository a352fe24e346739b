#pragma once

#include "basegui_global.h"

#include <QFrame>
#include <QMap>
#include <QPointer>

class QLabel;

// A home-page card: title at the top left, a state tag at the top right, and
// blocks registered under keys laid out in a row below; end() finishes the
// building and lays the blocks out.
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
    int registerItem(QWidget* w, int key);
    void end();

private:
    struct Private;
    Private* d;
};
