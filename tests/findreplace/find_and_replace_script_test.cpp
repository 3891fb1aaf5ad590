// The script command FindAndReplace: its parameters, and how its file is processed.
#include "findreplace/tool/find_and_replace_script.h"

#include <gmock/gmock.h>

#include <set>

#include "frame/host/command_numbers.h"
#include "frame/script_commands.h"
#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace QXFindAndReplace {
namespace {

using Values = std::map<std::string, WString>;
using Switches = std::set<std::string>;

constexpr u32 kNumber = kScriptFindAndReplace;

FindAndReplaceOptions Read(const Values& values, const Switches& switches = {}) {
  FakeCommandCall call(kNumber);
  call.values = values;
  call.switches = switches;
  const FindAndReplaceOptions options = ReadFindAndReplaceParameters(call);
  EXPECT_THAT(call.recorder.Problems(), IsEmpty());
  return options;
}

std::uint32_t Flags(const Values& values, const Switches& switches = {}) {
  return Read(values, switches).flags;
}

// The options of a call with only its texts: the mode One, and a new file.
constexpr std::uint32_t kPlain = 0x10000001;

TEST(FindAndReplaceParameters, NoneAtAllIsOneTextIntoANewFile) {
  const FindAndReplaceOptions options = Read({{"FIND", W("a")}, {"REPLACEWITH", W("b")}});
  EXPECT_EQ(options.flags, kPlain);
  EXPECT_EQ(options.find, W("a"));
  EXPECT_EQ(options.replace, W("b"));
  EXPECT_EQ(options.callback, nullptr);
}

TEST(FindAndReplaceParameters, EachSwitchSetsItsBit) {
  const std::pair<const char*, std::uint32_t> expected[] = {
      {"FORCEUTF8", 0x10000801}, {"WILDCARD", 0x10002001}, {"KEEPBACKUP", 0x20000001},
      {"DELETE", 0x40000001},    {"SILENT", 0x10001001},   {"REPLACEALL", 0x10000201},
  };
  for (const auto& [name, flags] : expected) EXPECT_EQ(Flags({}, {name}), flags) << name;
}

TEST(FindAndReplaceParameters, IgnoreCaseAndOverwriteHaveNoEffectByDesign) {
  EXPECT_EQ(Flags({}, {"IGNORECASE"}), kPlain);
  EXPECT_EQ(Flags({}, {"OVERWRITE"}), kPlain);
}

TEST(FindAndReplaceParameters, AllSwitchesTogether) {
  EXPECT_EQ(
      Flags({}, {"FORCEUTF8", "WILDCARD", "KEEPBACKUP", "SILENT", "REPLACEALL", "IGNORECASE", "OVERWRITE"}),
      0x20003A01u);
}

TEST(FindAndReplaceParameters, KeepBackupWinsOverDelete) {
  EXPECT_EQ(Flags({}, {"KEEPBACKUP", "DELETE"}), 0x20000001u);
}

TEST(FindAndReplaceParameters, ModeIsFoundIgnoringCase) {
  const std::pair<const WCHAR*, std::uint32_t> expected[] = {
      {W("One"), 1},      {W("one"), 1},      {W("Many"), 2},      {W("MANY"), 2},      {W("ManySame"), 4},
      {W("manysame"), 4}, {W("MANYSAME"), 4}, {W("Multiline"), 8}, {W("multiline"), 8}, {W("mULTILINE"), 8},
  };
  for (const auto& [word, mode] : expected) {
    EXPECT_EQ(Flags({{"MODE", word}}), 0x10000000u | mode) << ToUtf8(word);
  }
}

TEST(FindAndReplaceParameters, AnyOtherModeIsOneByDesign) {
  for (const WCHAR* word : {W(""), W("Two"), W("Man"), W("Multi"), W(" Many"), W("Multiline "), W("1")}) {
    EXPECT_EQ(Flags({{"MODE", word}}), kPlain) << ToUtf8(word);
  }
}

TEST(FindAndReplaceParameters, BackslashAndNIsALineFeedInBothTexts) {
  const std::pair<const WCHAR*, const WCHAR*> expected[] = {
      {W("a\\nb"), W("a\nb")},
      {W("\\n"), W("\n")},
      {W("\\n\\n"), W("\n\n")},
      {W("a\\n"), W("a\n")},
      // Each character is examined once, so a backslash before the escape does not protect it.
      {W("\\\\n"), W("\\\n")},
      {W("\\\\nn"), W("\\\nn")},
      {W("\\\\\\n"), W("\\\\\n")},
      // There are no other escapes.
      {W("a\\tb\\\\c\\r\\N\\"), W("a\\tb\\\\c\\r\\N\\")},
      {W("n\\"), W("n\\")},
  };
  for (const auto& [given, text] : expected) {
    const FindAndReplaceOptions options = Read({{"FIND", given}, {"REPLACEWITH", given}});
    EXPECT_EQ(options.find, text);
    EXPECT_EQ(options.replace, text);
  }
}

TEST(FindAndReplaceParameters, EveryDeclaredParameterIsReadButForTheTwoWithoutAnEffect) {
  const ScratchFolder scratch;
  FakeHost host;
  host.fileOperation.items = {host.AddFileIn(scratch.Path() + W("\\"), W("a.txt"))};
  FakeCommandCall call(kNumber);
  call.values = {{"FILE", scratch.Write(W("a.txt"), "a\n")},
                 {"TARGET", W("*.out")},
                 {"FIND", W("x")},
                 {"REPLACEWITH", W("y")}};
  call.switches = {"SILENT"};
  EXPECT_EQ(FindAndReplaceScript(host, call), 1);
  std::set<std::string> read = {"IGNORECASE", "OVERWRITE"};
  for (const std::string& entry : call.recorder.Calls()) {
    const std::size_t begin = entry.find('(') + 1;
    const std::string name = entry.substr(begin, entry.size() - begin - 1);
    EXPECT_TRUE(name != "IGNORECASE" && name != "OVERWRITE");
    read.insert(name);
  }
  std::vector<std::string> declared;
  for (const ScriptCommand& command : ScriptCommands()) {
    if (command.number != kNumber) continue;
    for (const ScriptParameter& parameter : command.parameters) declared.emplace_back(parameter.name);
  }
  EXPECT_EQ(declared.size(), 13u);
  EXPECT_THAT(read, UnorderedElementsAreArray(declared));
}

// A file on disk that the host finds, and a silent call.
struct Script {
  explicit Script(std::string_view bytes = "one two\n") {
    host.fileOperation.items = {host.AddFileIn(scratch.Path() + W("\\"), W("a.txt"))};
    call.values = {{"FILE", scratch.Write(W("a.txt"), bytes)},
                   {"TARGET", W("*.out")},
                   {"FIND", W("two")},
                   {"REPLACEWITH", W("2")}};
    call.switches = {"SILENT"};
  }

  // Returns the host calls for services, lists, the log and message boxes.
  std::vector<std::string> HostCalls() const {
    return host.recorder.CallsOf({"GetService", "file operation", "ReleaseService", "CreateFileList", "list",
                                  "LogMessage", "FileListRequest", "MessageBox"});
  }
  std::string Log(const std::string& level, const std::string& text) const {
    return "LogMessage(0, " + level + ", \"" + text + "\")";
  }
  std::string PathOf(const std::string& name) const { return ToUtf8(scratch.Path()) + "\\" + name; }

  ScratchFolder scratch;
  FakeHost host;
  FakeCommandCall call{kNumber};
};

TEST(FindAndReplaceScript, ReplacesInTheFileCallByCall) {
  Script run;
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.out")), "one 2\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "one two\n");
  std::vector<std::string> calls = run.HostCalls();
  std::erase(calls, "list1.GetCount()");
  EXPECT_THAT(
      calls,
      ElementsAre("GetService(3000, 0)", "file operation.GetFileItem(\"" + run.PathOf("a.txt") + "\", 1)",
                  "CreateFileList()", "list1.AddItem()", "CreateFileList()", "CreateFileList()",
                  "list1.GetItem(0)",
                  run.Log("10", "[Find and Replace] - 1 changes made to file : " + run.PathOf("a.txt")),
                  "list3.AddItem()", "FileListRequest(21120, list3, 0, 0)", "list2.GetCount()",
                  "list3.Release()", "list2.Release()", "file operation.ReleaseFileList(list1)",
                  "ReleaseService(file operation, 3000)", "list1.Release()"));
  EXPECT_THAT(run.host.resultLists, ElementsAre(ResultList{0, {run.scratch.Path(W("a.txt"))}}));
  EXPECT_EQ(run.call.resultCode, std::nullopt);
  EXPECT_EQ(run.call.resultText, std::nullopt);
  ExpectAllReleased(run.host);
}

TEST(FindAndReplaceScript, WithoutARequiredTextNothingIsTouched) {
  for (const char* name : {"FILE", "FIND", "REPLACEWITH", "TARGET"}) {
    Script run;
    run.call.values.erase(name);
    EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 0) << name;
    EXPECT_THAT(run.host.recorder.Calls(), IsEmpty()) << name;
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"))) << name;
  }
}

TEST(FindAndReplaceScript, EmptyTextsAreRefusedSoAScriptCannotReplaceWithNothingByDesign) {
  for (const char* name : {"FIND", "REPLACEWITH"}) {
    Script run;
    run.call.values[name] = W("");
    EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 0) << name;
    EXPECT_THAT(run.host.recorder.Calls(), IsEmpty()) << name;
  }
}

TEST(FindAndReplaceScript, AMissingFileIsLoggedOnceTheServiceIsGivenBack) {
  Script run;
  run.call.values["FILE"] = W("Z:\\nowhere\\x.txt");
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 0);
  EXPECT_THAT(
      run.host.recorder.Calls(),
      ElementsAre(
          "GetService(3000, 0)", "file operation.GetFileItem(\"Z:\\nowhere\\x.txt\", 1)",
          "ReleaseService(file operation, 3000)",
          "LogMessage(0, 30, \"[Custom Cmd - FindAndReplace] - FILE : Z:\\nowhere\\x.txt not found\")"));
  ExpectAllReleased(run.host);
}

TEST(FindAndReplaceScript, WithoutTheServiceTheFileIsNotFound) {
  Script run;
  run.host.recorder.Refuse("GetService");
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 0);
  EXPECT_THAT(run.host.recorder.Calls(),
              ElementsAre("GetService(3000, 0)", run.Log("30", "[Custom Cmd - FindAndReplace] - FILE : " +
                                                                   run.PathOf("a.txt") + " not found")));
}

TEST(FindAndReplaceScript, AFailedFileStillReturnsOne) {
  Script run;
  run.call.values["MODE"] = W("Many");
  run.call.values["FIND"] = W("one\\ntwo");
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 1);
  EXPECT_THAT(run.host.recorder.CallsOf({"LogMessage"}),
              ElementsAre(run.Log(
                  "10", "[Find and Replace] - Failed to Find/Replace text in : " + run.PathOf("a.txt"))));
  EXPECT_THAT(run.host.recorder.CallsOf({"LogText"}),
              ElementsAre("LogText(0, 30, \"[Find and Replace] Error\r\n==========================\r\n"
                          "Find and Replace item do not match\r\n( ErrorCode : 87 )\")"));
  EXPECT_THAT(run.host.resultLists,
              ElementsAre(ResultList{0, {}}, ResultList{1, {run.scratch.Path(W("a.txt"))}}));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  ExpectAllReleased(run.host);
}

TEST(FindAndReplaceScript, AnEmptyTargetIsTheFolderItselfWhichASilentRunSkips) {
  Script run;
  run.call.values["TARGET"] = W("");
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 1);
  EXPECT_THAT(run.host.recorder.CallsOf({"LogMessage"}),
              ElementsAre(run.Log(
                  "10", "[Find and Replace] - File already exists. Do not overwrite : " + run.PathOf(""))));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "one two\n");
}

TEST(FindAndReplaceScript, ASilentRunSkipsAnExistingTargetEvenWithOverwriteByDesign) {
  Script run;
  run.scratch.Write(W("a.out"), "old");
  run.call.switches.insert("OVERWRITE");
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.out")), "old");
}

TEST(FindAndReplaceScript, WithoutSilentAnExistingTargetIsAskedForAndASummaryIsShown) {
  Script run;
  run.scratch.Write(W("a.out"), "old");
  run.call.switches = {"REPLACEALL"};
  run.host.boxAnswers = {IDYES, IDOK};
  EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.out")), "one 2\n");
  EXPECT_EQ(run.host.recorder.CallsOf({"MessageBox"}).size(), 2u);
  ExpectAllReleased(run.host);
}

TEST(FindAndReplaceScript, OptionsReachTheRun) {
  const struct {
    Values values;
    Switches switches;
    const char* before;
    const char* after;
  } rows[] = {
      {{{"FIND", W("b\\nc")}, {"REPLACEWITH", W("x\\ny")}, {"MODE", W("multiline")}},
       {},
       "ab\ncd\n",
       "ax\nyd\n"},
      {{{"FIND", W("a\\nb")}, {"REPLACEWITH", W("1\\n2")}, {"MODE", W("Many")}}, {}, "a b\n", "1 2\n"},
      {{{"FIND", W("a\\nb")}, {"REPLACEWITH", W("x")}, {"MODE", W("ManySame")}}, {}, "a b\n", "x x\n"},
      {{{"FIND", W("a\\nb")}, {"REPLACEWITH", W("x")}}, {}, "a b\n", "x b\n"},
      {{{"FIND", W("a?c")}, {"REPLACEWITH", W("x")}}, {"WILDCARD"}, "xabcx\n", "xxx\n"},
      {{{"FIND", W("\u00FC")}, {"REPLACEWITH", W("u")}}, {"FORCEUTF8"}, "gr\xC3\xBCn\n", "grun\n"},
      {{{"FIND", W("A")}, {"REPLACEWITH", W("x")}}, {"IGNORECASE"}, "aA\n", "ax\n"},
  };
  for (const auto& row : rows) {
    Script run(row.before);
    for (const auto& [name, value] : row.values) run.call.values[name] = value;
    run.call.switches.insert(row.switches.begin(), row.switches.end());
    EXPECT_EQ(FindAndReplaceScript(run.host, run.call), 1);
    EXPECT_EQ(run.scratch.Read(W("a.out")), row.after);
  }
}

TEST(FindAndReplaceScript, EveryRefusalOfTheHostEndsQuietlyAndLosesNoData) {
  const ScratchFolder scratch;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        scratch.Write(W("a.txt"), "one two\n");
        scratch.Write(W("a.out"), "old");
        host.fileOperation.items = {host.AddFileIn(scratch.Path() + W("\\"), W("a.txt"))};
        host.boxAnswers = {IDYES, IDOK};
      },
      [&](FakeHost& host) {
        FakeCommandCall call(kNumber);
        call.values = {{"FILE", scratch.Path(W("a.txt"))},
                       {"TARGET", W("*.out")},
                       {"FIND", W("two")},
                       {"REPLACEWITH", W("2")}};
        call.switches = {"REPLACEALL"};
        FindAndReplaceScript(host, call);
        EXPECT_EQ(scratch.Read(W("a.txt")), "one two\n");
      });
}

}  // namespace
}  // namespace QXFindAndReplace
