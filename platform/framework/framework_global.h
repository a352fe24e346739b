#pragma once

#if defined(QUORIX_FRAMEWORK_LIBRARY)
#define FRAMEWORK_EXPORT __attribute__((visibility("default")))
#else
#define FRAMEWORK_EXPORT
#endif
