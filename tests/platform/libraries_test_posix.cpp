// Behaviour of libraries that only the native build shows: on Windows the system's libraries are never
// unloaded.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

TEST(NativeLibrariesTest, ALibraryGoesWithItsLastUser) {
  const HMODULE module = LoadLibraryW(W("kernel32.dll"));
  ASSERT_EQ(LoadLibraryW(W("KERNEL32")), module);
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_NE(GetProcAddress(module, "CompareStringEx"), nullptr);
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_EQ(FailureOf(FreeLibrary(module)), 6u);
  EXPECT_EQ(FailureOf(GetProcAddress(module, "CompareStringEx") != nullptr), 126u);
}

TEST(NativeLibrariesTest, AHandleThatIsNoneIsNotFreed) {
  int nothing = 0;
  EXPECT_EQ(FailureOf(FreeLibrary(reinterpret_cast<HMODULE>(&nothing))), 6u);
}

TEST(NativeLibrariesTest, TheLibraryOfNetworkMessagesHoldsNoFunction) {
  const HMODULE module = LoadLibraryW(W("netmsg.dll"));
  ASSERT_NE(module, nullptr);
  EXPECT_EQ(FailureOf(GetProcAddress(module, "CompareStringEx") != nullptr), 127u);
  EXPECT_EQ(FailureOf(GetProcAddress(module, nullptr) != nullptr), 127u);
  EXPECT_TRUE(FreeLibrary(module));
}

TEST(NativeLibrariesTest, ANameMustBeWhole) {
  for (const WCHAR* name : {W(""), W(".dll"), W("kernel3"), W("kernel322"), W("kernel32.dll.dll")}) {
    EXPECT_EQ(FailureOf(LoadLibraryW(name) != nullptr), 126u) << ToUtf8(name);
  }
  EXPECT_EQ(FailureOf(LoadLibraryW(nullptr) != nullptr), 126u);
}

}  // namespace
