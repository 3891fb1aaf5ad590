// GetExtensionInfo: the record of each extension, byte by byte.
#include "frame/host/extension_info.h"

#include <gmock/gmock.h>

#include <cstring>
#include <vector>

#include "frame/services/extension_ids.h"
#include "platform/text.h"

using namespace Velmora::SDK;

namespace {

constexpr std::size_t kRecordSize = 5480;
constexpr unsigned char kUntouched = 0xCD;

using Bytes = std::vector<unsigned char>;

// Stores ASCII text as UTF-16, padded with zeros up to the copy limit.
void PutWide(Bytes& record, std::size_t offset, std::size_t limit, const std::string& text) {
  for (std::size_t i = 0; i < limit; ++i) {
    record[offset + 2 * i] = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    record[offset + 2 * i + 1] = 0;
  }
}

void PutNarrow(Bytes& record, std::size_t offset, std::size_t limit, const std::string& text) {
  for (std::size_t i = 0; i < limit; ++i) {
    record[offset + i] = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
  }
}

void PutU32(Bytes& record, std::size_t offset, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) record[offset + i] = static_cast<unsigned char>(value >> (8 * i));
}

struct ExpectedInfo {
  std::string name, description, moduleName, version, id;
  std::uint32_t kindFlags, orderValue;
};

const ExpectedInfo kExpected[] = {
    {"File Utils",
     "File Utilities like XML conversion, Base64 conversion, File security tools, Link Tools, Quick rename "
     "commands, ...",
     "QXUtils", "1.3.0.0", "3f93229334d648ab8dcc1eb4f62b8ef7", 0x2100, 700},
    {"NTFS Properties", "Show NTFS/File Security Properties", "NTFSProp", "1.0.0.0",
     "0305E12E5E9B4B2A9278C76F80AC321B", 0x202800, 300},
    {"Multi Rename", "MultiRename can rename multiple files using rules and filters", "QXMultiRename",
     "1.0.0.0", "338f59b3448642bf9f3ad7bafb4fae2b", 0x2100, 710},
};

// Returns the expected record. The author (200 to 399) and the web address (400 to 599) are not tested,
// because their texts may change.
Bytes ExpectedRecord(const ExpectedInfo& info) {
  Bytes record(kRecordSize, kUntouched);
  PutWide(record, 0, 100, info.name);
  PutWide(record, 600, 160, info.description);
  PutWide(record, 1100, 100, info.moduleName);
  PutNarrow(record, 1300, 10, info.version);
  PutNarrow(record, 1310, 34, info.id);
  PutU32(record, 1344, info.kindFlags);
  PutU32(record, 1348, 1830000);
  PutU32(record, 1352, info.orderValue);
  return record;
}

struct Answer {
  bool ok;
  Bytes record;
};

Answer Ask(u32 index) {
  auto info = std::make_unique<ExtensionInfo>();
  std::memset(info.get(), kUntouched, sizeof *info);
  const bool ok = GetExtensionInfo(index, info.get());
  Bytes record(kRecordSize);
  std::memcpy(record.data(), info.get(), kRecordSize);
  return {ok, record};
}

Bytes Range(const Bytes& record, std::size_t offset, std::size_t size) {
  return Bytes(record.begin() + static_cast<std::ptrdiff_t>(offset),
               record.begin() + static_cast<std::ptrdiff_t>(offset + size));
}

// Clears the two fields whose texts may change.
Bytes WithoutFreeTexts(Bytes record) {
  std::fill(record.begin() + 200, record.begin() + 600, static_cast<unsigned char>(0));
  return record;
}

void ExpectSameBytes(const Bytes& actual, const Bytes& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    ASSERT_EQ(actual[i], expected[i]) << "at offset " << i;
  }
}

}  // namespace

static_assert(sizeof(ExtensionInfo) == kRecordSize);

TEST(GetExtensionInfo, FileUtilsRecordIsAsTabledAndLeavesAllOtherBytes) {
  const Answer answer = Ask(0);
  EXPECT_TRUE(answer.ok);
  ExpectSameBytes(WithoutFreeTexts(answer.record), WithoutFreeTexts(ExpectedRecord(kExpected[0])));
}

TEST(GetExtensionInfo, NtfsPropertiesRecordAlsoClearsTheExtraFields) {
  Bytes expected = ExpectedRecord(kExpected[1]);
  PutWide(expected, 1376, 512, "");
  PutWide(expected, 2400, 512, "");
  PutU32(expected, 5472, 0);
  PutU32(expected, 5476, 0);
  const Answer answer = Ask(1);
  EXPECT_TRUE(answer.ok);
  ExpectSameBytes(WithoutFreeTexts(answer.record), WithoutFreeTexts(expected));
}

TEST(GetExtensionInfo, MultiRenameRecordIsAsTabledAndLeavesAllOtherBytes) {
  const Answer answer = Ask(2);
  EXPECT_TRUE(answer.ok);
  ExpectSameBytes(WithoutFreeTexts(answer.record), WithoutFreeTexts(ExpectedRecord(kExpected[2])));
}

TEST(GetExtensionInfo, AuthorAndWebAddressAreTheModulesOwnAndPadded) {
  const Answer first = Ask(0);
  for (const std::size_t offset : {std::size_t{200}, std::size_t{400}}) {
    const Bytes field = Range(first.record, offset, 200);
    std::size_t length = 0;
    while (length < 100 && (field[2 * length] != 0 || field[2 * length + 1] != 0)) ++length;
    EXPECT_GT(length, 0u);
    for (std::size_t i = 2 * length; i < 200; ++i) EXPECT_EQ(field[i], 0) << "at " << offset + i;
    EXPECT_EQ(Range(Ask(1).record, offset, 200), field);
    EXPECT_EQ(Range(Ask(2).record, offset, 200), field);
  }
}

TEST(GetExtensionInfo, DescriptionStopsAt160CharactersAndTheRestOfItsFieldStays) {
  for (u32 index = 0; index < 3; ++index) {
    const Bytes rest = Range(Ask(index).record, 600 + 320, 500 - 320);
    EXPECT_EQ(rest, Bytes(180, kUntouched)) << "index " << index;
  }
}

TEST(GetExtensionInfo, NoSuchIndexLeavesTheRecordAsItWas) {
  for (const u32 index : {3u, 4u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    const Answer answer = Ask(index);
    EXPECT_FALSE(answer.ok) << index;
    EXPECT_EQ(answer.record, Bytes(kRecordSize, kUntouched)) << index;
  }
}

TEST(GetExtensionInfo, NullRecordIsRefused) {
  for (const u32 index : {0u, 1u, 2u, 3u}) EXPECT_FALSE(GetExtensionInfo(index, nullptr)) << index;
}

TEST(GetExtensionInfo, CopiesTheIdFromTheModulesWritableStorage) {
  char* const ids[] = {fileUtilsId, ntfsPropertiesId, multiRenameId};
  for (u32 index = 0; index < 3; ++index) {
    const char before = ids[index][0];
    ids[index][0] = 'x';
    EXPECT_EQ(Ask(index).record[1310], 'x') << index;
    ids[index][0] = before;
  }
}

TEST(CopyPadded, CutsAtTheLimitWithoutATerminator) {
  WCHAR field[250];
  std::fill(std::begin(field), std::end(field), W('?'));
  CopyPadded(field, 160, WStringView(WString(200, W('d'))));
  EXPECT_EQ(WString(field, 250), WString(160, W('d')) + WString(90, W('?')));
}

TEST(CopyPadded, PadsWithZerosUpToTheLimitAndNoFurther) {
  char field[] = "????????";
  CopyPadded(field, 6, std::string_view("ab"));
  EXPECT_EQ(std::string(field, 8), std::string("ab\0\0\0\0??", 8));
}

TEST(CopyPadded, TextOfExactlyTheLimitHasNoTerminator) {
  char field[] = "????";
  CopyPadded(field, 3, std::string_view("abc"));
  EXPECT_EQ(std::string(field, 4), "abc?");
}
