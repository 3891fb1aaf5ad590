// Junctions: the data of a mount point, and folders that are made junctions.
#include "filetools/junction.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes BytesOf(const MountPointRecord& record) {
  Bytes bytes(sizeof record);
  std::memcpy(bytes.data(), &record, sizeof record);
  return bytes;
}

TEST(MountPointRecordTest, IsLaidDownAsWindowsWantsIt) {
  const auto record = MakeMountPointRecord(W("\\??\\Z:\\a\u00E4"));
  ASSERT_TRUE(record);
  Bytes expected = {
      0x03, 0x00, 0x00, 0xA0,  // the reparse tag
      0x1E, 0x00, 0x00, 0x00,  // 9 characters are 18 bytes, and 12
      0x00, 0x00, 0x12, 0x00,  // the path
      0x14, 0x00, 0x00, 0x00,  // the empty print name after it
      '\\', 0,    '?',  0,    '?', 0, '\\', 0, 'Z', 0, ':', 0, '\\', 0, 'a', 0, 0xE4, 0, 0, 0, 0, 0,
  };
  EXPECT_EQ(record->Size(), 38u);
  EXPECT_EQ(expected.size(), 38u);
  expected.resize(16384);
  EXPECT_EQ(BytesOf(*record), expected);
}

TEST(MountPointRecordTest, AnEmptyPathHasOneToo) {
  const auto record = MakeMountPointRecord(W(""));
  ASSERT_TRUE(record);
  Bytes expected = {0x03, 0x00, 0x00, 0xA0, 0x0C, 0, 0, 0, 0, 0, 0, 0, 0x02, 0, 0, 0};
  expected.resize(16384);
  EXPECT_EQ(record->Size(), 20u);
  EXPECT_EQ(BytesOf(*record), expected);
}

TEST(MountPointRecordTest, ThePathThatFillsItIsTheLongest) {
  const auto record = MakeMountPointRecord(WString(8182, W('x')));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Size(), 16384u);
  const Bytes bytes = BytesOf(*record);
  EXPECT_EQ(
      Bytes(bytes.begin(), bytes.begin() + 20),
      (Bytes{0x03, 0x00, 0x00, 0xA0, 0xF8, 0x3F, 0, 0, 0, 0, 0xEC, 0x3F, 0xEE, 0x3F, 0, 0, 'x', 0, 'x', 0}));
  EXPECT_EQ(Bytes(bytes.end() - 6, bytes.end()), (Bytes{'x', 0, 0, 0, 0, 0}));
  EXPECT_FALSE(MakeMountPointRecord(WString(8183, W('x'))));
  EXPECT_FALSE(MakeMountPointRecord(WString(32000, W('x'))));
  EXPECT_FALSE(MakeMountPointRecord(WString(70000, W('x'))));
}

}  // namespace
