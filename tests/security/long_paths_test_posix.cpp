// Real files with paths of the maximum length, in the native build: many functions of Windows are limited to
// 260 characters.
#include <gmock/gmock.h>

#include <sys/stat.h>

#include "security/current_user.h"
#include "security/ntfs_prop.h"
#include "security/security_commands.h"
#include "support/box_answers.h"
#include "support/real_files.h"
#include "support/security_bytes.h"

using namespace Velmora::SDK;
using testing::IsEmpty;

namespace {

class LongPaths : public testing::Test {
 protected:
  LongPaths() {
    host_.isElevated = true;
    constexpr std::size_t kFolderChars = 3950;
    while (folder_.size() + 100 < kFolderChars) folder_ += W("\\") + WString(99, W('f'));
    folder_ += W("\\");
    files_.scratch.MakeFolder(folder_.substr(files_.scratch.Path().size() + 1));
  }

  // Returns a file name with which the path has that many characters.
  WString NameFor(std::size_t pathChars) const { return WString(pathChars - folder_.size(), W('n')); }
  FakeFileItem* Make(std::size_t pathChars) {
    const WString name = NameFor(pathChars);
    files_.scratch.Write(folder_.substr(files_.scratch.Path().size() + 1) + name, "abc");
    return host_.AddFileIn(folder_, name);
  }

  RealFiles files_;
  FakeHost& host_ = files_.host;
  WString folder_ = files_.scratch.Path();
};

}  // namespace

TEST_F(LongPaths, OneOfExactly4095CharactersHasItsCells) {
  FakeFileItem* const item = Make(4095);
  ASSERT_EQ(item->FullPath().size(), 4095u);
  NTFSProp extension;
  extension.Attach(1);
  WCHAR cell[300];
  ASSERT_TRUE(extension.GetPropertyValue(item, cell, 300, kPropertyOwner));
  EXPECT_EQ(WString(cell), CurrentAccountName());
  ASSERT_TRUE(extension.GetPropertyValue(item, cell, 300, kPropertyAccess));
  EXPECT_EQ(WString(cell).substr(0, 2), W("RW"));
}

TEST_F(LongPaths, ALongerOneIsNotTakenForTheFileThatItsBeginningIs) {
  const WString beginning = Make(4095)->FullPath();
  host_.selection.push_back(host_.AddFileIn(folder_, NameFor(4096)));
  BoxAnswers boxes;
  AddAccessCommand(host_, [](IHostApp&, ChangeAccessForm& form) {
    form.userName = W("Everyone");
    form.accessMask = 0x1F01FF;
    return INT_PTR{IDOK};
  });
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_EQ(FullEntriesOfEveryone(beginning), 0);
  // The file itself, if selected, gets the entry.
  host_.selection = {host_.AddFileIn(folder_, NameFor(4095))};
  AddAccessCommand(host_, [](IHostApp&, ChangeAccessForm& form) {
    form.userName = W("Everyone");
    form.accessMask = 0x1F01FF;
    return INT_PTR{IDOK};
  });
  EXPECT_EQ(FullEntriesOfEveryone(beginning), 1);
}
