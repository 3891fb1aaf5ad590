// Commands 30101, 30102, 30103 and 30110, applied to the selection.
#include <gmock/gmock.h>

#include <ctime>
#include <string>
#include <vector>

#include "filetools/text_conversion.h"
#include "frame/host/command_numbers.h"
#include "frame/services/message_texts.h"
#include "support/box_answers.h"
#include "support/real_files.h"
#include "support/refusals.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* kBefore = "a\tb\r\nc\n";

class ConvertText : public testing::Test {
 protected:
  FakeHost& Host() { return files_.host; }

  std::vector<ShownBox> Run(Velmora::SDK::s32 number, std::initializer_list<int> buttons) {
    BoxAnswers boxes(buttons);
    ConvertTextCommand(Host(), number);
    EXPECT_EQ(boxes.Unused(), 0);
    EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
    EXPECT_EQ(Host().unexpectedQuestions, 0);
    ExpectAllReleased(Host());
    return boxes.Boxes();
  }

  RealFiles files_;
};

// Returns the contents of a file after 30110 with this answer to AskChoice.
std::string TabsAfter(const ChoiceAnswer& answer) {
  RealFiles files;
  files.Select(W("a"), kBefore);
  files.host.choiceAnswers = {answer};
  BoxAnswers boxes{IDYES};
  ConvertTextCommand(files.host, kCommandTabsToBlanks);
  EXPECT_EQ(files.host.choices.size(), 1u);
  ExpectAllReleased(files.host);
  return files.scratch.Read(W("a"));
}

}  // namespace

TEST_F(ConvertText, ConvertsEachSelectedFileAfterYes) {
  const std::pair<int, const char*> kExpected[] = {{kCommandLineEndsToLf, "a\tb\nc\n"},
                                                   {kCommandLineEndsToCrLf, "a\tb\r\nc\r\n"},
                                                   {kCommandLineEndsToCr, "a\tb\rc\r"}};
  for (const auto& [number, expected] : kExpected) {
    RealFiles files;
    files.Select(W("1"), kBefore);
    files.Select(W("2"), kBefore);
    files.Add(W("3"), kBefore);
    BoxAnswers boxes{IDYES};
    ConvertTextCommand(files.host, number);
    EXPECT_THAT(boxes.Boxes(), SizeIs(1));
    EXPECT_EQ(files.scratch.Read(W("1")), expected);
    EXPECT_EQ(files.scratch.Read(W("2")), expected);
    EXPECT_EQ(files.scratch.Read(W("3")), kBefore) << "it is not selected";
    EXPECT_THAT(files.host.choices, IsEmpty());
    ExpectAllReleased(files.host);
  }
}

TEST_F(ConvertText, AsksWithTheNumberOfItems) {
  Host().texts[kTextConvertCaption] = W("Convert");
  Host().texts[kTextConvertQuestion] = W("%d files?");
  files_.Select(W("1"), kBefore);
  files_.Select(W("2"), kBefore);
  const std::vector<ShownBox> boxes = Run(kCommandLineEndsToLf, {IDNO});
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].title, W("Convert"));
  EXPECT_EQ(boxes[0].text, W("2 files?"));
  EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDYES, IDNO}));
  EXPECT_TRUE(boxes[0].hasIcon);
  EXPECT_EQ(files_.scratch.Read(W("1")), kBefore);
}

TEST_F(ConvertText, NoEndsTheCommandBeforeTheWidthIsAsked) {
  files_.Select(W("1"), kBefore);
  Run(kCommandTabsToBlanks, {IDNO});
  EXPECT_THAT(Host().choices, IsEmpty());
  EXPECT_EQ(files_.scratch.Read(W("1")), kBefore);
}

TEST_F(ConvertText, NothingSelectedAsksNothing) {
  for (const int number :
       {kCommandLineEndsToLf, kCommandLineEndsToCrLf, kCommandLineEndsToCr, kCommandTabsToBlanks})
    EXPECT_THAT(Run(number, {}), IsEmpty());
}

TEST_F(ConvertText, TheWidthIsChosenFromEightRowsOpenOnTheFourth) {
  Host().texts[kTextTabCaption] = W("Tabs");
  Host().texts[kTextTabPrompt] = W("Width:");
  Host().choiceAnswers = {{true, W("8")}};
  files_.Select(W("1"), kBefore);
  Run(kCommandTabsToBlanks, {IDYES});
  ASSERT_THAT(Host().choices, SizeIs(1));
  const AskedChoice& asked = Host().choices[0];
  EXPECT_EQ(asked.caption, W("Tabs"));
  EXPECT_EQ(asked.prompt, W("Width:"));
  EXPECT_THAT(asked.rows, ElementsAre(W("1"), W("2"), W("3"), W("4"), W("5"), W("6"), W("7"), W("8")));
  EXPECT_EQ(asked.selected, 3);
  EXPECT_TRUE(asked.isRestZero);
  EXPECT_EQ(files_.scratch.Read(W("1")), "a        b\r\nc\n");
}

TEST_F(ConvertText, CaptionAndPromptAreCutAtTheirFields) {
  Host().texts[kTextTabCaption] = WString(100, W('c'));
  Host().texts[kTextTabPrompt] = WString(300, W('p'));
  Host().choiceAnswers = {{false, W("")}};
  files_.Select(W("1"), kBefore);
  Run(kCommandTabsToBlanks, {IDYES});
  ASSERT_THAT(Host().choices, SizeIs(1));
  // With or without a terminator, the text fits its field.
  EXPECT_THAT(Host().choices[0].caption.size(), testing::AnyOf(63u, 64u));
  EXPECT_THAT(Host().choices[0].prompt.size(), testing::AnyOf(255u, 256u));
  EXPECT_TRUE(Host().choices[0].isRestZero);
}

TEST_F(ConvertText, CancelOfTheChoiceEndsTheCommand) { EXPECT_EQ(TabsAfter({false, W("2")}), kBefore); }

TEST_F(ConvertText, AWidthOf21OrMoreEndsTheCommand) {
  EXPECT_EQ(TabsAfter({true, W("21")}), kBefore);
  EXPECT_EQ(TabsAfter({true, W("4294967298")}), kBefore);
  EXPECT_EQ(TabsAfter({true, W("99999999999999999999999")}), kBefore);
  EXPECT_EQ(TabsAfter({true, W("20")}), "a" + std::string(20, ' ') + "b\r\nc\n");
}

TEST_F(ConvertText, AChoiceThatIsNotANumberIsTheWidth0AndDropsTheTabsByDesign) {
  for (const WString& text : {WString(W("")), WString(W("x")), WString(W("0")), WString(256, W('x'))}) {
    EXPECT_EQ(TabsAfter({true, text}), "ab\r\nc\n") << ToUtf8(text);
  }
}

TEST_F(ConvertText, ANegativeWidthMakesNoEndlessFile) {
  EXPECT_THAT(TabsAfter({true, W("-1")}), testing::AnyOf(kBefore, "ab\r\nc\n"));
}

TEST_F(ConvertText, AFileThatFailsDoesNotEndTheRun) {
  const WString readOnly = files_.Select(W("1"), kBefore);
  Host().selection.push_back(Host().AddFileIn(files_.scratch.Path() + W("\\"), W("gone")));
  files_.Select(W("3"), kBefore);
  ASSERT_TRUE(SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_READONLY));
  Run(kCommandLineEndsToLf, {IDYES});
  EXPECT_EQ(files_.scratch.Read(W("1")), kBefore);
  EXPECT_EQ(files_.scratch.Read(W("3")), "a\tb\nc\n");
}

// The temporary name contains the time in seconds, so all names of the next minute are taken.
TEST_F(ConvertText, ATemporaryFileOfAnotherRunIsNeverDeletedAndTheFileStaysAsItWas) {
  const WString path = files_.Select(W("a"), kBefore);
  const std::time_t now = std::time(nullptr);
  std::vector<WString> names;
  for (int second = 0; second < 60; ++second) {
    names.push_back(W("a.temp") + FromUtf8(std::to_string(now + second)));
    files_.scratch.Write(names.back(), "not ours");
  }
  Run(kCommandLineEndsToLf, {IDYES});
  EXPECT_EQ(files_.scratch.Read(W("a")), kBefore);
  for (const WString& name : names) EXPECT_EQ(files_.scratch.Read(name), "not ours");
  EXPECT_EQ(files_.scratch.Names().size(), names.size() + 1);
}

TEST(ConvertTextRefusals, EveryRefusalEndsQuietly) {
  const ScratchFolder scratch;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        scratch.Write(W("a"), kBefore);
        host.fileOperation.items.push_back(host.AddFileIn(scratch.Path() + W("\\"), W("a")));
        host.selection = host.fileOperation.items;
        host.choiceAnswers = {{true, W("4")}};
      },
      [](FakeHost& host) {
        BoxAnswers boxes{IDYES};
        ConvertTextCommand(host, kCommandTabsToBlanks);
      });
}
