#pragma once

#include <QtGlobal>

// The asset classes are compiled into the base plugin's static core, whose
// symbols are hidden by default; other plugins construct them through
// libui_base_plugin.so, so these classes must stay visible in that library.
#if defined(UI_BASE_CORE_LIBRARY)
#define ASSETAREA_EXPORT Q_DECL_EXPORT
#else
#define ASSETAREA_EXPORT Q_DECL_IMPORT
#endif
