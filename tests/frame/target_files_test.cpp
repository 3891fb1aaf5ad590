// The paths of targets, and the question about an existing one.
#include "frame/services/target_files.h"

#include <gmock/gmock.h>

#include "frame/services/path_exists.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr TextId kTitle = 0x12340064;
constexpr char kQuestion[] = "MessageBox(\"T12340064\", \"T023F0064\", 0x00000023)";

std::vector<std::string> Boxes(const FakeHost& host) { return host.recorder.CallsOf({"MessageBox("}); }

}  // namespace

TEST(PathExists, IsTrueForFilesAndFolders) {
  const ScratchFolder scratch;
  EXPECT_TRUE(PathExists(scratch.Write(W("a.txt"), "")));
  EXPECT_TRUE(PathExists(scratch.Path()));
  EXPECT_TRUE(PathExists(scratch.Path() + W("\\")));
  EXPECT_FALSE(PathExists(scratch.Path(W("none"))));
}

TEST(PathOf, GivesEachPathOfAnItem) {
  FakeHost host;
  FakeFileItem* const item = host.AddFileIn(W("Z:\\folder\\"), W("a.txt"));
  EXPECT_EQ(PathOf(*item, &IHostFileItem::GetFullPath), W("Z:\\folder\\a.txt"));
  EXPECT_EQ(PathOf(*item, &IHostFileItem::GetFolderPath), W("Z:\\folder"));
  EXPECT_EQ(PathOf(*item, &IHostFileItem::GetParentPath), W("Z:\\folder\\"));
  ExpectAllReleased(host);
}

TEST(PathOf, PathsOfThousandsOfCharactersAreWhole) {
  FakeHost host;
  const WString folder = W("Z:\\") + WString(30000, W('f')) + W("\\");
  FakeFileItem* const item = host.AddFileIn(folder, W("a.txt"));
  EXPECT_EQ(PathOf(*item, &IHostFileItem::GetFullPath), folder + W("a.txt"));
}

TEST(TargetPath, IsTheNameByThePatternInTheFolder) {
  FakeHost host;
  FakeFileItem* const item = host.AddFileIn(W("Z:\\x\\"), W("a.txt"));
  EXPECT_EQ(TargetPath(W("Z:\\folder"), *item, W("*.new")), W("Z:\\folder\\a.new"));
  EXPECT_EQ(TargetPath(W("Z:\\folder\\"), *item, W("*.*")), W("Z:\\folder\\a.txt"));
  EXPECT_EQ(TargetPath(W("Z:\\folder"), *item, W("")), W("Z:\\folder\\"));
}

TEST(AskAboutTarget, TargetThatIsNotThereIsFreeWithoutAQuestion) {
  const ScratchFolder scratch;
  for (const bool isSilent : {false, true}) {
    for (const bool mayOverwrite : {false, true}) {
      FakeHost host;
      EXPECT_EQ(AskAboutTarget(host, scratch.Path(W("none")), {kTitle, isSilent, mayOverwrite}),
                TargetAnswer::kFree);
      EXPECT_THAT(Boxes(host), IsEmpty());
    }
  }
}

TEST(AskAboutTarget, SilentRunUsesItsDefaultAnswer) {
  const ScratchFolder scratch;
  const WString target = scratch.Write(W("a.txt"), "");
  FakeHost host;
  EXPECT_EQ(AskAboutTarget(host, target, {kTitle, true, false}), TargetAnswer::kSkip);
  EXPECT_EQ(AskAboutTarget(host, target, {kTitle, true, true}), TargetAnswer::kReplace);
  EXPECT_THAT(Boxes(host), IsEmpty());
}

TEST(AskAboutTarget, UserIsAskedWhateverMayBeOverwritten) {
  const ScratchFolder scratch;
  const WString target = scratch.Write(W("a.txt"), "");
  const std::pair<int, TargetAnswer> answers[] = {{IDYES, TargetAnswer::kReplace},
                                                  {IDNO, TargetAnswer::kSkip},
                                                  {IDCANCEL, TargetAnswer::kCancel},
                                                  {0, TargetAnswer::kCancel}};
  for (const auto& [button, answer] : answers) {
    for (const bool mayOverwrite : {false, true}) {
      FakeHost host;
      host.boxAnswers = {button};
      EXPECT_EQ(AskAboutTarget(host, target, {kTitle, false, mayOverwrite}), answer) << button;
      EXPECT_THAT(Boxes(host), ElementsAre(kQuestion));
      ExpectAllReleased(host);
    }
  }
}
