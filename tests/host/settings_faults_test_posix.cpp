// If the disk is full or fails, the previous settings remain.
#include <gmock/gmock.h>

#include "host/services/settings.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace QxHost {
namespace {

class SettingsFaults : public testing::Test {
 protected:
  void SetUp() override { scratch_.Write(W("settings.json"), kBefore); }

  void ChangeAndSave() {
    SettingsFiles files(scratch_.Path(), [this](const std::string& text) { warnings_ += text; });
    Settings(files, "M").SetInt(1, W("S"), W("k"), 2);
    arm_();
    files.Save();
    Platform::Faults::Clear();
  }

  static constexpr const char* kBefore = R"({"M": {"S": {"k": 1}}})";
  const Platform::Faults::Scope faults_;
  ScratchFolder scratch_;
  std::string warnings_;
  std::function<void()> arm_;
};

TEST_F(SettingsFaults, AFullDiskLeavesTheOldFileAndNoOther) {
  arm_ = [] { Platform::Faults::Fail("WriteFile", 1, ERROR_DISK_FULL); };
  ChangeAndSave();
  EXPECT_THAT(warnings_, HasSubstr("(112)"));
  EXPECT_EQ(scratch_.Read(W("settings.json")), kBefore);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("settings.json")));
}

TEST_F(SettingsFaults, ANewFileThatCannotBeMadeLeavesTheOldOne) {
  arm_ = [] { Platform::Faults::Fail("CreateFileW", 1, ERROR_ACCESS_DENIED); };
  ChangeAndSave();
  EXPECT_THAT(warnings_, HasSubstr("(5)"));
  EXPECT_EQ(scratch_.Read(W("settings.json")), kBefore);
}

TEST_F(SettingsFaults, AShortWriteIsGoneOnWith) {
  arm_ = [] { Platform::Faults::WriteShort(1, 3); };
  ChangeAndSave();
  EXPECT_EQ(warnings_, "");
  EXPECT_THAT(scratch_.Read(W("settings.json")), HasSubstr("\"k\": 2"));
}

TEST_F(SettingsFaults, AFileThatCannotBeReadIsNotWrittenOver) {
  Platform::Faults::Fail("ReadFile", 1, ERROR_IO_DEVICE);
  arm_ = [] {};
  ChangeAndSave();
  EXPECT_THAT(warnings_, HasSubstr("nothing will be saved there"));
  EXPECT_EQ(scratch_.Read(W("settings.json")), kBefore);
}

}  // namespace
}  // namespace QxHost
