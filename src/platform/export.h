// QX_MODULE_EXPORT marks a function that the module exports. On Windows it is empty: QXUtils.def lists the
// exports.
#pragma once

#ifdef _WIN32
#define QX_MODULE_EXPORT
#else
#define QX_MODULE_EXPORT __attribute__((visibility("default")))
#endif
