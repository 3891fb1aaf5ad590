// The registration of the script commands.
#include "frame/script_commands.h"

#include <gmock/gmock.h>

#include "frame/qx_utils.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

using Calls = std::vector<std::string>;

const Calls& CreateLinkCalls() {
  static const Calls calls = {
      "set.AddCommand(CreateLink, 30351, 0x00100000, 2048)",
      "CreateLink.SetDescription(\"T00320063\")",
      "CreateLink.AddParameter(LNKTYPE, 4160, \"T00330063\")",
      "CreateLink.AddParameter(LNKSRC, 4128, \"T00340063\")",
      "CreateLink.AddParameter(LNKTRG, 4128, \"T00350063\")",
      "CreateLink.AddParameter(ASADMIN, 16, \"T00360063\")",
  };
  return calls;
}

const Calls& SortLinesCalls() {
  static const Calls calls = {
      "set.AddCommand(SortLines, 30352, 0x00100000, 2048)",
      "SortLines.SetDescription(\"T003C0063\")",
      "SortLines.AddParameter(FILE, 4128, \"T003D0063\")",
      "SortLines.AddParameter(TARGET, 32, \"T003E0063\")",
      "SortLines.AddParameter(SORTBY, 32, \"T003F0063\")",
      "SortLines.AddParameter(KEEPTOP, 64, \"T00400063\")",
      "SortLines.AddParameter(KEEPBOTTOM, 64, \"T00410063\")",
      "SortLines.AddParameter(LINEOFFSET, 64, \"T00420063\")",
      "SortLines.AddParameter(SKIPLEADINGSPACE, 16, \"T00430063\")",
      "SortLines.AddParameter(IGNORECASE, 16, \"T00440063\")",
      "SortLines.AddParameter(LANGUAGEORDER, 16, \"T00450063\")",
      "SortLines.AddParameter(NATRUALNUMORDER, 16, \"T00460063\")",
      "SortLines.AddParameter(REVERSE, 16, \"T00470063\")",
      "SortLines.AddParameter(OVERWRITE, 16, \"T00480063\")",
      "SortLines.AddParameter(SORTAS, 32, \"T00490063\")",
      "SortLines.AddParameter(DATEFORMAT, 32, \"T004A0063\")",
      "SortLines.AddParameter(ITEMSEP, 32, \"T004B0063\")",
      "SortLines.AddParameter(ITEM, 32, \"T004C0063\")",
      "SortLines.AddParameter(SUBSTRLEN, 32, \"T004D0063\")",
      "SortLines.AddParameter(ENDCHAR, 32, \"T004E0063\")",
      "SortLines.AddParameter(ENDATWHITESPACE, 16, \"T004F0063\")",
      "SortLines.AddParameter(KEEPBACKUP, 16, \"T00500063\")",
      "SortLines.AddParameter(DELETE, 16, \"T00510063\")",
      "SortLines.AddParameter(SILENT, 16, \"T00520063\")",
  };
  return calls;
}

const Calls& FindAndReplaceCalls() {
  static const Calls calls = {
      "set.AddCommand(FindAndReplace, 30353, 0x00100000, 2048)",
      "FindAndReplace.SetDescription(\"T005A0063\")",
      "FindAndReplace.AddParameter(FILE, 4128, \"T005B0063\")",
      "FindAndReplace.AddParameter(TARGET, 32, \"T003E0063\")",
      "FindAndReplace.AddParameter(FIND, 4128, \"T005C0063\")",
      "FindAndReplace.AddParameter(REPLACEWITH, 4128, \"T005D0063\")",
      "FindAndReplace.AddParameter(MODE, 32, \"T005F0063\")",
      "FindAndReplace.AddParameter(REPLACEALL, 16, \"T005E0063\")",
      "FindAndReplace.AddParameter(IGNORECASE, 16, \"T00440063\")",
      "FindAndReplace.AddParameter(FORCEUTF8, 16, \"T00600063\")",
      "FindAndReplace.AddParameter(WILDCARD, 16, \"T00610063\")",
      "FindAndReplace.AddParameter(OVERWRITE, 16, \"T00480063\")",
      "FindAndReplace.AddParameter(KEEPBACKUP, 16, \"T00500063\")",
      "FindAndReplace.AddParameter(DELETE, 16, \"T00510063\")",
      "FindAndReplace.AddParameter(SILENT, 16, \"T00520063\")",
  };
  return calls;
}

// Returns the declarations; their texts show the ids by which they were requested.
Calls Declarations(const FakeHost& host) { return host.recorder.CallsExcept({"GetLanguageString"}); }

Calls Joined(std::initializer_list<Calls> parts) {
  Calls all;
  for (const Calls& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

const Calls kOpening = {"GetCustomCommandSet(QX.Utils)", "set.IsRegistered()"};
const Calls kClosing = {"set.Commit(1)"};

}  // namespace

TEST(ScriptRegistration, DeclaresAllCommandsAndParametersInOrderAndCommitsOnce) {
  FakeHost host;
  RegisterScriptCommands(host);
  EXPECT_THAT(Declarations(host), ElementsAreArray(Joined({kOpening, CreateLinkCalls(), SortLinesCalls(),
                                                           FindAndReplaceCalls(), kClosing})));
}

TEST(ScriptRegistration, ComesLastAtRegister) {
  FakeHost host;
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  const int set = host.recorder.PositionOf("GetCustomCommandSet(QX.Utils)");
  ASSERT_GE(set, 0);
  const Calls following(host.recorder.Calls().begin() + set, host.recorder.Calls().end());
  EXPECT_THAT(following, Not(Contains(StartsWith("menu."))));
  EXPECT_THAT(following, Contains("set.Commit(1)").Times(1));
  EXPECT_EQ(following.back(), "set.Commit(1)");
}

TEST(ScriptRegistration, WithoutASetNothingIsDeclaredAndTheMenusExist) {
  FakeHost host;
  host.recorder.Refuse("GetCustomCommandSet");
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  EXPECT_THAT(host.recorder.CallsOf({"set."}), IsEmpty());
  EXPECT_THAT(host.recorder.Calls(), Contains("menu.AddCommand(menu 0x0960006D, command 30350, 1, 0)"));
}

TEST(ScriptRegistration, SetThatHasItsCommandsIsUnchangedAndTheMenusExist) {
  FakeHost host;
  host.scriptCommands.registered = true;
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  EXPECT_THAT(host.recorder.CallsOf({"set."}), testing::ElementsAre("set.IsRegistered()"));
  EXPECT_THAT(host.recorder.Calls(), Contains("menu.AddCommand(menu 0x0960006D, command 30350, 1, 0)"));
}

TEST(ScriptRegistration, RefusedFirstCommandLosesItsParametersAndTheNextFollow) {
  FakeHost host;
  host.scriptCommands.refusedCommand = "CreateLink";
  RegisterScriptCommands(host);
  EXPECT_THAT(Declarations(host),
              ElementsAreArray(Joined({kOpening,
                                       {"set.AddCommand(CreateLink, 30351, 0x00100000, 2048)"},
                                       SortLinesCalls(),
                                       FindAndReplaceCalls(),
                                       kClosing})));
}

TEST(ScriptRegistration, RefusedSecondCommandLosesItsParametersAndTheNextFollows) {
  FakeHost host;
  host.scriptCommands.refusedCommand = "SortLines";
  RegisterScriptCommands(host);
  EXPECT_THAT(Declarations(host),
              ElementsAreArray(Joined({kOpening,
                                       CreateLinkCalls(),
                                       {"set.AddCommand(SortLines, 30352, 0x00100000, 2048)"},
                                       FindAndReplaceCalls(),
                                       kClosing})));
}

TEST(ScriptRegistration, RefusedLastCommandIsStillCommitted) {
  FakeHost host;
  host.scriptCommands.refusedCommand = "FindAndReplace";
  RegisterScriptCommands(host);
  EXPECT_THAT(Declarations(host),
              ElementsAreArray(Joined({kOpening,
                                       CreateLinkCalls(),
                                       SortLinesCalls(),
                                       {"set.AddCommand(FindAndReplace, 30353, 0x00100000, 2048)"},
                                       kClosing})));
}

TEST(ScriptRegistration, MissingTextsDoNotKeepAParameterOut) {
  FakeHost host;
  host.recorder.Refuse("GetLanguageString");
  RegisterScriptCommands(host);
  EXPECT_THAT(host.recorder.CallsOf(
                  {"CreateLink.AddParameter(", "SortLines.AddParameter(", "FindAndReplace.AddParameter("}),
              testing::SizeIs(4 + 22 + 13));
  EXPECT_THAT(host.recorder.Calls(), Contains("set.Commit(1)"));
}
