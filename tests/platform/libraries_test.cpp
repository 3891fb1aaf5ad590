// LoadLibraryW, GetProcAddress and FreeLibrary, with a library that always exists.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

// Casts through void (*)(), which compilers accept for any function type.
template <typename Function>
Function* Lookup(HMODULE module, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

TEST(LibrariesTest, TheSystemLibraryIsFoundInAnyCaseAndWithoutItsEnding) {
  for (const WCHAR* name : {W("kernel32.dll"), W("KERNEL32.DLL"), W("Kernel32"), W("kernel32")}) {
    const HMODULE module = LoadLibraryW(name);
    EXPECT_NE(module, nullptr) << ToUtf8(name);
    EXPECT_TRUE(FreeLibrary(module)) << ToUtf8(name);
  }
}

TEST(LibrariesTest, ALibraryLoadedTwiceIsTheSameOne) {
  const HMODULE first = LoadLibraryW(W("kernel32.dll"));
  const HMODULE second = LoadLibraryW(W("kernel32.dll"));
  EXPECT_EQ(first, second);
  EXPECT_TRUE(FreeLibrary(second));
  EXPECT_NE(GetProcAddress(first, "CompareStringEx"), nullptr);
  EXPECT_TRUE(FreeLibrary(first));
}

TEST(LibrariesTest, FunctionsThatAreLookedUpWork) {
  const HMODULE module = LoadLibraryW(W("kernel32.dll"));
  ASSERT_NE(module, nullptr);
  auto* const compareOrdinal =
      Lookup<std::remove_pointer_t<decltype(&CompareStringOrdinal)>>(module, "CompareStringOrdinal");
  ASSERT_NE(compareOrdinal, nullptr);
  EXPECT_EQ(compareOrdinal(W("B"), 1, W("a"), 1, FALSE), CSTR_LESS_THAN);
  EXPECT_EQ(compareOrdinal(W("B"), 1, W("a"), 1, TRUE), CSTR_GREATER_THAN);
  auto* const compareEx =
      Lookup<std::remove_pointer_t<decltype(&CompareStringEx)>>(module, "CompareStringEx");
  ASSERT_NE(compareEx, nullptr);
  EXPECT_EQ(compareEx(nullptr, NORM_LINGUISTIC_CASING | LINGUISTIC_IGNORECASE, W("B"), 1, W("a"), 1, nullptr,
                      nullptr, 0),
            CSTR_GREATER_THAN);
  EXPECT_TRUE(FreeLibrary(module));
}

TEST(LibrariesTest, AFunctionThatIsNotThereIsNotFound) {
  const HMODULE module = LoadLibraryW(W("kernel32.dll"));
  EXPECT_EQ(FailureOf(GetProcAddress(module, "NoSuchFunction") != nullptr), 127u);
  // Names of functions are case-sensitive.
  EXPECT_EQ(FailureOf(GetProcAddress(module, "comparestringex") != nullptr), 127u);
  EXPECT_TRUE(FreeLibrary(module));
}

TEST(LibrariesTest, ALibraryThatIsNotThereIsNotLoaded) {
  EXPECT_EQ(FailureOf(LoadLibraryW(W("no-such-library.dll")) != nullptr), 126u);
  EXPECT_EQ(FailureOf(LoadLibraryW(W("kernel32.dll.no")) != nullptr), 126u);
}

TEST(LibrariesTest, NoHandleIsNotFreed) { EXPECT_EQ(FailureOf(FreeLibrary(nullptr)), 6u); }

}  // namespace
