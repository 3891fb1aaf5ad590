// What a compilation copies, and which errors stop it.
#include <gmock/gmock.h>

#include <thread>

#include "multirename/rename_host.h"

namespace Velmora::SDK {
namespace {

TEST(CompileRulesTest, AnEngineBeginsWithItsDefaults) {
  const MultiRenameEngine engine(nullptr);
  EXPECT_EQ(engine.counterNext, 1u);
  EXPECT_EQ(engine.counterStep, 1u);
  EXPECT_EQ(engine.counterDigits, 2u);
  EXPECT_EQ(engine.flags, 0u);
  EXPECT_EQ(engine.status.runKind, 0u);
  EXPECT_FALSE(engine.status.HasError());
  EXPECT_FALSE(engine.busy);
}

TEST(CompileRulesTest, RulesAndRowsAreTakenOverInTheOrderOfTheList) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a"), W("b")}));
  std::swap(rules.items[0], rules.items[1]);
  rules.filenameTemplate = W("x[C]");
  rules.extensionTemplate = W("y");
  rules.startAt = W(" 7x");
  rules.stepBy = W("-2");
  rules.digits = W("four");
  rules.caseRule = 64;
  rules.searchFlags = 0x1000000 | 0x400000;
  rules.searchItems = PairsOf({{W("a"), W("b")}});
  SYSTEMTIME before;
  GetLocalTime(&before);
  ASSERT_TRUE(CompileRules(engine, rules));
  EXPECT_EQ(engine.items, rules.items);
  EXPECT_EQ(engine.filenameTags.size(), 2u);
  EXPECT_EQ(engine.extensionTags.size(), 1u);
  EXPECT_EQ(engine.counterNext, 7u);
  EXPECT_EQ(engine.counterStep, 0xFFFFFFFEu);
  EXPECT_EQ(engine.counterDigits, 0u);
  EXPECT_EQ(engine.flags, 0x1400040u);
  EXPECT_EQ(engine.searchItems, rules.searchItems);
  EXPECT_GE(engine.now.wYear, before.wYear);
}

TEST(CompileRulesTest, TheEngineKeepsTheRowsOfASetThatNobodyElseHolds) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  std::weak_ptr<MultiRenameItems> rows;
  {
    RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
    rows = rules.itemsOwner;
    ASSERT_TRUE(CompileRules(engine, rules));
  }
  EXPECT_FALSE(rows.expired());
  ASSERT_TRUE(CompileRules(engine, DefaultRules(RowsOf(host, {W("b")}))));
  EXPECT_TRUE(rows.expired());
}

TEST(CompileRulesTest, ABadExpressionLeavesTheEngineAsItWasButForItsError) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput good = DefaultRules(RowsOf(host, {W("a")}));
  ASSERT_TRUE(CompileRules(engine, good));
  RuleInput bad = DefaultRules(RowsOf(host, {W("b")}));
  bad.filenameTemplate = W("other");
  bad.searchFlags |= 0x200000;
  bad.searchItems = PairsOf({{W(""), W("")}, {W("a"), W("")}, {W("("), W("")}});
  EXPECT_FALSE(CompileRules(engine, bad));
  EXPECT_TRUE(engine.status.HasError());
  EXPECT_FALSE(engine.status.ErrorText().empty());
  EXPECT_EQ(StatusText(engine.status), engine.status.ErrorText());
  EXPECT_EQ(engine.items, good.items);
  EXPECT_EQ(engine.filenameTags.size(), 1u);
  EXPECT_EQ(engine.flags, 0x1000000u);
  // Without the flag the texts are plain text.
  bad.searchFlags = 0x1000000;
  EXPECT_TRUE(CompileRules(engine, bad));
  EXPECT_FALSE(engine.status.HasError());
  EXPECT_EQ(StatusText(engine.status), W(""));
}

TEST(CompileRulesTest, ItWaitsWhileTheEngineIsBusy) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  engine.busy = true;
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  std::atomic<bool> compiled{false};
  std::thread window([&] {
    EXPECT_TRUE(CompileRules(engine, rules));
    compiled = true;
  });
  for (int look = 0; look < 50; ++look) {
    EXPECT_FALSE(compiled);
    std::this_thread::yield();
  }
  engine.busy = false;
  window.join();
  EXPECT_TRUE(compiled);
}

TEST(CompileRulesTest, A1024CharactersOfATemplateAreRead) {
  RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate = WString(1024, W('a')) + W("b");
  rules.extensionTemplate.clear();
  EXPECT_EQ(NewNames(rules, {W("x")}).front(), WString(1024, W('a')));
}

TEST(RunStatusTest, TheStatusTextNamesTheCountsThatAreNotZero) {
  RunStatus status;
  EXPECT_EQ(StatusText(status), W(""));
  status.BeginRun(kRenameRun);
  EXPECT_EQ(StatusText(status), W(""));
  for (const u32 code : {0u, 0u, 10u, 5u, 183u, 0u}) status.CountResult(code);
  EXPECT_EQ(StatusText(status), W("3 Renamed, 1 Ignored, 2 Failed"));
  status.BeginRun(kRestoreRun);
  status.CountResult(10);
  EXPECT_EQ(StatusText(status), W("1 Ignored"));
  status.CountResult(0);
  EXPECT_EQ(StatusText(status), W("1 Restored, 1 Ignored"));
  status.SetError(W("bad"));
  EXPECT_EQ(StatusText(status), W("bad"));
  status.BeginRun(kRenameRun);
  status.CountResult(5);
  EXPECT_EQ(StatusText(status), W("1 Failed"));
}

}  // namespace
}  // namespace Velmora::SDK
