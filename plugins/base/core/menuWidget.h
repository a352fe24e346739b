#pragma once

#include "cqframe.h"
#include "keyedWidgetMap.h"

#include <QList>
#include <QMutex>

class QVBoxLayout;

// The tray menu: a frameless pop-up into which plugins put widgets of their own
// under an integer index that fixes their place (ascending, top to bottom).
class MenuWidget : public CQFrame
{
    Q_OBJECT
public:
    explicit MenuWidget(QWidget* parent = nullptr);
    ~MenuWidget() override;

    // The first widget under an index wins; a null widget is ignored.
    void addItem(QWidget* w, int index);
    // Frees the index (whatever widget holds it); the widget is not deleted.
    void removeItem(QWidget* w, int index);
    void resetUI();

    // Compares the common prefix of two dotted versions: -1, 0, 1, or -2 when a
    // part is not a number.
    static int versionCompare(QString const& a, QString const& b);

    void myHide();

    // Registered entries in display order.
    QList<QWidget*> items() const;
    bool isOldQt() const;

signals:
    void sig_hide();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void InitVars();
    void InitUI();
    void slot_itemDestroyed();

    QVBoxLayout* m_pLayout = nullptr;
    bool m_bOldQt = false;
    KeyedWidgetMap<QWidget> m_items;
    mutable QMutex m_mutex;
    QWidget* m_pMaskLayer = nullptr;
};
