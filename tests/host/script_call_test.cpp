// Building a call of a script command from the arguments.
#include "host/services/script_call.h"

#include <gmock/gmock.h>

#include "host/output/failures.h"
#include "support/scratch_folder.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace QxHost {
namespace {

DeclaredScriptCommand Command() {
  DeclaredScriptCommand command("Sort", 77);
  command.SetDescription(W("Sorts"));
  command.AddParameter("FILE", 0x1020, W("The file"));
  command.AddParameter("WORD", 0x20, W("A word"));
  command.AddParameter("COUNT", 0x40, W("A number"));
  command.AddParameter("QUIET", 0x10, W("A switch"));
  return command;
}

std::string Refusal(const std::vector<std::string>& arguments) {
  const DeclaredScriptCommand command = Command();
  try {
    const ScriptCall call(command, arguments);
  } catch (const BadCall& refusal) {
    return refusal.what();
  }
  return "was not refused";
}

TEST(ScriptCall, GivesWhatWasGiven) {
  const DeclaredScriptCommand command = Command();
  ScriptCall call(command, {"FILE=/a/b.txt", "WORD=x=y", "COUNT= 12", "QUIET"});
  EXPECT_EQ(call.GetCommandId(), 77u);
  EXPECT_EQ(WString(call.GetValue("FILE")), W("Z:\\a\\b.txt"));
  EXPECT_EQ(WString(call.GetValue("WORD")), W("x=y"));
  EXPECT_EQ(WString(call.GetValue("COUNT")), W(" 12"));
  EXPECT_EQ(call.GetValue("QUIET"), nullptr);
  for (const char* name : {"FILE", "WORD", "COUNT", "QUIET"}) EXPECT_TRUE(call.HasFlag(name)) << name;
}

TEST(ScriptCall, HasNothingElse) {
  const DeclaredScriptCommand command = Command();
  ScriptCall call(command, {"FILE=/a"});
  for (const char* name : {"WORD", "COUNT", "QUIET", "OTHER", "file", ""}) {
    EXPECT_FALSE(call.HasFlag(name)) << name;
    EXPECT_EQ(call.GetValue(name), nullptr) << name;
  }
  EXPECT_FALSE(call.HasFlag(nullptr));
  EXPECT_EQ(call.GetValue(nullptr), nullptr);
}

TEST(ScriptCall, MissesADeclaredParameterThatIsNotGiven) {
  const DeclaredScriptCommand command = Command();
  const ScriptCall call(command, {"FILE=/a", "QUIET"});
  EXPECT_TRUE(call.Misses("WORD"));
  EXPECT_FALSE(call.Misses("FILE"));
  EXPECT_FALSE(call.Misses("QUIET"));
  EXPECT_FALSE(call.Misses("OTHER"));
  EXPECT_FALSE(ScriptCall(command, {"FILE=/a", "word="}).Misses("WORD"));
}

TEST(ScriptCall, AnEmptyValueIsOne) {
  const DeclaredScriptCommand command = Command();
  ScriptCall call(command, {"FILE=/a", "WORD="});
  ASSERT_NE(call.GetValue("WORD"), nullptr);
  EXPECT_EQ(WString(call.GetValue("WORD")), W(""));
  EXPECT_TRUE(call.HasFlag("WORD"));
}

TEST(ScriptCall, KeysIgnoreCaseAndValuesKeepTheirs) {
  const DeclaredScriptCommand command = Command();
  ScriptCall call(command, {"file=/A", "wOrD=Ab\xC3\xA4", "quiet"});
  EXPECT_EQ(WString(call.GetValue("FILE")), W("Z:\\A"));
  EXPECT_EQ(WString(call.GetValue("WORD")), W("Ab\u00E4"));
  EXPECT_TRUE(call.HasFlag("QUIET"));
}

TEST(ScriptCall, PathsAreMadeFullAndOtherValuesStayAsTheyAre) {
  const DeclaredScriptCommand command = Command();
  EXPECT_EQ(WString(ScriptCall(command, {"FILE=Z:\\x\\y"}).GetValue("FILE")), W("Z:\\x\\y"));
  EXPECT_EQ(WString(ScriptCall(command, {"FILE=/a/../b/./c"}).GetValue("FILE")), W("Z:\\b\\c"));
  EXPECT_THAT(ToUtf8(ScriptCall(command, {"FILE=some.txt"}).GetValue("FILE")),
              AllOf(StartsWith("Z:\\"), testing::EndsWith("\\some.txt")));
  EXPECT_EQ(WString(ScriptCall(command, {"FILE=/a", "WORD=/a/../b"}).GetValue("WORD")), W("/a/../b"));
}

TEST(ScriptCall, TheTwoPathsOfALinkAreMadeFull) {
  DeclaredScriptCommand command("Link", 1);
  command.AddParameter("LNKSRC", 0x1020, W(""));
  command.AddParameter("LNKTRG", 0x1020, W(""));
  ScriptCall call(command, {"lnksrc=/a/b", "LNKTRG=/c"});
  EXPECT_EQ(WString(call.GetValue("LNKSRC")), W("Z:\\a\\b"));
  EXPECT_EQ(WString(call.GetValue("LNKTRG")), W("Z:\\c"));
}

TEST(ScriptCall, RefusesWhatIsNoneAndNamesIt) {
  EXPECT_THAT(Refusal({"FILE=/a", "COLOUR=red"}),
              AllOf(HasSubstr("\"COLOUR\""), HasSubstr("qxhost script Sort --list")));
  EXPECT_THAT(Refusal({"FILE=/a", "=x"}), HasSubstr("\"\""));
  EXPECT_THAT(Refusal({"FILE=/a", ""}), HasSubstr("\"\""));
  EXPECT_EQ(Refusal({"FILE=/a", "QUIET=1"}), "QUIET is a switch: it takes no value");
  EXPECT_EQ(Refusal({"FILE=/a", "quiet="}), "QUIET is a switch: it takes no value");
  EXPECT_EQ(Refusal({"FILE=/a", "WORD"}), "WORD takes a value: WORD=TEXT");
  EXPECT_EQ(Refusal({"FILE=/a", "count"}), "COUNT takes a value: COUNT=NUMBER");
  EXPECT_EQ(Refusal({"FILE=/a", "WORD=x", "word=y"}), "WORD is given twice");
  EXPECT_EQ(Refusal({"FILE=/a", "QUIET", "QUIET"}), "QUIET is given twice");
  EXPECT_EQ(Refusal({"FILE="}), "FILE: \"\" is not a path");
  EXPECT_EQ(Refusal({"FILE=Z:a"}), "FILE: \"Z:a\" is not a path");
}

TEST(ScriptCall, ProposesTheNearestParameter) {
  EXPECT_EQ(Refusal({"FIEL=/a"}),
            "Sort has no parameter \"FIEL\"; `qxhost script Sort --list` shows them. Did you mean FILE?");
  EXPECT_EQ(Refusal({"FILE=/a", "quit"}),
            "Sort has no parameter \"quit\"; `qxhost script Sort --list` shows them. Did you mean QUIET?");
  EXPECT_EQ(Refusal({"FILE=/a", "COLOUR=red"}),
            "Sort has no parameter \"COLOUR\"; `qxhost script Sort --list` shows them");
}

TEST(ScriptCall, NamesARequiredParameterThatIsMissing) {
  EXPECT_EQ(Refusal({}), "Sort needs FILE=TEXT: The file");
  EXPECT_EQ(Refusal({"WORD=x", "QUIET"}), "Sort needs FILE=TEXT: The file");
}

TEST(ScriptCall, KeepsTheResultsThatTheCommandSets) {
  const DeclaredScriptCommand command = Command();
  ScriptCall call(command, {"FILE=/a"});
  EXPECT_EQ(call.resultCode, std::nullopt);
  EXPECT_EQ(call.resultText, std::nullopt);
  call.SetResultCode(5);
  call.SetResultText(W("five"));
  EXPECT_EQ(call.resultCode, 5u);
  EXPECT_EQ(call.resultText, W("five"));
  call.SetResultText(nullptr);
  EXPECT_EQ(call.resultText, W(""));
}

TEST(ScriptCommandSet, FindsItsCommandsIgnoringCase) {
  ScriptCommandSet set;
  set.AddCommand("CreateLink", 1, 0, 0);
  set.AddCommand("SortLines", 2, 0, 0);
  ASSERT_NE(set.Find("sortlines"), nullptr);
  EXPECT_EQ(set.Find("sortlines")->number, 2u);
  EXPECT_EQ(set.Find("CREATELINK")->number, 1u);
  EXPECT_EQ(set.Find("Sort"), nullptr);
  EXPECT_EQ(set.Find(""), nullptr);
}

TEST(ScriptCommandSet, TakesNoCommandOnceItIsClosed) {
  ScriptCommandSet set;
  EXPECT_EQ(set.AddCommand(nullptr, 1, 0, 0), nullptr);
  EXPECT_FALSE(set.IsRegistered());
  set.Commit(1);
  EXPECT_TRUE(set.IsRegistered());
  EXPECT_EQ(set.AddCommand("Late", 1, 0, 0), nullptr);
}

}  // namespace
}  // namespace QxHost
