// Which command numbers are handled.
#include <gmock/gmock.h>

#include <limits>

#include "frame/qx_utils.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::IsEmpty;

namespace {

struct Dispatch {
  Dispatch() { extension.OnStart(&host); }
  FakeHost host;
  BoxAnswers boxes;
  CQXUtils extension;
};

}  // namespace

TEST(Dispatcher, RenameCommandsWithNothingSelectedAreHandledWithoutABox) {
  for (const s32 number : {30000, 30001, 30002, 30003, 30004, 30005, 30006, 30007, 30008, 30010, 30011, 30012,
                           30030, 30031, 30040, 30041, 30050, 30060}) {
    Dispatch run;
    EXPECT_EQ(run.extension.OnCommand(number, 0, 0), 1) << number;
    EXPECT_THAT(run.boxes.Boxes(), IsEmpty()) << number;
    EXPECT_EQ(run.host.fileOperation.Runs(), 0) << number;
    ExpectAllReleased(run.host);
  }
}

TEST(Dispatcher, RenameSameBaseIsHandledWhenItsQuestionIsCancelled) {
  Dispatch run;
  run.host.textAnswers = {{false, {}}};
  EXPECT_EQ(run.extension.OnCommand(30020, 0, 0), 1);
  EXPECT_TRUE(run.host.textAnswers.empty());
  ExpectAllReleased(run.host);
}

TEST(Dispatcher, SortLinesAndFindAndReplaceWithNothingSelectedEachShowTheirBox) {
  for (const auto& [number, box] :
       {std::pair{30150, "MessageBox(\"T01900064\", \"T02440064\", 0x00000040)"},
        std::pair{30151, "MessageBox(\"T023A0064\", \"T02440064\", 0x00000040)"}}) {
    Dispatch run;
    run.host.boxAnswers = {IDOK};
    EXPECT_EQ(run.extension.OnCommand(number, 0, 0), 1) << number;
    EXPECT_THAT(run.host.recorder.CallsOf({"MessageBox"}), testing::ElementsAre(box));
    ExpectAllReleased(run.host);
  }
}

TEST(Dispatcher, EachTransformCommandIsOfItsOwn) {
  // A name for which all transforms have different results.
  const std::pair<s32, const WCHAR*> expected[] = {
      {30000, W("A_B-C D.E.TXT")}, {30001, W("a_b-c d.e.txt")}, {30002, W("A_B-C D.E.txt")},
      {30003, W("a b-C D.e.Txt")}, {30004, W("a.b-C D.e.Txt")}, {30005, W("a_b-C_D.e.Txt")},
      {30006, W("a_b-C.D.e.Txt")}, {30007, W("a_b-C D_e.Txt")}, {30008, W("a_b-C D e.Txt")},
      {30011, W("a_b C D.e.Txt")}, {30012, W("a_b-C-D.e.Txt")}, {30030, W("A_B-C D.E.Txt")},
      {30031, W("a_b-C D.e.TXT")}, {30040, W("a_b-c d.e.Txt")}, {30041, W("a_b-C D.e.txt")},
      {30050, W("A B-C D E.txt")},
  };
  for (const auto& [number, newName] : expected) {
    FakeHost host;
    BoxAnswers boxes{IDOK};
    host.SelectFiles({W("a_b-C D.e.Txt")});
    CQXUtils extension;
    extension.OnStart(&host);
    EXPECT_EQ(extension.OnCommand(number, 0, 0), 1) << number;
    EXPECT_THAT(host.fileOperation.RunRenames(),
                testing::ElementsAre(QueuedRename{W("a_b-C D.e.Txt"), newName}))
        << number;
  }
}

TEST(Dispatcher, ShutdownAndTheEmptyCommandReturnZero) {
  Dispatch run;
  EXPECT_EQ(run.extension.OnCommand(kCommandShutdown, 1, 2), 0);
  EXPECT_EQ(run.extension.OnCommand(kCommandIgnored, 1, 2), 0);
  EXPECT_THAT(run.host.recorder.Calls(), IsEmpty());
}

TEST(Dispatcher, GapsAreNotHandledAndCallNothing) {
  std::vector<s32> gaps = {std::numeric_limits<s32>::min(),
                           -30000,
                           -1,
                           0,
                           1,
                           5000,
                           6099,
                           7101,
                           20001,
                           20003,
                           20499,
                           20501,
                           29999,
                           30009,
                           31000,
                           32000,
                           60000,
                           std::numeric_limits<s32>::max()};
  const std::pair<s32, s32> ranges[] = {{30013, 30019}, {30021, 30029}, {30032, 30039}, {30042, 30049},
                                        {30051, 30059}, {30061, 30100}, {30104, 30109}, {30111, 30149},
                                        {30152, 30199}, {30202, 30209}, {30212, 30299}, {30301, 30309},
                                        {30312, 30349}, {30351, 30999}};
  for (const auto& [first, last] : ranges) {
    for (s32 number = first; number <= last; ++number) gaps.push_back(number);
  }
  Dispatch run;
  for (const s32 number : gaps) EXPECT_EQ(run.extension.OnCommand(number, 0, 0), 0) << number;
  EXPECT_THAT(run.host.recorder.Calls(), IsEmpty());
}

TEST(Dispatcher, ValuesOfACommandAreNotRead) {
  Dispatch run;
  constexpr std::intptr_t kAnything = std::numeric_limits<std::intptr_t>::max();
  EXPECT_EQ(run.extension.OnCommand(30000, kAnything, -kAnything), 1);
  EXPECT_EQ(run.extension.OnCommand(30009, kAnything, -kAnything), 0);
  EXPECT_EQ(run.extension.OnCommand(kCommandShutdown, kAnything, -kAnything), 0);
  ExpectAllReleased(run.host);
}

TEST(Dispatcher, BeforeTheStartNoCommandIsHandled) {
  for (const s32 number : {30000, 30010, 30020, 30060, 6161, 20002, 20500}) {
    BoxAnswers boxes;
    CQXUtils extension;
    EXPECT_EQ(extension.OnCommand(number, 0, 0), 0) << number;
    EXPECT_THAT(boxes.Boxes(), IsEmpty()) << number;
  }
}

TEST(Dispatcher, NullScriptCallReturnsZero) {
  Dispatch run;
  EXPECT_EQ(run.extension.OnCustomCommand(nullptr), 0);
  EXPECT_THAT(run.host.recorder.Calls(), IsEmpty());
}
