#pragma once

#include "spluginregisteritem.h"

#include <QVariant>
#include <QWidget>

// Unpacking of command-bus payloads that other plugins send. Their pointers
// are untrusted: a plugin may hand over a widget it has already deleted. The
// look-ups here compare addresses with the widgets that are alive right now
// and never dereference a pointer before it is found among them, so a stale
// pointer yields null instead of a crash.
//
// A non-widget object (a QAction of a menu entry, a home-page row that is not
// a widget) cannot be checked this way; for those the sender owns the
// lifetime and must keep the object alive until it has unregistered it.
class CmdPayload
{
public:
    // The record in the payload; a default (null object) record for any other type.
    static sPluginRegisterItem record(QVariant const& payload);
    // `object` as a widget if it is one that is alive, else null.
    static QWidget* liveWidget(QObject const* object);
    // The live widget of class T whose address a raw-pointer payload
    // (QVariant::fromValue<void*>) carries, else null.
    template <typename T>
    static T* liveWidget(QVariant const& payload)
    {
        void* const raw = rawPointer(payload);
        if (!raw)
            return nullptr;
        // Every class the bus takes by raw pointer has QWidget as its only
        // (primary) base, so its address is that of its QWidget part.
        QWidget* const w = findWidget(raw);
        T* const typed = w ? qobject_cast<T*>(w) : nullptr;
        return (typed && static_cast<void*>(typed) == raw) ? typed : nullptr;
    }

private:
    static void* rawPointer(QVariant const& payload);
    static QWidget* findWidget(void const* address);
};
