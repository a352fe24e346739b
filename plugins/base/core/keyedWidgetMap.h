#pragma once

#include <QList>
#include <QMap>
#include <QPointer>
#include <QWidget>

// The registry behind every container other plugins fill: widgets under integer
// keys, ascending. The first registration under a key wins; a widget deleted by
// its owner drops out by itself, so nothing here ever touches a dead pointer and
// nothing here ever deletes a widget.
template <typename T = QWidget>
class KeyedWidgetMap
{
public:
    // False for a null widget or a key held by a live widget.
    bool insert(int key, T* w)
    {
        purge();
        if (!w || m_items.contains(key))
            return false;
        m_items.insert(key, QPointer<T>(w));
        return true;
    }

    // The live widget that was under `key` (null if none); the key is free afterwards.
    T* take(int key)
    {
        purge();
        return m_items.take(key).data();
    }

    bool contains(int key)
    {
        purge();
        return m_items.contains(key);
    }

    T* value(int key) const { return m_items.value(key).data(); }

    // Live widgets in ascending key order.
    QList<T*> values() const
    {
        QList<T*> out;
        for (auto it = m_items.cbegin(); it != m_items.cend(); ++it) {
            if (!it.value().isNull())
                out.append(it.value().data());
        }
        return out;
    }

    QList<int> keys() const
    {
        QList<int> out;
        for (auto it = m_items.cbegin(); it != m_items.cend(); ++it) {
            if (!it.value().isNull())
                out.append(it.key());
        }
        return out;
    }

    int count() const { return keys().size(); }
    bool isEmpty() const { return count() == 0; }
    void clear() { m_items.clear(); }

    // Forgets the entries whose widget has been deleted.
    void purge()
    {
        for (auto it = m_items.begin(); it != m_items.end();) {
            if (it.value().isNull())
                it = m_items.erase(it);
            else
                ++it;
        }
    }

private:
    QMap<int, QPointer<T>> m_items;
};
