#pragma once

#include <QObject>
#include <QPointer>

// A guard like QPointer that can also be compared by address while its object
// is being destroyed. QPointer<T> hands out its object as a T*, a downcast that
// is undefined once T's destructor has run, and a widget emits destroyed()
// from ~QWidget, when it is only a QWidget any more. Code reached from
// destroyed() asks object() or isNull(), never data().
template <typename T>
class ObjectGuard
{
public:
    ObjectGuard() = default;
    ObjectGuard(T* object)
        : m_guard(object)
    {
    }

    bool isNull() const { return m_guard.isNull(); }
    // The object as a plain QObject: safe to compare at any time.
    QObject* object() const { return m_guard.data(); }
    bool is(QObject const* other) const { return other && object() == other; }

    T* data() const { return static_cast<T*>(m_guard.data()); }
    T* operator->() const { return data(); }
    operator T*() const { return data(); }

private:
    QPointer<QObject> m_guard;
};
