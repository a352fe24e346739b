#pragma once

#if defined(QUORIX_SUPPORT_LIBRARY)
#define SUPPORT_EXPORT __attribute__((visibility("default")))
#else
#define SUPPORT_EXPORT
#endif
