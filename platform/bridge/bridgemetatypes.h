#pragma once

#include "bridge_global.h"

// Registers the bridge records with Qt's meta-type system, under their C++
// names and under the short names the GUI plugins use ("sNoticeWinInfo",
// "SETTING_COMMON", "QLIST_VERINFO", ...), so they cross queued connections
// whichever spelling a signal uses. Idempotent and thread-safe; every bridge
// calls it when it is created.
class BRIDGE_EXPORT BridgeMetaTypes
{
public:
    static void registerAll();

private:
    BridgeMetaTypes() = delete;
};
