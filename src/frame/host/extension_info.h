// The record that GetExtensionInfo fills, and the three exported functions. The record is passed to the host,
// so its layout is fixed to the byte. Texts are truncated at a limit, padded with zeros up to it, and not
// terminated if they fill it.
#pragma once

#include <cstddef>

#include "frame/host/host_types.h"
#include "platform/export.h"

namespace Velmora::SDK {

struct ExtensionInfo {
  WCHAR name[100];
  WCHAR author[100];
  WCHAR webAddress[100];
  WCHAR description[250];  // truncated to 160 characters
  WCHAR moduleName[100];
  char version[10];
  char id[34];
  u32 kindFlags;
  u32 hostBuild;
  u32 orderValue;
  std::uint8_t reserved1[20];
  WCHAR extraText1[512];
  WCHAR extraText2[512];
  std::uint8_t reserved2[2048];
  u64 extraValue;
};

static_assert(offsetof(ExtensionInfo, name) == 0);
static_assert(offsetof(ExtensionInfo, author) == 200);
static_assert(offsetof(ExtensionInfo, webAddress) == 400);
static_assert(offsetof(ExtensionInfo, description) == 600);
static_assert(offsetof(ExtensionInfo, moduleName) == 1100);
static_assert(offsetof(ExtensionInfo, version) == 1300);
static_assert(offsetof(ExtensionInfo, id) == 1310);
static_assert(offsetof(ExtensionInfo, kindFlags) == 1344);
static_assert(offsetof(ExtensionInfo, hostBuild) == 1348);
static_assert(offsetof(ExtensionInfo, orderValue) == 1352);
static_assert(offsetof(ExtensionInfo, extraText1) == 1376);
static_assert(offsetof(ExtensionInfo, extraText2) == 2400);
static_assert(offsetof(ExtensionInfo, extraValue) == 5472);
static_assert(sizeof(ExtensionInfo) == 5480);

// The number of extensions in the module. Their indices are 0 to 2.
constexpr s32 kExtensionCount = 3;

}  // namespace Velmora::SDK

// The only functions that the module exports. They throw no exceptions.
extern "C" {
// Returns a new extension object for the index, as a pointer to its base class (IPluginInterface for 0 and 2,
// IFileProperties for 1), or null if it cannot be created. The caller destroys it with Delete.
QX_MODULE_EXPORT void* Create(Velmora::SDK::s32 index);
// Destroys an object that Create returned for the same index. Returns false if `object` is null or the index
// is invalid.
QX_MODULE_EXPORT bool Delete(void* object, Velmora::SDK::s32 index);
// Fills the record. Returns false and writes nothing if `info` is null or the index is invalid.
QX_MODULE_EXPORT bool GetExtensionInfo(Velmora::SDK::u32 index, Velmora::SDK::ExtensionInfo* info);
}
