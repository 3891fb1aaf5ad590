// Faults on demand: every function can be made to fail, and then has no effect.

#include "platform/posix/files/faults.h"

#include <gtest/gtest.h>

#include "platform/faults_on_demand.h"
#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

namespace Faults = Platform::Faults;

class FaultsTest : public FaultsOnDemand {
 protected:
  ScratchFolder scratch_;
};

TEST_F(FaultsTest, EveryFunctionOnPathsFailsOnDemand) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const WCHAR* file = path.c_str();
  const WString other = scratch_.Path(W("sub"));
  const WCHAR* folder = other.c_str();
  ExpectSecondCallFails("CreateFileW",
                        [&] { return FailureOfOpen(OpenFor(file, GENERIC_READ, OPEN_EXISTING)); });
  ExpectSecondCallFails("MoveFileW", [&] { return FailureOf(MoveFileW(file, file)); });
  ExpectSecondCallFails("DeleteFileW", [&] { return FailureOf(DeleteFileW(folder)); });
  ExpectSecondCallFails("GetFileAttributesW", [&] { return FailureOfValue(GetFileAttributesW(file)); });
  ExpectSecondCallFails("SetFileAttributesW", [&] { return FailureOf(SetFileAttributesW(file, 0)); });
  ExpectSecondCallFails("CreateDirectoryW", [&] { return FailureOf(CreateDirectoryW(folder, nullptr)); });
  ExpectSecondCallFails("RemoveDirectoryW", [&] { return FailureOf(RemoveDirectoryW(folder)); });
  ExpectSecondCallFails("GetFullPathNameW", [&] {
    WCHAR buffer[1000];
    return FailureOf(GetFullPathNameW(file, 1000, buffer, nullptr) != 0);
  });
  ExpectSecondCallFails("LoadLibraryExW",
                        [&] { return FailureOf(LoadLibraryExW(W("netmsg.dll"), nullptr, 2) != nullptr); });
}

TEST_F(FaultsTest, EveryFunctionOnHandlesFailsOnDemand) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
  ASSERT_TRUE(file.IsOpen());
  char byte = 'x';
  LARGE_INTEGER size;
  ExpectSecondCallFails("ReadFile",
                        [&] { return FailureOf(ReadFile(file.Get(), &byte, 1, nullptr, nullptr)); });
  ExpectSecondCallFails("WriteFile",
                        [&] { return FailureOf(WriteFile(file.Get(), &byte, 1, nullptr, nullptr)); });
  ExpectSecondCallFails("SetFilePointer",
                        [&] { return FailureOfValue(SetFilePointer(file.Get(), 0, nullptr, FILE_BEGIN)); });
  ExpectSecondCallFails("GetFileSizeEx", [&] { return FailureOf(GetFileSizeEx(file.Get(), &size)); });
  ExpectSecondCallFails("CloseHandle", [&] { return FailureOf(CloseHandle(nullptr)); });
}

TEST_F(FaultsTest, EveryFunctionOfASearchFailsOnDemand) {
  for (const WCHAR* name : {W("a"), W("b"), W("c"), W("d")}) scratch_.Write(name, "");
  const WString mask = scratch_.Path(W("*"));
  WIN32_FIND_DATAW data;
  const auto begin = [&] {
    return FindFirstFileExW(mask.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0);
  };
  ExpectSecondCallFails("FindFirstFileExW", [&] { return FailureOfSearch(begin()); });
  const FindHandle search(begin());
  ExpectSecondCallFails("FindNextFileW", [&] { return FailureOf(FindNextFileW(search.Get(), &data)); });
  ExpectSecondCallFails("FindClose", [&] { return FailureOf(FindClose(nullptr)); });
}

TEST_F(FaultsTest, EveryFunctionOnTextsFailsOnDemand) {
  WCHAR wide[300];
  char bytes[300];
  ExpectSecondCallFails("LCMapStringW", [&] {
    return FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("a"), 1, wide, 1));
  });
  ExpectSecondCallFails("MultiByteToWideChar",
                        [&] { return FailureOf(MultiByteToWideChar(CP_ACP, 0, "a", 1, wide, 1)); });
  ExpectSecondCallFails("WideCharToMultiByte", [&] {
    return FailureOf(WideCharToMultiByte(CP_ACP, 0, W("a"), 1, bytes, 1, nullptr, nullptr));
  });
  ExpectSecondCallFails("FormatMessageW", [&] {
    return FailureOf(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 5, 0x400, wide, 300, nullptr) != 0);
  });
  ExpectSecondCallFails("MessageBoxW", [&] { return FailureOf(MessageBoxW(nullptr, W(""), W(""), MB_OK)); });
}

TEST_F(FaultsTest, EveryFunctionThatOrdersTextsFailsOnDemand) {
  ExpectSecondCallFails("CompareStringA",
                        [] { return FailureOf(CompareStringA(LOCALE_USER_DEFAULT, 0, "a", 1, "b", 1)); });
  ExpectSecondCallFails("CompareStringW", [] {
    return FailureOf(CompareStringW(LOCALE_USER_DEFAULT, 0, W("a"), 1, W("b"), 1));
  });
  ExpectSecondCallFails("CompareStringEx", [] {
    return FailureOf(CompareStringEx(nullptr, 0, W("a"), 1, W("b"), 1, nullptr, nullptr, 0));
  });
  ExpectSecondCallFails("CompareStringOrdinal",
                        [] { return FailureOf(CompareStringOrdinal(W("a"), 1, W("b"), 1, FALSE)); });
}

TEST_F(FaultsTest, TheFlagsOfTheOrderOfTextsAreKept) {
  for (const char* function : {"CompareStringA", "CompareStringW", "CompareStringEx"})
    Faults::Watch(function);
  CompareStringA(LOCALE_USER_DEFAULT, 0x8000010, "a", 1, "b", 1);
  CompareStringW(LOCALE_USER_DEFAULT, 0x8000018, W("a"), 1, W("b"), 1);
  CompareStringEx(nullptr, 0x18, W("a"), 1, W("b"), 1, nullptr, nullptr, 0);
  EXPECT_EQ(Faults::LastFlags("CompareStringA"), 0x8000010u);
  EXPECT_EQ(Faults::LastFlags("CompareStringW"), 0x8000018u);
  EXPECT_EQ(Faults::LastFlags("CompareStringEx"), 0x18u);
}

TEST_F(FaultsTest, EveryFunctionOnLibrariesFailsOnDemand) {
  ExpectSecondCallFails("LoadLibraryW", [] {
    const HMODULE module = LoadLibraryW(W("kernel32.dll"));
    const DWORD error = FailureOf(module != nullptr);
    if (module) FreeLibrary(module);
    return error;
  });
  const HMODULE module = LoadLibraryW(W("kernel32.dll"));
  ExpectSecondCallFails("GetProcAddress",
                        [&] { return FailureOf(GetProcAddress(module, "CompareStringEx") != nullptr); });
  ExpectSecondCallFails("FreeLibrary", [] { return FailureOf(FreeLibrary(nullptr)); });
  EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(FaultsTest, ATimeOnDemandIsNone) {
  ExpectSecondCallFails("_mktime64", [] {
    std::tm time{};
    time.tm_year = 100;
    return FailureOf(_mktime64(&time) != -1);
  });
}

TEST_F(FaultsTest, LocalFreeOnDemandGivesTheMemoryBackToTheCaller) {
  WCHAR* text = nullptr;
  ASSERT_NE(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_ALLOCATE_BUFFER, nullptr, 5, 0x400,
                           reinterpret_cast<WCHAR*>(&text), 0, nullptr),
            0u);
  Faults::Fail("LocalFree", 1, kFaultError);
  EXPECT_EQ(LocalFree(text), text);
  EXPECT_EQ(GetLastError(), kFaultError);
  EXPECT_EQ(LocalFree(text), nullptr);
}

TEST_F(FaultsTest, ShellExecuteReturnsAnInjectedSmallErrorItself) {
  Faults::Fail("ShellExecuteW", 1, 5);
  EXPECT_EQ(reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, nullptr, W("a.txt"), nullptr, nullptr, SW_SHOW)),
            5);
  Faults::Fail("ShellExecuteW", 1, kFaultError);
  EXPECT_EQ(reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, nullptr, W("a.txt"), nullptr, nullptr, SW_SHOW)),
            31);
  EXPECT_EQ(GetLastError(), kFaultError);
}

TEST_F(FaultsTest, AFailedCallDoesNothing) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  FileHandle file(OpenFor(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
  for (const char* function : {"CreateFileW", "WriteFile", "MoveFileW", "DeleteFileW", "CreateDirectoryW",
                               "SetFileAttributesW", "CloseHandle", "SetFilePointer"}) {
    Faults::Fail(function, 1, kFaultError);
  }
  DWORD done = 77;
  EXPECT_FALSE(WriteFile(file.Get(), "xyz", 3, &done, nullptr));
  EXPECT_EQ(done, 0u);
  EXPECT_EQ(SetFilePointer(file.Get(), 2, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
  EXPECT_EQ(OpenFor(scratch_.Path(W("b")).c_str(), GENERIC_WRITE, CREATE_NEW), INVALID_HANDLE_VALUE);
  EXPECT_FALSE(MoveFileW(path.c_str(), scratch_.Path(W("b")).c_str()));
  EXPECT_FALSE(DeleteFileW(path.c_str()));
  EXPECT_FALSE(CreateDirectoryW(scratch_.Path(W("b")).c_str(), nullptr));
  EXPECT_FALSE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(CloseHandle(file.Get()));
  EXPECT_EQ(GetLastError(), kFaultError);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x20u);
  EXPECT_EQ(SetFilePointer(file.Get(), 0, nullptr, FILE_CURRENT), 0u);
}

TEST_F(FaultsTest, ARepeatedFaultStaysUntilItIsCleared) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  Faults::Fail("GetFileAttributesW", 2, kFaultError, true);
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x20u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(FailureOfValue(GetFileAttributesW(path.c_str())), kFaultError);
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 4);
  Faults::Clear();
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x20u);
}

TEST_F(FaultsTest, AShortWriteWritesItsBytesAndSucceeds) {
  const WString path = scratch_.Path(W("a.txt"));
  const FileHandle file(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW));
  Faults::WriteShort(2, 2);
  DWORD done = 0;
  EXPECT_TRUE(WriteFile(file.Get(), "abc", 3, &done, nullptr));
  EXPECT_EQ(done, 3u);
  EXPECT_TRUE(WriteFile(file.Get(), "defg", 4, &done, nullptr));
  EXPECT_EQ(done, 2u);
  EXPECT_TRUE(WriteFile(file.Get(), "hij", 3, &done, nullptr));
  EXPECT_EQ(done, 3u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abcdehij");
}

TEST_F(FaultsTest, AShortWriteIsNeverLongerThanWhatIsGiven) {
  const FileHandle file(OpenFor(scratch_.Path(W("a.txt")).c_str(), GENERIC_WRITE, CREATE_NEW));
  Faults::WriteShort(1, 100);
  DWORD done = 0;
  EXPECT_TRUE(WriteFile(file.Get(), "abc", 3, &done, nullptr));
  EXPECT_EQ(done, 3u);
}

TEST_F(FaultsTest, CallsAreCountedFromTheNamingOn) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  GetFileAttributesW(path.c_str());
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 0);
  Faults::Watch("GetFileAttributesW");
  GetFileAttributesW(path.c_str());
  GetFileAttributesW(nullptr);
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 2);
  EXPECT_EQ(Faults::CallCount("MoveFileW"), 0);
  Faults::Watch("GetFileAttributesW");
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 0);
}

TEST_F(FaultsTest, TheFlagsOfMessagesAndLibrariesAreKept) {
  Faults::Watch("FormatMessageW");
  Faults::Watch("LoadLibraryExW");
  EXPECT_EQ(Faults::LastFlags("FormatMessageW"), 0u);
  WCHAR buffer[300];
  FormatMessageW(0x1A00, nullptr, 5, 0x400, buffer, 300, nullptr);
  LoadLibraryExW(W("netmsg.dll"), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  EXPECT_EQ(Faults::LastFlags("FormatMessageW"), 0x1A00u);
  EXPECT_EQ(Faults::LastFlags("LoadLibraryExW"), 2u);
  EXPECT_EQ(Faults::LastFlags("MoveFileW"), 0u);
}

TEST_F(FaultsTest, ThePathsThatFunctionsAreGivenAreKeptInOrder) {
  const std::vector<std::u16string> none;
  const WCHAR* path = W("Z:\\no such\\folder");
  WIN32_FIND_DATAW data;
  for (const char* function : {"FindFirstFileExW", "GetFileAttributesW", "CreateDirectoryW", "MoveFileW"}) {
    Faults::Watch(function);
    EXPECT_EQ(Faults::Paths(function), none) << function;
  }
  FindFirstFileExW(path, FindExInfoStandard, &data, FindExSearchNameMatch, nullptr, 0);
  GetFileAttributesW(path);
  CreateDirectoryW(path, nullptr);
  MoveFileW(path, W("Z:\\elsewhere"));
  for (const char* function : {"FindFirstFileExW", "GetFileAttributesW", "CreateDirectoryW", "MoveFileW"}) {
    EXPECT_EQ(Faults::Paths(function), std::vector<std::u16string>{path}) << function;
  }
  Faults::Fail("GetFileAttributesW", 2, kFaultError);
  GetFileAttributesW(nullptr);
  GetFileAttributesW(W("failed"));
  EXPECT_EQ(Faults::Paths("GetFileAttributesW"), (std::vector<std::u16string>{u"", u"failed"}));
  EXPECT_EQ(Faults::Paths("DeleteFileW"), none);
}

TEST_F(FaultsTest, TheSourceAndLanguageOfMessagesAreKept) {
  Faults::Watch("FormatMessageW");
  WCHAR buffer[300];
  FormatMessageW(0x1800, &buffer, 5, 0x407, buffer, 300, nullptr);
  EXPECT_EQ(Faults::LastMessageSource().source, &buffer);
  EXPECT_EQ(Faults::LastMessageSource().language, 0x407u);
  FormatMessageW(0x1000, nullptr, 5, 0x400, buffer, 300, nullptr);
  EXPECT_EQ(Faults::LastMessageSource().source, nullptr);
  EXPECT_EQ(Faults::LastMessageSource().language, 0x400u);
}

TEST_F(FaultsTest, TheAmountOfInformationOfSearchesIsKept) {
  const WString path = scratch_.Write(W("a"), "");
  WIN32_FIND_DATAW data;
  Faults::Watch("FindFirstFileExW");
  FindClose(FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 2));
  EXPECT_EQ(Faults::LastInfoLevel(), FindExInfoBasic);
  EXPECT_EQ(Faults::LastFlags("FindFirstFileExW"), 2u);
  FindClose(FindFirstFileExW(path.c_str(), FindExInfoStandard, &data, FindExSearchNameMatch, nullptr, 0));
  EXPECT_EQ(Faults::LastInfoLevel(), FindExInfoStandard);
  EXPECT_EQ(Faults::LastFlags("FindFirstFileExW"), 0u);
}

TEST_F(FaultsTest, ASearchWithTheBasicInformationLeavesOneNameOut) {
  const WString path = scratch_.Write(W("a"), "");
  Faults::ReturnNoName(2);
  const auto firstName = [&path](FINDEX_INFO_LEVELS level) {
    WIN32_FIND_DATAW data;
    const FindHandle search(FindFirstFileExW(path.c_str(), level, &data, FindExSearchNameMatch, nullptr, 0));
    EXPECT_TRUE(search.IsOpen());
    return WString(data.cFileName);
  };
  EXPECT_EQ(firstName(FindExInfoBasic), W("a"));
  EXPECT_EQ(firstName(FindExInfoStandard), W("a"));
  EXPECT_EQ(firstName(FindExInfoBasic), W(""));
  EXPECT_EQ(firstName(FindExInfoBasic), W("a"));
}

TEST(FaultsScopeTest, TheEndOfAScopeDisarmsEverything) {
  {
    const Faults::Scope scope;
    Faults::Fail("GetFileAttributesW", 1, kFaultError, true);
    EXPECT_EQ(FailureOfValue(GetFileAttributesW(W("."))), kFaultError);
  }
  EXPECT_EQ(FailureOfValue(GetFileAttributesW(W("."))), kNoFailure);
}

}  // namespace
