#pragma once

#if defined(QUORIX_BASEGUI_LIBRARY)
#define BASEGUI_EXPORT __attribute__((visibility("default")))
#else
#define BASEGUI_EXPORT
#endif
