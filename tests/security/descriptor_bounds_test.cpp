// Checks that parts of security descriptors are inside their bytes. The buffers have exact sizes, so that
// sanitizers detect reads beyond them.
#include "security/descriptor_bounds.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "support/descriptor_bytes.h"
#include "support/security_bytes.h"

namespace {

// Returns a SID with that many subauthorities, cut to the given size.
std::vector<BYTE> SidOfNumbers(BYTE numbers, std::size_t bytes) {
  std::vector<BYTE> sid(bytes);
  const std::array<BYTE, 8> header = {1, numbers, 0, 0, 0, 0, 0, 5};
  std::memcpy(sid.data(), header.data(), std::min(bytes, header.size()));
  return sid;
}

template <typename T>
const T* At(const std::vector<BYTE>& bytes, std::size_t offset) {
  return reinterpret_cast<const T*>(bytes.data() + offset);
}

}  // namespace

TEST(DescriptorBounds, ADescriptorHasItsTwentyBytes) {
  EXPECT_FALSE(ContainsDescriptor({}));
  EXPECT_FALSE(ContainsDescriptor(std::vector<BYTE>(19)));
  EXPECT_TRUE(ContainsDescriptor(std::vector<BYTE>(20)));
}

TEST(DescriptorBounds, ASidIsWholeWithAllItsNumbers) {
  for (const int numbers : {0, 1, 2, 15, 255}) {
    const std::size_t whole = 8 + 4 * static_cast<std::size_t>(numbers);
    const std::vector<BYTE> enough = SidOfNumbers(static_cast<BYTE>(numbers), whole);
    const std::vector<BYTE> cut = SidOfNumbers(static_cast<BYTE>(numbers), whole - 1);
    EXPECT_TRUE(ContainsSid(enough, enough.data())) << numbers;
    EXPECT_FALSE(ContainsSid(cut, cut.data())) << numbers;
  }
}

TEST(DescriptorBounds, ASidOf255NumbersInAShortRecordIsNone) {
  const std::vector<BYTE> record = SidOfNumbers(255, 28);
  EXPECT_FALSE(ContainsSid(record, record.data()));
}

TEST(DescriptorBounds, ASidInTheLastSevenBytesIsNone) {
  // Zeros, the beginning of a SID without subauthorities.
  const std::vector<BYTE> record(40);
  for (std::size_t left = 0; left <= 7; ++left)
    EXPECT_FALSE(ContainsSid(record, &record[0] + 40 - left)) << left;
  EXPECT_TRUE(ContainsSid(record, &record[0] + 40 - 8));
}

TEST(DescriptorBounds, WhatLiesOutsideTheRecordIsNone) {
  // A complete SID and a complete list before and after the record.
  std::vector<BYTE> memory(120);
  const std::vector<BYTE> sid = EveryoneSid();
  const std::vector<BYTE> list = ListBytes(8, 0);
  for (const std::size_t place : {std::size_t{0}, std::size_t{80}}) {
    std::memcpy(&memory[place], sid.data(), sid.size());
    std::memcpy(&memory[place + 12], list.data(), list.size());
  }
  const std::span<const BYTE> record = std::span<const BYTE>(memory).subspan(40, 40);
  for (const std::size_t place : {std::size_t{0}, std::size_t{80}}) {
    EXPECT_FALSE(ContainsSid(record, &memory[place])) << place;
    EXPECT_FALSE(ContainsList(record, At<ACL>(memory, place + 12))) << place;
  }
  EXPECT_FALSE(ContainsSid(record, nullptr));
  EXPECT_FALSE(ContainsList(record, nullptr));
  EXPECT_FALSE(ContainsSid({}, sid.data()));
  const void* const last = reinterpret_cast<const void*>(std::numeric_limits<std::uintptr_t>::max());
  EXPECT_FALSE(ContainsSid(record, last));
  EXPECT_FALSE(ContainsList(record, static_cast<const ACL*>(last)));
}

TEST(DescriptorBounds, AListIsAsLargeAsItSays) {
  const std::vector<BYTE> entries(12);
  for (const auto& [size, isHeld] : {std::pair<int, bool>{0, false},
                                     {1, false},
                                     {7, false},
                                     {8, true},
                                     {19, true},
                                     {20, true},
                                     {21, false},
                                     {0xFFFF, false}}) {
    const std::vector<BYTE> record = ListBytes(static_cast<WORD>(size), 0, entries);
    EXPECT_EQ(ContainsList(record, At<ACL>(record, 0)), isHeld) << size;
  }
}

TEST(DescriptorBounds, AListWhoseHeaderIsCutIsNone) {
  const std::vector<BYTE> list = ListBytes(8, 0);
  for (std::size_t left = 0; left < list.size(); ++left) {
    const std::vector<BYTE> record(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(left));
    EXPECT_FALSE(ContainsList(record, At<ACL>(record, 0))) << left;
  }
}

TEST(DescriptorBounds, AListMayLieAtAnOddAddress) {
  std::vector<BYTE> record(1);
  const std::vector<BYTE> list = ListBytes(8, 0);
  record.insert(record.end(), list.begin(), list.end());
  EXPECT_TRUE(ContainsList(record, At<ACL>(record, 1)));
}

TEST(DescriptorBounds, AnEntryIsAsLargeAsItSaysWithinWhatItsListUses) {
  const std::vector<BYTE> sid = EveryoneSid();
  for (const auto& [size, isHeld] : {std::pair<int, bool>{0, false},
                                     {1, false},
                                     {3, false},
                                     {4, true},
                                     {20, true},
                                     {21, false},
                                     {0xFFFF, false}}) {
    const std::vector<BYTE> list = ListBytes(28, 1, EntryBytes(static_cast<WORD>(size), sid));
    ASSERT_EQ(list.size(), 28u);
    EXPECT_EQ(ContainsEntry(At<ACL>(list, 0), 28, At<ACE_HEADER>(list, 8)), isHeld) << size;
  }
}

TEST(DescriptorBounds, AnEntryBeyondWhatItsListUsesIsNone) {
  const std::vector<BYTE> list = ListBytes(28, 1, EntryBytes(20, EveryoneSid()));
  EXPECT_TRUE(ContainsEntry(At<ACL>(list, 0), 28, At<ACE_HEADER>(list, 8)));
  EXPECT_FALSE(ContainsEntry(At<ACL>(list, 0), 27, At<ACE_HEADER>(list, 8)));
  EXPECT_FALSE(ContainsEntry(At<ACL>(list, 0), 11, At<ACE_HEADER>(list, 8)));  // its header is truncated
  EXPECT_FALSE(ContainsEntry(At<ACL>(list, 0), 28, At<ACE_HEADER>(list, 25)));
  EXPECT_FALSE(ContainsEntry(At<ACL>(list, 0), 28, At<ACE_HEADER>(list, 28)));
  const std::vector<BYTE> other = EntryBytes(4, {});
  EXPECT_FALSE(ContainsEntry(At<ACL>(list, 0), 28, At<ACE_HEADER>(other, 0)));
}
