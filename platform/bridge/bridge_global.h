#pragma once

#if defined(QUORIX_BRIDGE_LIBRARY)
#define BRIDGE_EXPORT __attribute__((visibility("default")))
#else
#define BRIDGE_EXPORT
#endif
