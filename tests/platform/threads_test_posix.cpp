// Many threads that open, close, move and delete the same files at once.

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <cstdlib>
#include <thread>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 200;

// Runs `work(number)` on all threads, which start together.
template <typename Work>
void RunTogether(Work work) {
  std::barrier start(kThreads);
  std::vector<std::jthread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&start, &work, number] {
      start.arrive_and_wait();
      work(number);
    });
  }
}

bool IsOneOf(DWORD value, std::initializer_list<DWORD> values) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

TEST(ThreadsTest, AHandleThatSharesNothingIsHeldByOneThreadAtATime) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "");
  std::atomic<int> holders{0};
  std::atomic<int> most{0};
  std::atomic<int> opened{0};
  RunTogether([&](int) {
    for (int round = 0; round < kRounds; ++round) {
      FileHandle file(OpenFor(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, 0));
      if (!file.IsOpen()) {
        EXPECT_EQ(GetLastError(), 32u);
        continue;
      }
      const int now = holders.fetch_add(1) + 1;
      if (now > most) most = now;
      ++opened;
      WriteFile(file.Get(), "x", 1, nullptr, nullptr);
      holders.fetch_sub(1);
    }
  });
  EXPECT_EQ(most, 1);
  EXPECT_GT(opened, 0);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, 0)), kNoFailure);
}

TEST(ThreadsTest, OneThreadAloneMakesAFile) {
  const ScratchFolder scratch;
  for (int round = 0; round < 50; ++round) {
    const WString path = scratch.Path(WString(1, static_cast<WCHAR>(W('a') + round % 26)));
    std::atomic<int> made{0};
    RunTogether([&](int) {
      const DWORD failure = FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW, 0));
      if (failure == kNoFailure) ++made;
      EXPECT_TRUE(IsOneOf(failure, {kNoFailure, 80u}));
    });
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
  }
}

TEST(ThreadsTest, OneThreadAloneMovesAFileAndNothingIsLost) {
  const ScratchFolder scratch;
  const WString from = scratch.Path(W("from"));
  const WString to = scratch.Path(W("to"));
  for (int round = 0; round < 50; ++round) {
    scratch.Write(W("from"), "abc");
    std::atomic<int> moved{0};
    RunTogether([&](int) {
      const DWORD failure = FailureOf(MoveFileW(from.c_str(), to.c_str()));
      if (failure == kNoFailure) ++moved;
      EXPECT_TRUE(IsOneOf(failure, {kNoFailure, 2u}));
    });
    EXPECT_EQ(moved, 1);
    EXPECT_EQ(scratch.Read(W("to")), "abc");
    EXPECT_TRUE(DeleteFileW(to.c_str()));
  }
}

TEST(ThreadsTest, AFileThatIsHeldOpenNeitherMovesNorGoes) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const WString other = scratch.Path(W("b.txt"));
  RunTogether([&](int number) {
    for (int round = 0; round < kRounds; ++round) {
      if (number % 2 == 0) {
        const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ));
        if (!file.IsOpen()) continue;
        // The file is open without FILE_SHARE_DELETE, so it cannot be moved or deleted.
        EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x20u);
        char bytes[3];
        DWORD done = 0;
        EXPECT_TRUE(ReadFile(file.Get(), bytes, 3, &done, nullptr));
        EXPECT_EQ(done, 3u);
      } else {
        if (MoveFileW(path.c_str(), other.c_str())) {
          while (!MoveFileW(other.c_str(), path.c_str())) EXPECT_TRUE(IsOneOf(GetLastError(), {2u, 32u}));
        }
      }
    }
  });
  EXPECT_EQ(scratch.Read(W("a.txt")), "abc");
  EXPECT_EQ(scratch.Names(), std::vector<WString>{W("a.txt")});
}

TEST(ThreadsTest, HandlesAreClosedWhileOthersUseThem) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), std::string(1000, 'x'));
  std::atomic<HANDLE> shared{nullptr};
  RunTogether([&](int number) {
    for (int round = 0; round < kRounds; ++round) {
      if (number == 0) {
        const HANDLE before = shared.exchange(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
        if (before) {
          EXPECT_TRUE(CloseHandle(before));
        }
      } else {
        char bytes[100];
        const DWORD failure = FailureOf(ReadFile(shared.load(), bytes, 100, nullptr, nullptr));
        EXPECT_TRUE(IsOneOf(failure, {kNoFailure, 6u}));
      }
    }
  });
  EXPECT_TRUE(CloseHandle(shared.load()));
}

TEST(ThreadsTest, OneSearchIsAskedByManyAndGivesEachEntryOnce) {
  const ScratchFolder scratch;
  constexpr int kFiles = 300;
  for (int i = 0; i < kFiles; ++i) scratch.Write(FromUtf8("f" + std::to_string(i)), "");
  WIN32_FIND_DATAW data;
  const FindHandle search(FindFirstFileExW(scratch.Path(W("f*")).c_str(), FindExInfoBasic, &data,
                                           FindExSearchNameMatch, nullptr, 0));
  ASSERT_TRUE(search.IsOpen());
  std::atomic<int> found{1};
  RunTogether([&](int) {
    WIN32_FIND_DATAW own;
    while (FindNextFileW(search.Get(), &own)) ++found;
    EXPECT_EQ(GetLastError(), 18u);
  });
  EXPECT_EQ(found, kFiles);
}

TEST(ThreadsTest, TheLastErrorIsTheThreadsOwn) {
  RunTogether([&](int number) {
    for (int round = 0; round < kRounds; ++round) {
      SetLastError(static_cast<DWORD>(number));
      std::this_thread::yield();
      EXPECT_EQ(GetLastError(), static_cast<DWORD>(number));
    }
  });
}

TEST(ThreadsTest, AFaultMeetsOneCallOfAll) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const Platform::Faults::Scope scope;
  Platform::Faults::Fail("GetFileAttributesW", 100, 4711);
  std::atomic<int> failed{0};
  RunTogether([&](int) {
    for (int round = 0; round < kRounds; ++round) {
      if (FailureOfValue(GetFileAttributesW(path.c_str())) == 4711u) ++failed;
    }
  });
  EXPECT_EQ(failed, 1);
  EXPECT_EQ(Platform::Faults::CallCount("GetFileAttributesW"), kThreads * kRounds);
}

// Maps the last letters of the tables, which are missing if a thread reads the tables before they are
// complete.
void MapCaseTogether() {
  RunTogether([](int number) {
    const bool upper = number % 2 == 0;
    WCHAR unit = upper ? W('\uFF5A') : W('\uFF3A');
    EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, upper ? LCMAP_UPPERCASE : LCMAP_LOWERCASE, &unit, 1, &unit, 1),
              1);
    EXPECT_EQ(unit, upper ? W('\uFF3A') : W('\uFF5A'));
  });
}

// In a separate process, in which nothing has mapped case before.
TEST(ThreadsDeathTest, TheFirstCaseMappingsOfAProcessComeFromManyThreads) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto mapAndLeave = [] {
    MapCaseTogether();
    std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
  };
  EXPECT_EXIT(mapAndLeave(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

// In a separate process, in which nothing has compared texts before.
TEST(ThreadsDeathTest, TheFirstTextsOfAProcessAreOrderedByManyThreads) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto orderAndLeave = [] {
    RunTogether([](int number) {
      const std::string text(300 + static_cast<std::size_t>(number), 'a');
      const std::string accented = text + '\xE9';
      EXPECT_EQ(
          CompareStringA(LOCALE_USER_DEFAULT, 0x8000010, accented.c_str(), -1, (text + "f").c_str(), -1),
          CSTR_LESS_THAN);
      EXPECT_EQ(CompareStringOrdinal(W("\uFF3A"), 1, W("\uFF5A"), 1, TRUE), CSTR_EQUAL);
      std::tm time{};
      time.tm_year = 114;
      EXPECT_GT(_mktime64(&time), 0);
    });
    std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
  };
  EXPECT_EXIT(orderAndLeave(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace
