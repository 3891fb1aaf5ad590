// Invalid data from the system, or data that changes between two calls: descriptors, lists, chains of streams
// and network names. No byte outside of it may be read.
#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "platform/posix/files/faults.h"
#include "security/alternate_streams.h"
#include "security/ntfs_tools.h"
#include "security/server_cache.h"
#include "support/descriptor_bytes.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using testing::IsEmpty;

namespace {

namespace Faults = Platform::Faults;

class NtfsRecords : public testing::Test {
 protected:
  NtfsRecords() {
    ServerCache::Instance().Clear();
    ResolveStreamQuery();
  }
  ~NtfsRecords() override { ServerCache::Instance().Clear(); }

  // Sets a list of that many entries, all of which allow everyone to read.
  void SetListOf(int entries) const {
    BuiltList list;
    for (int index = 0; index < entries; ++index) list.Add(0, 0, 0x120089, EveryoneSid());
    ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  }

  // Returns the owner's name with this descriptor in place of the file's, or "none".
  WString OwnerWith(const DescriptorBytes& descriptor) {
    Faults::Give("GetFileSecurityW", descriptor.Bytes());
    WString owner;
    return tools_.GetOwnerName(file_.c_str(), owner, false) ? owner : W("none");
  }
  WString AccessWith(const DescriptorBytes& descriptor) {
    Faults::Give("GetFileSecurityW", descriptor.Bytes());
    return tools_.GetAccessString(file_);
  }
  // Returns the result of adding access, and whether a list was set.
  std::pair<DWORD, bool> AddWith(const DescriptorBytes& descriptor) {
    Faults::Give("GetNamedSecurityInfoW", descriptor.Bytes());
    Faults::Watch("SetNamedSecurityInfoW");
    const DWORD error = tools_.AddAccess(file_, W("nobody"), 1);
    return {error, Faults::CallCount("SetNamedSecurityInfoW") != 0};
  }
  AlternateStreams StreamsWith(const std::vector<BYTE>& buffer, DWORD status) {
    Faults::Give("NtQueryInformationFile", buffer, status);
    return {tools_.GetAlternateStreamCount(file_.c_str()), tools_.GetAlternateStreamSize(file_.c_str())};
  }

  Faults::Scope scope_;
  NTFSTools tools_;
  const ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

DescriptorBytes DescriptorOfList(const std::vector<BYTE>& list) {
  DescriptorBytes descriptor;
  descriptor.SetListOffset(descriptor.Append(list));
  return descriptor;
}

void PutStream(std::vector<BYTE>& buffer, std::size_t at, std::uint32_t next, std::int64_t size) {
  std::memcpy(&buffer[at], &next, sizeof next);
  std::memcpy(&buffer[at + 8], &size, sizeof size);
}

constexpr DWORD kBufferOverflowStatus = 0x80000005;

}  // namespace

// Records that grow between the call for their size and the call for their bytes.

TEST_F(NtfsRecords, AListThatGrowsBetweenTheTwoCallsShowsNoAccess) {
  SetListOf(1);
  ASSERT_EQ(tools_.GetAccessString(file_), W("R  "));
  Faults::Before("GetFileSecurityW", 2, [this] { SetListOf(2); });
  EXPECT_EQ(tools_.GetAccessString(file_), W("   "));
  EXPECT_EQ(Faults::CallCount("GetFileSecurityW"), 2);
  EXPECT_EQ(EntriesOfFile(file_)->size(), 2u);
  EXPECT_EQ(tools_.GetAccessString(file_), W("R  "));
}

TEST_F(NtfsRecords, AnOwnerThatGrowsBetweenTheTwoCallsIsNone) {
  DescriptorBytes small;
  small.SetOwnerOffset(small.Append(EveryoneSid()));
  DescriptorBytes large;
  large.SetOwnerOffset(large.Append(UserSidBytes(0)));
  ASSERT_EQ(OwnerWith(small), W("Everyone"));
  Faults::Give("GetFileSecurityW", small.Bytes());
  Faults::Before("GetFileSecurityW", 2, [&] { Faults::Give("GetFileSecurityW", large.Bytes()); });
  WString owner = W("before");
  EXPECT_FALSE(tools_.GetOwnerName(file_.c_str(), owner, false));
  EXPECT_EQ(owner, W("before"));
  EXPECT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, false));
  EXPECT_EQ(owner, W("root"));
}

TEST_F(NtfsRecords, AListThatShrinksBetweenTheTwoCallsIsTheNewOne) {
  SetListOf(2);
  Faults::Before("GetFileSecurityW", 2, [this] { SetListOf(1); });
  EXPECT_EQ(tools_.GetAccessString(file_), W("R  "));
}

// Descriptors with false contents.

TEST_F(NtfsRecords, AnOwnerThatItsRecordDoesNotHoldIsNone) {
  DescriptorBytes right;
  const DWORD owner = right.Append(UserSidBytes(0));
  right.SetOwnerOffset(owner);
  ASSERT_EQ(OwnerWith(right), W("root"));
  for (const DWORD offset : {owner + 1, owner + 9, owner + 15, owner + 16, owner + 17, DWORD{0x7FFFFFFF}}) {
    DescriptorBytes wrong = right;
    wrong.SetOwnerOffset(offset);
    EXPECT_EQ(OwnerWith(wrong), W("none")) << offset;
  }
  DescriptorBytes many;
  std::vector<BYTE> sid = UserSidBytes(0);
  sid[1] = 255;
  many.SetOwnerOffset(many.Append(sid));
  EXPECT_EQ(OwnerWith(many), W("none"));
  EXPECT_EQ(OwnerWith(DescriptorBytes()), W("none"));
}

TEST_F(NtfsRecords, ARecordOfPointersWhereOffsetsMustBeIsNone) {
  DescriptorBytes descriptor;
  descriptor.SetOwnerOffset(descriptor.Append(UserSidBytes(0)));
  descriptor.SetListOffset(descriptor.Append(ListBytes(28, 1, EntryBytes(20, EveryoneSid(), 0x1F01FF))));
  EXPECT_EQ(OwnerWith(descriptor), W("root"));
  EXPECT_EQ(AccessWith(descriptor), W("RWX"));
  descriptor.SetControl(0x0004);  // has a list, but is not self-relative
  EXPECT_EQ(OwnerWith(descriptor), W("none"));
  EXPECT_EQ(AccessWith(descriptor), W("   "));
}

TEST_F(NtfsRecords, AListThatItsRecordDoesNotHoldShowsNoAccess) {
  const std::vector<BYTE> entry = EntryBytes(20, EveryoneSid(), 0x1F01FF);
  ASSERT_EQ(AccessWith(DescriptorOfList(ListBytes(28, 1, entry))), W("RWX"));
  for (const int size : {0, 7, 27, 29, 0xFFFF}) {
    EXPECT_EQ(AccessWith(DescriptorOfList(ListBytes(static_cast<WORD>(size), 1, entry))), W("   ")) << size;
  }
  for (const int size : {0, 3, 21, 0xFFFF}) {
    const std::vector<BYTE> wrong = EntryBytes(static_cast<WORD>(size), EveryoneSid(), 0x1F01FF);
    EXPECT_EQ(AccessWith(DescriptorOfList(ListBytes(28, 1, wrong))), W("   ")) << size;
  }
  DescriptorBytes outside = DescriptorOfList(ListBytes(28, 1, entry));
  for (const DWORD offset : {DWORD{41}, DWORD{47}, DWORD{48}, DWORD{49}, DWORD{0x7FFFFFFF}}) {
    outside.SetListOffset(offset);
    EXPECT_EQ(AccessWith(outside), W("   ")) << offset;
  }
}

TEST_F(NtfsRecords, AddingToAListWhoseEntriesLeaveItIsAnErrorAndSetsNothing) {
  const std::vector<BYTE> right = EntryBytes(20, EveryoneSid());
  ASSERT_EQ(AddWith(DescriptorOfList(ListBytes(28, 1, right))), std::pair(DWORD{0}, true));
  Faults::Clear();
  for (const int size : {0, 3, 21, 0xFFFF}) {
    const std::vector<BYTE> wrong = EntryBytes(static_cast<WORD>(size), EveryoneSid());
    EXPECT_EQ(AddWith(DescriptorOfList(ListBytes(28, 1, wrong))), std::pair(DWORD{87}, false)) << size;
    Faults::Clear();
  }
}

// The size field of a list has 16 bits: if the new list would be longer, the call fails and nothing is set.
TEST_F(NtfsRecords, AddingToAListWithoutRoomForOneMoreEntryIsABadParameter) {
  std::vector<BYTE> memory = FilledList(65528, 1);
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  ASSERT_EQ(list->AceCount, 3276);
  EXPECT_EQ(AddWith(DescriptorOfList(memory)), std::pair(DWORD{87}, false));
  Faults::Clear();
  // Two entries fewer leave enough space.
  ASSERT_TRUE(DeleteAce(list, 0) && DeleteAce(list, 0));
  EXPECT_EQ(AddWith(DescriptorOfList(memory)), std::pair(DWORD{0}, true));
}

// Chains of streams.

TEST_F(NtfsRecords, StreamsThatFillTheBufferAreCountedAndTheRestIsCutOff) {
  // 2048 records of 32 bytes each, which fill the buffer exactly.
  std::vector<BYTE> buffer(65536);
  for (std::size_t at = 0; at < buffer.size(); at += 32) {
    PutStream(buffer, at, at + 32 == buffer.size() ? 0 : 32, 3);
  }
  const AlternateStreams streams = StreamsWith(buffer, kBufferOverflowStatus);
  EXPECT_EQ(streams.count, 2047u);
  EXPECT_EQ(streams.size, 3u * 2047);
}

TEST_F(NtfsRecords, ACutChainThatPointsPastTheBufferEndsWithIt) {
  std::vector<BYTE> buffer(65536);
  for (std::size_t at = 0; at < buffer.size(); at += 32) PutStream(buffer, at, 32, 3);
  EXPECT_EQ(StreamsWith(buffer, kBufferOverflowStatus).count, 2047u);
  // A record that starts within the last 23 bytes is ignored.
  PutStream(buffer, 65504, 24, 3);
  EXPECT_EQ(StreamsWith(buffer, kBufferOverflowStatus).count, 2047u);
  PutStream(buffer, 65504 - 32, 40, 3);
  PutStream(buffer, 65512, 0, 5);
  const AlternateStreams last = StreamsWith(buffer, kBufferOverflowStatus);
  EXPECT_EQ(last.count, 2047u);
  EXPECT_EQ(last.size, 3u * 2046 + 5);
  PutStream(buffer, 65504 - 32, 41, 3);
  EXPECT_EQ(StreamsWith(buffer, kBufferOverflowStatus).count, 2046u);
}

TEST_F(NtfsRecords, AChainThatGoesBackOrNowhereOrFarAwayEnds) {
  for (const std::uint32_t next : {0xFFFFFFD8u, 0xFFFFFFFFu, 0x80000000u, 65536u, 1u, 23u}) {
    std::vector<BYTE> buffer(65536);
    PutStream(buffer, 0, 40, 7);
    PutStream(buffer, 40, next, 5);
    const AlternateStreams streams = StreamsWith(buffer, 0);
    EXPECT_EQ(streams.count, 1u) << next;
    EXPECT_EQ(streams.size, 5u) << next;
  }
}

// Network names.

TEST_F(NtfsRecords, ANetworkNameOutsideItsBufferIsNone) {
  static const WCHAR kOutside[] = W("\\\\server\\share");
  const auto serverWith = [this](const WCHAR* text) {
    std::vector<BYTE> buffer(sizeof text);
    std::memcpy(buffer.data(), &text, sizeof text);
    Faults::Give("WNetGetUniversalNameW", buffer);
    WString server = W("none");
    EXPECT_EQ(tools_.GetServerOfDrive(server, W("Z:\\a")), server != W("none"));
    return server;
  };
  EXPECT_EQ(serverWith(kOutside), W("none"));
  EXPECT_EQ(serverWith(nullptr), W("none"));
}

TEST_F(NtfsRecords, ANetworkNameIsAskedForOnSeveralThreads) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 200;
  Faults::NameNetwork(W("\\\\server\\share"));
  Faults::Watch("WNetGetUniversalNameW");
  std::atomic<int> right = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      for (int round = 0; round < kRounds; ++round) {
        WString server;
        right += tools_.GetServerOfDrive(server, W("Z:\\a")) && server == W("server") ? 1 : 0;
        if (number == 0 && round % 10 == 0) ServerCache::Instance().Clear();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, kThreads * kRounds);
  // At most once for each thread, at the beginning and after each of the 20 clearings.
  EXPECT_GE(Faults::CallCount("WNetGetUniversalNameW"), 20);
  EXPECT_LE(Faults::CallCount("WNetGetUniversalNameW"), kThreads * 21);
}
