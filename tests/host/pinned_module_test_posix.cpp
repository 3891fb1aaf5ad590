// The built module is unloaded by its host unless it was pinned.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/windows_api.h"

namespace QxHost {
namespace {

class PinnedLibrary : public testing::Test {
 protected:
  bool IsLoaded() const {
    void* const library = dlopen(path_.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
  }

  const std::string path_ =
      (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "libQXUtils.so").string();
};

TEST_F(PinnedLibrary, StaysLoadedAfterItsHostHasUnloadedIt) {
  for (const bool isPinned : {false, true}) {
    void* const library = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    HMODULE module = nullptr;
    constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS;
    const auto* const address = static_cast<const WCHAR*>(dlsym(library, "Create"));
    ASSERT_TRUE(
        GetModuleHandleExW(kFlags | (isPinned ? GET_MODULE_HANDLE_EX_FLAG_PIN : 0), address, &module));
    EXPECT_NE(module, nullptr);
    dlclose(library);
    EXPECT_EQ(IsLoaded(), isPinned);
  }
}

}  // namespace
}  // namespace QxHost
