// The servers of drives, and their cache.
#include "security/server_cache.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

TEST(ServerCache, KeepsOneServerForEachLetterUntilItIsCleared) {
  ServerCache cache;
  EXPECT_EQ(cache.Find(W('C')), std::nullopt);
  cache.Store(W('C'), W("one"));
  cache.Store(W('c'), W("two"));
  cache.Store(W('C'), W("three"));
  EXPECT_EQ(cache.Find(W('C')), W("three"));
  EXPECT_EQ(cache.Find(W('c')), W("two"));
  cache.Clear();
  EXPECT_EQ(cache.Find(W('C')), std::nullopt);
}

// Runs under the thread sanitizer too.
TEST(ServerCache, IsUsedFromSeveralThreads) {
  ServerCache cache;
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&, number] {
      for (int round = 0; round < 2000; ++round) {
        const auto drive = static_cast<WCHAR>(W('A') + round % 26);
        const WString server(3, drive);
        if (number == 0 && round % 100 == 0) cache.Clear();
        const std::optional<WString> found = cache.Find(drive);
        if (found && *found != server) ++wrong;
        cache.Store(drive, server);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}

TEST(ServerOfUniversalName, IsTheTextBetweenTheBackslashes) {
  EXPECT_EQ(ServerOfUniversalName(W("\\\\server\\share\\a")), W("server"));
  EXPECT_EQ(ServerOfUniversalName(W("\\\\s\\")), W("s"));
  EXPECT_EQ(ServerOfUniversalName(W("\\\\\\x")), W(""));
}

TEST(ServerOfUniversalName, IsNoneForOtherNames) {
  for (const WCHAR* name : {W(""), W("\\\\\\"), W("\\\\s"), W("\\\\server"), W("C:\\a\\b"),
                            W("\\server\\share"), W("//server/share")}) {
    EXPECT_EQ(ServerOfUniversalName(name), std::nullopt) << ToUtf8(name);
  }
}
