#pragma once

#include <QMetaType>
#include <QObject>
#include <QVariant>

// Registration record of the command bus: what to mount, under which key, and a
// command-specific extra (a QPoint for navigation bottom windows, a title-bar side
// as int, the space above a home-page row).
struct sPluginRegisterItem
{
    QObject* object = nullptr;
    // Senders always set the key; 0 only keeps a forgotten one from being garbage.
    int index = 0;
    QVariant extra;
};
Q_DECLARE_METATYPE(sPluginRegisterItem)
