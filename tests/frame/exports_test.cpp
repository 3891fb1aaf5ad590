// Create and Delete: which objects exist, and when they are deleted.
#include <gmock/gmock.h>

#include <cstring>
#include <limits>

#include "frame/host/command_numbers.h"
#include "frame/host/extension_info.h"
#include "frame/qx_utils.h"
#include "frame/services/extension_ids.h"
#include "multirename/window/qx_multi_rename.h"
#include "security/ntfs_prop.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

namespace {

IPluginInterface* Plugin(void* object) { return static_cast<IPluginInterface*>(object); }
IFileProperties* Properties(void* object) { return static_cast<IFileProperties*>(object); }

constexpr s32 kWrongIndices[] = {-1, 3, 7, std::numeric_limits<s32>::min(), std::numeric_limits<s32>::max()};

}  // namespace

TEST(Create, GivesTheObjectOfEachIndexAsItsBaseClass) {
  void* const fileUtils = Create(0);
  void* const properties = Create(1);
  void* const multiRename = Create(2);
  ASSERT_NE(fileUtils, nullptr);
  ASSERT_NE(properties, nullptr);
  ASSERT_NE(multiRename, nullptr);
  EXPECT_STREQ(Plugin(fileUtils)->GetExtensionId(), "3f93229334d648ab8dcc1eb4f62b8ef7");
  EXPECT_STREQ(Properties(properties)->GetProviderId(), "0305E12E5E9B4B2A9278C76F80AC321B");
  EXPECT_STREQ(Plugin(multiRename)->GetExtensionId(), "338f59b3448642bf9f3ad7bafb4fae2b");
  EXPECT_NE(dynamic_cast<CQXUtils*>(Plugin(fileUtils)), nullptr);
  EXPECT_NE(dynamic_cast<NTFSProp*>(Properties(properties)), nullptr);
  EXPECT_NE(dynamic_cast<QXMultiRename*>(Plugin(multiRename)), nullptr);
  EXPECT_TRUE(Delete(fileUtils, 0));
  EXPECT_TRUE(Delete(properties, 1));
  EXPECT_TRUE(Delete(multiRename, 2));
}

TEST(Create, IndexWithoutAnExtensionGivesNull) {
  for (const s32 index : kWrongIndices) EXPECT_EQ(Create(index), nullptr) << index;
}

TEST(Create, GivesANewObjectEachTime) {
  void* const one = Create(0);
  void* const other = Create(0);
  EXPECT_NE(one, other);
  EXPECT_TRUE(Delete(one, 0));
  EXPECT_TRUE(Delete(other, 0));
}

TEST(Create, FileUtilsAndNtfsPropertiesHoldOneFieldThatIsZero) {
  static_assert(sizeof(CQXUtils) == 2 * sizeof(void*));
  static_assert(sizeof(NTFSProp) == 2 * sizeof(void*));
  for (const s32 index : {0, 1}) {
    void* const object = Create(index);
    ASSERT_NE(object, nullptr);
    std::uint64_t field = 1;
    std::memcpy(&field, static_cast<const char*>(object) + sizeof(void*), sizeof field);
    EXPECT_EQ(field, 0u) << index;
    EXPECT_TRUE(Delete(object, index));
  }
}

TEST(Delete, NullObjectIsRefused) {
  for (const s32 index : {0, 1, 2, 3, -1}) EXPECT_FALSE(Delete(nullptr, index)) << index;
}

TEST(Delete, IndexWithoutAnExtensionFreesNothing) {
  void* const object = Create(0);
  for (const s32 index : kWrongIndices) EXPECT_FALSE(Delete(object, index)) << index;
  // The object still exists and works.
  FakeHost host;
  EXPECT_EQ(Plugin(object)->GetExtensionKind(), 8192u);
  EXPECT_EQ(Plugin(object)->OnStart(&host), 1);
  EXPECT_EQ(Plugin(object)->OnCommand(kCommandUpperCase, 0, 0), 1);
  EXPECT_TRUE(Delete(object, 0));
}

TEST(Delete, ObjectOfTheOtherPluginReturnsTrueAndFreesNothing) {
  void* const fileUtils = Create(0);
  void* const multiRename = Create(2);
  EXPECT_TRUE(Delete(fileUtils, 2));
  EXPECT_TRUE(Delete(multiRename, 0));
  EXPECT_STREQ(Plugin(fileUtils)->GetExtensionId(), "3f93229334d648ab8dcc1eb4f62b8ef7");
  EXPECT_STREQ(Plugin(multiRename)->GetExtensionId(), "338f59b3448642bf9f3ad7bafb4fae2b");
  EXPECT_TRUE(Delete(fileUtils, 0));
  EXPECT_TRUE(Delete(multiRename, 2));
}

TEST(ExtensionId, IsTheStorageThatTheRecordIsCopiedFrom) {
  void* const fileUtils = Create(0);
  void* const properties = Create(1);
  void* const multiRename = Create(2);
  EXPECT_EQ(Plugin(fileUtils)->GetExtensionId(), fileUtilsId);
  EXPECT_EQ(Properties(properties)->GetProviderId(), ntfsPropertiesId);
  EXPECT_EQ(Plugin(multiRename)->GetExtensionId(), multiRenameId);
  EXPECT_TRUE(Delete(fileUtils, 0));
  EXPECT_TRUE(Delete(properties, 1));
  EXPECT_TRUE(Delete(multiRename, 2));
}
