#include <new>

#include "frame/extension_records.h"
#include "frame/qx_utils.h"
#include "multirename/window/qx_multi_rename.h"
#include "security/ntfs_prop.h"

using namespace Velmora::SDK;

namespace {

// The functions that create and destroy the extension object of one index.
struct ExtensionClass {
  void* (*create)();
  void (*destroy)(void* object);
};

template <typename Class, typename Base>
void* CreateExtension() {
  return static_cast<Base*>(new (std::nothrow) Class());
}

// Destroys `object` if it is a `Class`; does nothing if the object has another class than its index says
// (C-004).
template <typename Class>
void DestroyPlugin(void* object) {
  delete dynamic_cast<Class*>(static_cast<IPluginInterface*>(object));
}

void DestroyMultiRename(void* object) {
  MultiRenameCloser()(dynamic_cast<QXMultiRename*>(static_cast<IPluginInterface*>(object)));
}

void DestroyProperties(void* object) { delete static_cast<NTFSProp*>(static_cast<IFileProperties*>(object)); }

constexpr ExtensionClass kClasses[kExtensionCount] = {
    {CreateExtension<CQXUtils, IPluginInterface>, DestroyPlugin<CQXUtils>},
    {CreateExtension<NTFSProp, IFileProperties>, DestroyProperties},
    {CreateExtension<QXMultiRename, IPluginInterface>, DestroyMultiRename},
};

bool IsExtension(s32 index) { return index >= 0 && index < kExtensionCount; }

}  // namespace

void* Create(s32 index) { return IsExtension(index) ? kClasses[index].create() : nullptr; }

bool Delete(void* object, s32 index) {
  if (!object || !IsExtension(index)) return false;
  kClasses[index].destroy(object);
  return true;
}

bool GetExtensionInfo(u32 index, ExtensionInfo* info) {
  if (!info || index >= static_cast<u32>(kExtensionCount)) return false;
  FillExtensionInfo(index, *info);
  return true;
}
