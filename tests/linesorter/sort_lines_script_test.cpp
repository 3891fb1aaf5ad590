// The script command SortLines: its parameters, and how its file is processed.
#include "linesorter/tool/sort_lines_script.h"

#include <gmock/gmock.h>

#include <set>
#include <stdexcept>

#include "frame/host/command_numbers.h"
#include "frame/script_commands.h"
#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::AllOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace WQLineSorter {
namespace {

using Values = std::map<std::string, WString>;
using Switches = std::set<std::string>;

constexpr u32 kNumber = kScriptSortLines;

SortLinesOptions Read(const Values& values, const Switches& switches = {}) {
  FakeCommandCall call(kNumber);
  call.values = values;
  call.switches = switches;
  const SortLinesOptions options = ReadSortLinesParameters(call);
  EXPECT_THAT(call.recorder.Problems(), IsEmpty());
  return options;
}

std::uint32_t Bits(const Values& values, const Switches& switches = {}) {
  return Read(values, switches).options;
}

// The options of a call with only FILE and TARGET.
constexpr std::uint32_t kPlain = 0x01000011;

std::vector<std::string> Reads(const Values& values, const Switches& switches = {}) {
  FakeCommandCall call(kNumber);
  call.values = values;
  call.switches = switches;
  ReadSortLinesParameters(call);
  return call.recorder.Calls();
}

template <typename Exception>
void ExpectThrows(const Values& values, const char* text) {
  try {
    Read(values);
    ADD_FAILURE() << "nothing was thrown";
  } catch (const Exception& error) {
    EXPECT_STREQ(error.what(), text);
  }
}

TEST(SortLinesParameters, NoneAtAllIsAPlainSortOfWholeLinesIntoANewFile) {
  const SortLinesOptions options = Read({});
  EXPECT_EQ(options.options, kPlain);
  EXPECT_EQ(options.keepLinesTop, 0u);
  EXPECT_EQ(options.keepLinesBottom, 0u);
  EXPECT_EQ(options.lineOffset, 0u);
  EXPECT_EQ(options.subStringLen, 0u);
  EXPECT_EQ(options.matchChar, 0u);
  EXPECT_EQ(options.matchCharA, 0u);
  EXPECT_EQ(options.lineItem, 0u);
  EXPECT_EQ(std::string(options.dateFormat, sizeof options.dateFormat), std::string(129, '\0'));
}

TEST(SortLinesParameters, EachSwitchSetsItsBit) {
  const std::pair<const char*, std::uint32_t> expected[] = {
      {"SKIPLEADINGSPACE", 0x01100011}, {"IGNORECASE", 0x01002011}, {"LANGUAGEORDER", 0x01000811},
      {"NATRUALNUMORDER", 0x01008011},  {"REVERSE", 0x01001011},    {"OVERWRITE", 0x09000011},
      {"SILENT", 0x11000011},           {"KEEPBACKUP", 0x02000011}, {"DELETE", 0x04000011},
  };
  for (const auto& [name, bits] : expected) EXPECT_EQ(Bits({}, {name}), bits) << name;
}

TEST(SortLinesParameters, AllSwitchesTogether) {
  EXPECT_EQ(Bits({}, {"SKIPLEADINGSPACE", "IGNORECASE", "LANGUAGEORDER", "NATRUALNUMORDER", "REVERSE",
                      "OVERWRITE", "SILENT", "DELETE"}),
            0x1C10B811u);
}

TEST(SortLinesParameters, KeepBackupWinsOverDelete) {
  EXPECT_EQ(Bits({}, {"KEEPBACKUP", "DELETE"}), 0x02000011u);
}

TEST(SortLinesParameters, TheSpellingOfNaturalNumOrderIsByDesign) {
  EXPECT_EQ(Bits({}, {"NATURALNUMORDER"}), kPlain);
}

TEST(SortLinesParameters, SortByChoosesTheKeyIgnoringCase) {
  EXPECT_EQ(Bits({{"SORTBY", W("line")}}), 0x01000011u);
  EXPECT_EQ(Bits({{"SORTBY", W("")}}), 0x01000011u);
  EXPECT_EQ(Bits({{"SORTBY", W("substring")}}), 0x01000012u);
  EXPECT_EQ(Bits({{"SORTBY", W("SUBSTRING")}}), 0x01000012u);
  EXPECT_EQ(Bits({{"SORTBY", W("item")}}), 0x01000014u);
  EXPECT_EQ(Bits({{"SORTBY", W("Item")}}), 0x01000014u);
  EXPECT_EQ(Bits({{"SORTBY", W("LiNe")}}), 0x01000011u);
}

TEST(SortLinesParameters, AnotherSortByWordSetsNoKeyBitAndReadsNothingOfAKeyByDesign) {
  for (const WCHAR* word : {W("word"), W("lines"), W("lin"), W(" item"), W("item ")}) {
    const Values values = {{"SORTBY", word}, {"ITEM", W("2")}, {"SUBSTRLEN", W("3")}, {"ENDCHAR", W(";")}};
    const SortLinesOptions options = Read(values, {"ENDATWHITESPACE"});
    EXPECT_EQ(options.options, 0x01000010u);
    EXPECT_EQ(options.lineItem, 0u);
    EXPECT_EQ(options.subStringLen, 0u);
    EXPECT_EQ(options.matchChar, 0u);
  }
}

TEST(SortLinesParameters, LettersBeyondZAreNotFolded) {
  EXPECT_EQ(Bits({{"SORTBY", W("l\u0130ne")}}), 0x01000010u);
  EXPECT_EQ(Bits({{"SORTBY", W("L\u0131NE")}}), 0x01000010u);
}

TEST(SortLinesParameters, SortAsChoosesTheMethodIgnoringCase) {
  EXPECT_EQ(Bits({{"SORTAS", W("text")}}), 0x01000011u);
  EXPECT_EQ(Bits({{"SORTAS", W("num")}}), 0x01000101u);
  EXPECT_EQ(Bits({{"SORTAS", W("NUM")}}), 0x01000101u);
  EXPECT_EQ(Bits({{"SORTAS", W("date")}}), 0x01000201u);
  EXPECT_EQ(Bits({{"SORTAS", W("Date")}}), 0x01000201u);
}

TEST(SortLinesParameters, AnotherSortAsWordIsText) {
  for (const WCHAR* word : {W(""), W("number"), W("nu"), W("x")}) {
    EXPECT_EQ(Bits({{"SORTAS", word}}), 0x01000011u);
  }
}

TEST(SortLinesParameters, DateFormatIsForDatesOnlyAndHas127BytesOfTheCodePage) {
  EXPECT_STREQ(Read({{"SORTAS", W("date")}, {"DATEFORMAT", W("%d.%m.%Y")}}).dateFormat, "%d.%m.%Y");
  EXPECT_STREQ(Read({{"SORTAS", W("date")}, {"DATEFORMAT", W("\u20AC%Y\u00E4")}}).dateFormat, "\x80%Y\xE4");
  EXPECT_STREQ(Read({{"SORTAS", W("date")}, {"DATEFORMAT", WString(128, W('y'))}}).dateFormat,
               std::string(127, 'y').c_str());
  EXPECT_STREQ(Read({{"SORTAS", W("date")}, {"DATEFORMAT", W("")}}).dateFormat, "");
  EXPECT_STREQ(Read({{"SORTAS", W("date")}}).dateFormat, "");
  EXPECT_STREQ(Read({{"SORTAS", W("num")}, {"DATEFORMAT", W("%Y")}}).dateFormat, "");
  EXPECT_STREQ(Read({{"DATEFORMAT", W("%Y")}}).dateFormat, "");
}

TEST(SortLinesParameters, ItemsHaveASeparatorAndANumber) {
  const SortLinesOptions options =
      Read({{"SORTBY", W("item")}, {"ITEMSEP", W(";,")}, {"ITEM", W("3")}, {"SUBSTRLEN", W("9")}});
  EXPECT_EQ(options.options, 0x01000014u);
  EXPECT_EQ(options.matchChar, 0x3Bu);
  EXPECT_EQ(options.matchCharA, 0x3Bu);
  EXPECT_EQ(options.lineItem, 3u);
  EXPECT_EQ(options.subStringLen, 0u);
}

TEST(SortLinesParameters, ASeparatorHasItsByteInTheCodePage) {
  const SortLinesOptions euro = Read({{"SORTBY", W("item")}, {"ITEMSEP", W("\u20AC")}});
  EXPECT_EQ(euro.matchChar, 0x20ACu);
  EXPECT_EQ(euro.matchCharA, 0x80u);
  const SortLinesOptions han = Read({{"SORTBY", W("item")}, {"ITEMSEP", W("\u4E2D")}});
  EXPECT_EQ(han.matchChar, 0x4E2Du);
  EXPECT_EQ(han.matchCharA, 0x3Fu);
}

TEST(SortLinesParameters, AnEmptyOrMissingSeparatorIsTheZeroCharacter) {
  for (const Values& values :
       {Values{{"SORTBY", W("item")}, {"ITEMSEP", W("")}}, Values{{"SORTBY", W("item")}}}) {
    const SortLinesOptions options = Read(values);
    EXPECT_EQ(options.matchChar, 0u);
    EXPECT_EQ(options.matchCharA, 0u);
    EXPECT_EQ(options.options, 0x01000014u);
  }
}

TEST(SortLinesParameters, SubstringsHaveALength) {
  const SortLinesOptions options =
      Read({{"SORTBY", W("substring")}, {"SUBSTRLEN", W("12")}, {"ITEM", W("5")}, {"ITEMSEP", W(";")}});
  EXPECT_EQ(options.options, 0x01000012u);
  EXPECT_EQ(options.subStringLen, 12u);
  EXPECT_EQ(options.lineItem, 0u);
  EXPECT_EQ(options.matchChar, 0u);
}

TEST(SortLinesParameters, ASubstringEndsAtACharacterOrElseAtWhiteSpace) {
  const SortLinesOptions both = Read({{"SORTBY", W("substring")}, {"ENDCHAR", W(":x")}}, {"ENDATWHITESPACE"});
  EXPECT_EQ(both.options, 0x01400012u);
  EXPECT_EQ(both.matchChar, 0x3Au);
  EXPECT_EQ(both.matchCharA, 0x3Au);
  EXPECT_EQ(Bits({{"SORTBY", W("substring")}}, {"ENDATWHITESPACE"}), 0x01200012u);
}

TEST(SortLinesParameters, AnEmptyEndCharIsTheZeroCharacterAndCountsByDesign) {
  const SortLinesOptions options =
      Read({{"SORTBY", W("substring")}, {"ENDCHAR", W("")}}, {"ENDATWHITESPACE"});
  EXPECT_EQ(options.options, 0x01400012u);
  EXPECT_EQ(options.matchChar, 0u);
  EXPECT_EQ(options.matchCharA, 0u);
}

TEST(SortLinesParameters, ParametersOfAnotherKeyAreNotRead) {
  EXPECT_EQ(Bits({{"ENDCHAR", W(";")}}, {"ENDATWHITESPACE"}), kPlain);
  // Not even if the value is not a number.
  EXPECT_EQ(Read({{"ITEM", W("x")}, {"SUBSTRLEN", W("x")}}).options, kPlain);
  EXPECT_EQ(Read({{"SORTBY", W("item")}, {"SUBSTRLEN", W("x")}}).subStringLen, 0u);
  EXPECT_EQ(Read({{"SORTBY", W("substring")}, {"ITEM", W("x")}}).lineItem, 0u);
}

TEST(SortLinesParameters, KeptLinesAndOffsetAreNumbers) {
  const SortLinesOptions options =
      Read({{"KEEPTOP", W("2")}, {"KEEPBOTTOM", W("30")}, {"LINEOFFSET", W("5")}});
  EXPECT_EQ(options.keepLinesTop, 2u);
  EXPECT_EQ(options.keepLinesBottom, 30u);
  EXPECT_EQ(options.lineOffset, 4u);
}

TEST(SortLinesParameters, LineOffsetsZeroAndOneAreBothTheLinesBegin) {
  EXPECT_EQ(Read({{"LINEOFFSET", W("0")}}).lineOffset, 0u);
  EXPECT_EQ(Read({{"LINEOFFSET", W("1")}}).lineOffset, 0u);
  EXPECT_EQ(Read({{"LINEOFFSET", W("2")}}).lineOffset, 1u);
}

TEST(SortLinesParameters, AnEmptyNumberIsAbsent) {
  const SortLinesOptions options = Read({{"KEEPTOP", W("")}, {"KEEPBOTTOM", W("")}, {"LINEOFFSET", W("")}});
  EXPECT_EQ(options.keepLinesTop, 0u);
  EXPECT_EQ(options.keepLinesBottom, 0u);
  EXPECT_EQ(options.lineOffset, 0u);
  EXPECT_EQ(Read({{"SORTBY", W("item")}, {"ITEM", W("")}}).lineItem, 0u);
  EXPECT_EQ(Read({{"SORTBY", W("substring")}, {"SUBSTRLEN", W("")}}).subStringLen, 0u);
}

TEST(SortLinesParameters, NumbersMayHaveBlanksASignAndARest) {
  const std::pair<const WCHAR*, std::uint32_t> expected[] = {
      {W("7"), 7},    {W(" \t\n7"), 7}, {W("+7"), 7},
      {W("007"), 7},  {W("7x"), 7},     {W("7 8"), 7},
      {W("7.9"), 7},  {W("0x10"), 0},   {W("2147483647"), 2147483647u},
      {W("7e2"), 7u},
  };
  for (const auto& [text, value] : expected) {
    EXPECT_EQ(Read({{"KEEPTOP", text}}).keepLinesTop, value) << ToUtf8(text);
  }
}

TEST(SortLinesParameters, NegativeNumbersWrapRoundToUnsignedOnesByDesign) {
  EXPECT_EQ(Read({{"KEEPTOP", W("-1")}}).keepLinesTop, 0xFFFFFFFFu);
  EXPECT_EQ(Read({{"KEEPBOTTOM", W("-2147483648")}}).keepLinesBottom, 0x80000000u);
  EXPECT_EQ(Read({{"LINEOFFSET", W("-1")}}).lineOffset, 0xFFFFFFFEu);
  EXPECT_EQ(Read({{"LINEOFFSET", W("-2147483648")}}).lineOffset, 0x7FFFFFFFu);
  EXPECT_EQ(Read({{"SORTBY", W("item")}, {"ITEM", W("-3")}}).lineItem, 0xFFFFFFFDu);
}

TEST(SortLinesParameters, ATextThatIsNoNumberThrows) {
  for (const WCHAR* text : {W("x"), W(" "), W("-"), W("+-1"), W("- 1"), W("x1"), W(".5")}) {
    for (const char* name : {"KEEPTOP", "KEEPBOTTOM", "LINEOFFSET"}) {
      ExpectThrows<std::invalid_argument>({{name, text}}, "invalid stoi argument");
    }
    ExpectThrows<std::invalid_argument>({{"SORTBY", W("item")}, {"ITEM", text}}, "invalid stoi argument");
    ExpectThrows<std::invalid_argument>({{"SORTBY", W("substring")}, {"SUBSTRLEN", text}},
                                        "invalid stoi argument");
  }
}

TEST(SortLinesParameters, ANumberBeyond32BitsThrows) {
  for (const WCHAR* text : {W("2147483648"), W("-2147483649"), W("4294967296"),
                            W("99999999999999999999999999"), W("-99999999999999999999999999")}) {
    ExpectThrows<std::out_of_range>({{"KEEPTOP", text}}, "stoi argument out of range");
    ExpectThrows<std::out_of_range>({{"SORTBY", W("item")}, {"ITEM", text}}, "stoi argument out of range");
  }
}

TEST(SortLinesParameters, AreReadInTheirOrder) {
  EXPECT_THAT(
      Reads({}),
      ElementsAre("GetValue(SORTBY)", "GetValue(KEEPTOP)", "GetValue(KEEPBOTTOM)", "GetValue(LINEOFFSET)",
                  "HasFlag(SKIPLEADINGSPACE)", "HasFlag(IGNORECASE)", "HasFlag(LANGUAGEORDER)",
                  "HasFlag(NATRUALNUMORDER)", "HasFlag(REVERSE)", "HasFlag(OVERWRITE)", "GetValue(SORTAS)",
                  "HasFlag(KEEPBACKUP)", "HasFlag(DELETE)", "HasFlag(SILENT)"));
}

TEST(SortLinesParameters, TheParametersOfTheKeyAreReadAfterIt) {
  const auto firstFour = [](const Values& values) {
    std::vector<std::string> reads = Reads(values);
    reads.resize(4);
    return reads;
  };
  EXPECT_THAT(firstFour({{"SORTBY", W("substring")}}),
              ElementsAre("GetValue(SORTBY)", "GetValue(SUBSTRLEN)", "GetValue(ENDCHAR)",
                          "HasFlag(ENDATWHITESPACE)"));
  EXPECT_THAT(
      firstFour({{"SORTBY", W("substring")}, {"ENDCHAR", W("")}}),
      ElementsAre("GetValue(SORTBY)", "GetValue(SUBSTRLEN)", "GetValue(ENDCHAR)", "GetValue(KEEPTOP)"));
  EXPECT_THAT(firstFour({{"SORTBY", W("item")}}),
              ElementsAre("GetValue(SORTBY)", "GetValue(ITEMSEP)", "GetValue(ITEM)", "GetValue(KEEPTOP)"));
}

TEST(SortLinesParameters, EveryDeclaredParameterIsRead) {
  std::set<std::string> read = {"FILE", "TARGET"};
  for (const Values& values :
       {Values{{"SORTBY", W("substring")}, {"SORTAS", W("date")}}, Values{{"SORTBY", W("item")}}}) {
    for (const std::string& call : Reads(values)) {
      const std::size_t begin = call.find('(') + 1;
      read.insert(call.substr(begin, call.size() - begin - 1));
    }
  }
  std::vector<std::string> declared;
  for (const ScriptCommand& command : ScriptCommands()) {
    if (command.number != kNumber) continue;
    for (const ScriptParameter& parameter : command.parameters) declared.emplace_back(parameter.name);
  }
  EXPECT_EQ(declared.size(), 22u);
  EXPECT_THAT(read, UnorderedElementsAreArray(declared));
}

// A file on disk that the host finds.
struct Script {
  explicit Script(std::string_view bytes = "b\na\n") {
    host.fileOperation.items = {host.AddFileIn(scratch.Path() + W("\\"), W("a.txt"))};
    call.values = {{"FILE", scratch.Write(W("a.txt"), bytes)}, {"TARGET", W("*.sorted")}};
    call.switches = {"SILENT"};
  }

  // Returns the host calls for services, lists, the log and message boxes.
  std::vector<std::string> HostCalls() const {
    return host.recorder.CallsOf({"GetService", "file operation", "ReleaseService", "CreateFileList", "list1",
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

TEST(SortLinesScript, SortsTheFileCallByCall) {
  Script run;
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.sorted")), "a\nb\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "b\na\n");
  EXPECT_THAT(
      run.HostCalls(),
      ElementsAre("GetService(3000, 0)", "file operation.GetFileItem(\"" + run.PathOf("a.txt") + "\", 1)",
                  "CreateFileList()", "list1.AddItem()", "CreateFileList()", "CreateFileList()",
                  "list1.GetCount()", "list1.GetItem(0)",
                  run.Log("10", "[SortLines] - Sorted lines in file : " + run.PathOf("a.txt") +
                                    " (Saved as : " + run.PathOf("a.sorted") + ")"),
                  "FileListRequest(21120, list3, 0, 0)", "FileListRequest(21120, list2, 1, 0)",
                  "file operation.ReleaseFileList(list1)", "ReleaseService(file operation, 3000)",
                  "list1.Release()"));
  EXPECT_THAT(run.host.resultLists,
              ElementsAre(ResultList{0, {run.scratch.Path(W("a.txt"))}}, ResultList{1, {}}));
  EXPECT_EQ(run.call.resultCode, std::nullopt);
  EXPECT_EQ(run.call.resultText, std::nullopt);
  ExpectAllReleased(run.host);
}

TEST(SortLinesScript, ReadsFileAndTargetFirst) {
  Script run;
  SortLinesScript(run.host, run.call);
  std::vector<std::string> reads = run.call.recorder.Calls();
  reads.resize(3);
  EXPECT_THAT(reads, ElementsAre("GetValue(FILE)", "GetValue(TARGET)", "GetValue(SORTBY)"));
}

TEST(SortLinesScript, WithoutFileOrTargetNothingIsTouched) {
  for (const char* name : {"FILE", "TARGET"}) {
    Script run;
    run.call.values.erase(name);
    EXPECT_EQ(SortLinesScript(run.host, run.call), 0) << name;
    EXPECT_THAT(run.host.recorder.Calls(), IsEmpty()) << name;
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"))) << name;
  }
}

TEST(SortLinesScript, AMissingFileIsLoggedOnceTheServiceIsGivenBack) {
  Script run;
  run.call.values["FILE"] = W("Z:\\nowhere\\x.txt");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 0);
  EXPECT_THAT(
      run.host.recorder.Calls(),
      ElementsAre("GetService(3000, 0)", "file operation.GetFileItem(\"Z:\\nowhere\\x.txt\", 1)",
                  "ReleaseService(file operation, 3000)",
                  "LogMessage(0, 30, \"[Custom Cmd - SortLines] - FILE : Z:\\nowhere\\x.txt not found\")"));
  ExpectAllReleased(run.host);
}

TEST(SortLinesScript, WithoutTheServiceTheFileIsNotFound) {
  Script run;
  run.host.recorder.Refuse("GetService");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 0);
  EXPECT_THAT(
      run.host.recorder.Calls(),
      ElementsAre("GetService(3000, 0)",
                  run.Log("30", "[Custom Cmd - SortLines] - FILE : " + run.PathOf("a.txt") + " not found")));
}

TEST(SortLinesScript, NumbersAreReadOnceTheFileIsFound) {
  Script run;
  run.call.values["KEEPTOP"] = W("x");
  run.call.values["FILE"] = W("Z:\\nowhere\\x.txt");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 0);
}

TEST(SortLinesScript, ANumberThatIsNoneLeavesTheCallWithAllGivenBack) {
  Script run;
  run.call.values["KEEPTOP"] = W("x");
  EXPECT_THROW(SortLinesScript(run.host, run.call), std::invalid_argument);
  EXPECT_THAT(
      run.HostCalls(),
      ElementsAre("GetService(3000, 0)", "file operation.GetFileItem(\"" + run.PathOf("a.txt") + "\", 1)",
                  "CreateFileList()", "list1.AddItem()", "file operation.ReleaseFileList(list1)",
                  "ReleaseService(file operation, 3000)", "list1.Release()"));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  ExpectAllReleased(run.host);
}

TEST(SortLinesScript, AFailedSortStillReturnsOne) {
  Script run(std::string_view("b\0a\n\x01\x02", 6));
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_THAT(
      run.host.recorder.CallsOf({"LogMessage"}),
      ElementsAre(run.Log("30", "[SortLines] - Failed to sortline in file : " + run.PathOf("a.txt"))));
  EXPECT_THAT(run.host.resultLists,
              ElementsAre(ResultList{0, {}}, ResultList{1, {run.scratch.Path(W("a.txt"))}}));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  ExpectAllReleased(run.host);
}

TEST(SortLinesScript, AnEmptyTargetIsTheFolderItselfWhichASilentRunSkips) {
  Script run;
  run.call.values["TARGET"] = W("");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_THAT(
      run.host.recorder.CallsOf({"LogMessage"}),
      ElementsAre(run.Log("10", "[SortLines] - Skipped to sortline in file : " + run.PathOf("a.txt"))));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "b\na\n");
}

TEST(SortLinesScript, ATargetOfTwoAsterisksIsTheFileWhichASilentRunSkips) {
  Script run;
  run.call.values["TARGET"] = W("*.*");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "b\na\n");
  run.call.switches.insert("OVERWRITE");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "a\nb\n");
}

TEST(SortLinesScript, OptionsReachTheSort) {
  Script run("x;10\ny;9\nhead\n");
  run.call.values.insert(
      {{"SORTBY", W("ITEM")}, {"ITEMSEP", W(";")}, {"ITEM", W("2")}, {"SORTAS", W("num")}});
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_EQ(run.scratch.Read(W("a.sorted")), "head\ny;9\nx;10\n");
}

TEST(SortLinesScript, AFolderIsLookedUpLikeAFileAndFailsInTheJob) {
  Script run;
  run.scratch.MakeFolder(W("dir"));
  run.host.fileOperation.items = {run.host.AddFileIn(run.scratch.Path() + W("\\"), W("dir"))};
  run.call.values["FILE"] = run.scratch.Path(W("dir"));
  run.call.values["TARGET"] = W("out");
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_THAT(run.host.recorder.CallsOf({"LogMessage"}),
              ElementsAre(run.Log("30", "[SortLines] - Failed to sortline in file : " + run.PathOf("dir"))));
  EXPECT_FALSE(run.scratch.Exists(W("out")));
}

TEST(SortLinesScript, WithoutSilentTheRunEndsWithABox) {
  Script run;
  run.call.switches.clear();
  run.host.texts[kTextSortDone] = W("Sorted: %s");
  run.host.boxAnswers = {IDOK};
  EXPECT_EQ(SortLinesScript(run.host, run.call), 1);
  EXPECT_THAT(run.host.recorder.CallsOf({"MessageBox"}),
              ElementsAre("MessageBox(\"T023B0064\", \"Sorted: 1\", 0x00000040)"));
  EXPECT_EQ(run.host.unexpectedQuestions, 0);
}

TEST(SortLinesScript, EndsQuietlyWhateverTheHostRefuses) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "b\na\n");
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        host.fileOperation.items = {host.AddFileIn(scratch.Path() + W("\\"), W("a.txt"))};
        host.boxAnswers = {IDYES, IDOK};
      },
      [&](FakeHost& host) {
        FakeCommandCall call(kNumber);
        call.values = {{"FILE", path}, {"TARGET", W("*.sorted")}};
        call.switches = {"OVERWRITE"};
        SortLinesScript(host, call);
      });
}

}  // namespace
}  // namespace WQLineSorter
