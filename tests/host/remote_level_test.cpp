// Which items are on another machine.
#include "host/system/remote_level.h"

#include <gtest/gtest.h>

#include "host/services/file_item.h"
#include "support/scratch_folder.h"

namespace QxHost {
namespace {

TEST(RemoteLevel, IsOneOnAServerAndOnADriveOfTheNetwork) {
  const auto never = [](const WString&) { return false; };
  const auto onlyQ = [](const WString& drive) { return drive == W("Q:"); };
  EXPECT_EQ(RemoteLevelOfRoot(W("\\\\server\\share"), never), 1);
  EXPECT_EQ(RemoteLevelOfRoot(W("Q:"), onlyQ), 1);
  EXPECT_EQ(RemoteLevelOfRoot(W("Z:"), onlyQ), 0);
  EXPECT_EQ(RemoteLevelOfRoot(W("Q:"), never), 0);
}

TEST(RemoteLevel, OfAServerTheSystemIsNotAsked) {
  EXPECT_EQ(RemoteLevelOfRoot(W("\\\\server\\share"),
                              [](const WString&) {
                                ADD_FAILURE() << "asked";
                                return false;
                              }),
            1);
}

TEST(RemoteLevel, ADriveOfThisMachineIsNone) {
  const ScratchFolder scratch;
  EXPECT_FALSE(IsNetworkDrive(scratch.Path().substr(0, 2)));
  EXPECT_FALSE(IsNetworkDrive(W("0:")));
}

TEST(RemoteLevel, OfAnItemIsThatOfItsRoot) {
  FileItemTree items;
  EXPECT_EQ(items.Follow(W("\\\\server\\share\\sub\\a.txt")).GetRemoteLevel(), 1);
  EXPECT_EQ(items.Follow(W("\\\\server\\share\\a.txt")).GetRemoteLevel(), 1);
  EXPECT_EQ(items.Follow(W("Z:\\sub\\a.txt")).GetRemoteLevel(), 0);
}

}  // namespace
}  // namespace QxHost
