#pragma once

#include "basegui_global.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QWidget>

// A container of widgets registered under integer keys. The first registration
// under a key wins; the container never deletes a widget, and a widget deleted
// by its owner simply drops out. Subclasses lay the widgets out in resetUI(),
// which runs after every change.
class BASEGUI_EXPORT CQMyStackedWins : public QWidget
{
    Q_OBJECT
public:
    explicit CQMyStackedWins(QWidget* parent = nullptr);
    ~CQMyStackedWins() override;

    // 0 on success; -1 for a null widget or a key already taken.
    int registerItem(QWidget* w, int key);
    // Hides and detaches the widget; 0 on success, -1 for an unknown key.
    int unRegisterItem(int key);
    int count() const;
    bool contains(int key) const;
    QWidget* item(int key) const;
    // Live widgets in ascending key order.
    QList<QWidget*> items() const;
    QList<int> keys() const;

protected:
    // Default: add the widgets to this widget's box layout (if it has one) in
    // key order and show them.
    virtual void resetUI();

private:
    void slot_itemDestroyed(QObject* object);
    void detach(QWidget* w);

    QMap<int, QPointer<QWidget>> m_items;
};
