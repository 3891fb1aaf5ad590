// The properties that the host provides for a file, and their list.
#include "host/services/file_properties.h"

#include <gmock/gmock.h>

#include <ctime>

#include "frame/host/host_objects.h"
#include "host/system/paths.h"
#include "support/scratch_folder.h"

using testing::AnyOf;
using testing::ElementsAre;
using Velmora::SDK::FilePropertyValue;

namespace QxHost {
namespace {

class FilePropertiesTest : public testing::Test {
 protected:
  std::string Text(const WCHAR* name, const WString& path) {
    WCHAR buffer[256] = {};
    FilePropertyValue value;
    return properties_.GetValue(buffer, 256, name, &value, path.c_str()) == 0 ? "nothing" : ToUtf8(buffer);
  }

  ScratchFolder scratch_;
  FileProperties properties_;
};

TEST_F(FilePropertiesTest, ASizeIsTheNumberOfBytesAndAFolderHasNone) {
  const WString file = scratch_.Write(W("a.txt"), "12345");
  EXPECT_EQ(Text(W("size"), file), "5");
  EXPECT_EQ(Text(W("SIZE"), file), "5");
  EXPECT_EQ(Text(W("size"), scratch_.MakeFolder(W("folder"))), "nothing");
}

TEST_F(FilePropertiesTest, AttributesAreLetters) {
  EXPECT_EQ(Text(W("attributes"), scratch_.MakeFolder(W("folder"))), "D");
  const WString file = scratch_.Write(W("a.txt"), "");
  ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));
  EXPECT_EQ(Text(W("attributes"), file), "RA");
  ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_ARCHIVE));
  EXPECT_EQ(Text(W("attributes"), file), "A");
}

TEST_F(FilePropertiesTest, ADateIsInTheRecordAndOnTheClockOfTheWall) {
  const std::time_t before = std::time(nullptr);
  const WString file = scratch_.Write(W("a.txt"), "");
  WCHAR buffer[256] = {W('x')};
  FilePropertyValue value;
  ASSERT_EQ(properties_.GetValue(buffer, 256, W("modified"), &value, file.c_str()), 1u);
  EXPECT_EQ(buffer[0], WCHAR());
  const FILETIME ticks{static_cast<DWORD>(value.date), static_cast<DWORD>(value.date >> 32)};
  SYSTEMTIME shown{};
  ASSERT_TRUE(FileTimeToSystemTime(&ticks, &shown));
  const auto hour = [](std::time_t seconds) {
    const std::tm wall = *std::localtime(&seconds);
    return std::vector<int>{wall.tm_year + 1900, wall.tm_mon + 1, wall.tm_mday, wall.tm_hour};
  };
  // A new hour may begin between the two readings of the clock.
  EXPECT_THAT((std::vector<int>{shown.wYear, shown.wMonth, shown.wDay, shown.wHour}),
              AnyOf(hour(before), hour(std::time(nullptr))));
}

TEST_F(FilePropertiesTest, AnUnknownPropertyAndAMissingFileHaveNoValue) {
  EXPECT_EQ(Text(W("colour"), scratch_.Write(W("a.txt"), "")), "nothing");
  EXPECT_EQ(Text(W("size"), scratch_.Path(W("missing"))), "nothing");
}

TEST_F(FilePropertiesTest, AnExtensionsPropertyJoinsTheHostsOwn) {
  properties_.Add({W("owner"), W("Owner"), [](const WString&) { return PropertyValue(WString(W("anna"))); }});
  EXPECT_EQ(Text(W("owner"), W("Z:\\nowhere")), "anna");
  WCHAR shortBuffer[3] = {};
  FilePropertyValue value;
  EXPECT_EQ(properties_.GetValue(shortBuffer, 3, W("owner"), &value, W("Z:\\x")), 1u);
  EXPECT_EQ(WString(shortBuffer), W("an"));

  const Velmora::SDK::HostObject<PropertyList> list(PropertyList::Lend());
  properties_.ListProperties(list.Get(), 0);
  std::vector<std::string> names;
  for (u32 index = 0; index < list->Count(); ++index) {
    WCHAR name[1024] = {};
    WCHAR display[1024] = {};
    ASSERT_TRUE(list->At(index, name, display, 1024));
    names.push_back(ToUtf8(name));
    EXPECT_NE(WString(display), W(""));
  }
  EXPECT_THAT(names, ElementsAre("size", "created", "modified", "accessed", "attributes", "owner"));
  WCHAR name[4] = {};
  EXPECT_FALSE(list->At(6, name, name, 4));
}

}  // namespace
}  // namespace QxHost
