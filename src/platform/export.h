// Marks the functions that the module exports. On Windows the list in QXUtils.def does it.
#pragma once

#ifdef _WIN32
#define QX_MODULE_EXPORT
#else
#define QX_MODULE_EXPORT __attribute__((visibility("default")))
#endif
