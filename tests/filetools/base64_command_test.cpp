// Commands 30210 and 30211, applied to the selection.
#include <gmock/gmock.h>

#include "filetools/base64_file.h"
#include "filetools/plain_base64.h"
#include "frame/services/message_texts.h"
#include "support/box_answers.h"
#include "support/real_files.h"
#include "support/refusals.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class Base64Command : public testing::Test {
 protected:
  FakeHost& Host() { return files_.host; }
  const ScratchFolder& Scratch() { return files_.scratch; }

  // Runs the command. The boxes are answered with these buttons; no other box may open.
  std::vector<ShownBox> Run(bool encode, std::initializer_list<int> buttons = {}) {
    BoxAnswers boxes(buttons);
    ConvertBase64Command(Host(), encode);
    EXPECT_EQ(boxes.Unused(), 0);
    EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
    ExpectAllReleased(Host());
    return boxes.Boxes();
  }

  RealFiles files_;
};

}  // namespace

TEST_F(Base64Command, EncodesEachSelectedFileIntoItsFolder) {
  files_.Select(W("a.txt"), "foo");
  files_.Select(W("b.tar.gz"), "bar");
  files_.Select(W("none"), "x");
  EXPECT_THAT(Run(true), IsEmpty());
  EXPECT_EQ(Scratch().Read(W("a.b64")), PlainBase64::Header("a.txt") + "Zm9v");
  EXPECT_EQ(Scratch().Read(W("b.tar.b64")), PlainBase64::Header("b.tar.gz") + "YmFy");
  EXPECT_EQ(Scratch().Read(W("none.b64")), PlainBase64::Header("none") + "eA==");
  EXPECT_EQ(Scratch().Read(W("a.txt")), "foo");
  EXPECT_THAT(Scratch().Names(),
              ElementsAre(W("a.b64"), W("a.txt"), W("b.tar.b64"), W("b.tar.gz"), W("none"), W("none.b64")));
}

TEST_F(Base64Command, DecodesToTheNameInTheHeader) {
  files_.Select(W("a.b64"), PlainBase64::Header("original.txt") + "Zm9v");
  EXPECT_THAT(Run(false), IsEmpty());
  EXPECT_EQ(Scratch().Read(W("original.txt")), "foo");
  EXPECT_THAT(Scratch().Names(), ElementsAre(W("a.b64"), W("original.txt")));
}

TEST_F(Base64Command, DecodesWithoutAHeaderToTheNameWithoutItsExtension) {
  files_.Select(W("a.txt.b64"), "Zm9v");
  EXPECT_THAT(Run(false), IsEmpty());
  EXPECT_EQ(Scratch().Read(W("a.txt")), "foo");
}

TEST_F(Base64Command, ANameThatIsRefusedGivesWayToTheFilesOwnAndTheHeaderIsSkipped) {
  for (const char* name :
       {"", "..\\evil", "../evil", "..", "a*", "a?b", "<a>", "a|b", "NUL", "nul.txt", "COM1.txt"}) {
    RealFiles files;
    files.scratch.MakeFolder(W("d"));
    files.Select(W("d\\a.b64"), PlainBase64::Header(name) + "Zm9v");
    BoxAnswers boxes;
    ConvertBase64Command(files.host, false);
    EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
    EXPECT_THAT(files.scratch.Names(), ElementsAre(W("d"))) << name;
    EXPECT_THAT(files.scratch.Names(W("d")), ElementsAre(W("a"), W("a.b64"))) << name;
    EXPECT_EQ(files.scratch.Read(W("d\\a")), "foo") << name;
    ExpectAllReleased(files.host);
  }
}

TEST_F(Base64Command, AHeaderWithoutANameIsDecodedTooWhichIsIntended) {
  const std::string text = "MIME-Version: 1.0\r\nX: y\r\nZ: w\r\n\r\nZm9v";
  files_.Select(W("a.b64"), text);
  Run(false);
  EXPECT_EQ(Scratch().Read(W("a")), PlainBase64::DecodedFile(text));
}

TEST_F(Base64Command, RunsCallByCall) {
  const WString path = files_.Select(W("a.txt"), "foo");
  Run(true);
  const std::string source = Quoted(path.c_str());
  const std::string target = Quoted(Scratch().Path(W("a.b64")).c_str());
  EXPECT_THAT(Host().recorder.CallsExcept({"item ", "list1.Get"}),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 18, 0)", "list1.Release()",
                          "GetService(3000, 0)", "file operation.FileExists(" + source + ")",
                          "file operation.FileExists(" + target + ")", "ReleaseService(file operation, 0)"));
  EXPECT_THAT(Host().recorder.Calls(), testing::Contains("item a.txt.GetFullPath(2048)"));
}

TEST_F(Base64Command, AsksBeforeATargetIsReplaced) {
  for (const bool encode : {true, false}) {
    RealFiles files;
    files.host.texts[kTextBase64TargetExists] = W("Replace %s?");
    files.host.texts[kTextBase64Encode] = W("Encode");
    files.host.texts[kTextBase64Decode] = W("Decode");
    files.Select(W("a.x"), encode ? "foo" : "Zm9v");
    const WString target = files.Add(encode ? W("a.b64") : W("a"), "old");
    BoxAnswers boxes{IDNO};
    ConvertBase64Command(files.host, encode);
    ASSERT_THAT(boxes.Boxes(), SizeIs(1));
    EXPECT_EQ(boxes.Boxes()[0].title, encode ? W("Encode") : W("Decode"));
    EXPECT_EQ(boxes.Boxes()[0].text, W("Replace ") + target + W("?"));
    EXPECT_EQ(boxes.Boxes()[0].buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_TRUE(boxes.Boxes()[0].hasIcon);
    EXPECT_EQ(files.scratch.Read(encode ? W("a.b64") : W("a")), "old");
    ExpectAllReleased(files.host);
  }
}

TEST_F(Base64Command, YesReplacesAndNoGoesOnWithTheNextFile) {
  files_.Select(W("a.txt"), "foo");
  files_.Add(W("a.b64"), "old");
  files_.Select(W("b.txt"), "bar");
  files_.Add(W("b.b64"), "old");
  files_.Select(W("c.txt"), "c");
  EXPECT_THAT(Run(true, {IDNO, IDYES}), SizeIs(2));
  EXPECT_EQ(Scratch().Read(W("a.b64")), "old");
  EXPECT_EQ(Scratch().Read(W("b.b64")), PlainBase64::Header("b.txt") + "YmFy");
  EXPECT_TRUE(Scratch().Exists(W("c.b64")));
}

TEST_F(Base64Command, AFileThatIsItsOwnTargetStaysWholeEvenAfterYes) {
  files_.Select(W("a.b64"), "foo");
  EXPECT_THAT(Run(true, {IDYES}), SizeIs(1));
  EXPECT_EQ(Scratch().Read(W("a.b64")), "foo");
  RealFiles plain;
  plain.Select(W("a"), "Zm9v");
  BoxAnswers boxes{IDYES};
  ConvertBase64Command(plain.host, false);
  EXPECT_EQ(boxes.Unused(), 0);
  EXPECT_EQ(plain.scratch.Read(W("a")), "Zm9v");
}

TEST_F(Base64Command, AFileThatIsGoneDoesNotEndTheRun) {
  Host().selection.push_back(Host().AddFileIn(Scratch().Path() + W("\\"), W("gone.txt")));
  files_.Select(W("b.txt"), "bar");
  EXPECT_THAT(Run(true), IsEmpty());
  EXPECT_THAT(Scratch().Names(), ElementsAre(W("b.b64"), W("b.txt")));
}

TEST_F(Base64Command, NothingSelectedIsNothingDone) {
  EXPECT_THAT(Run(true), IsEmpty());
  EXPECT_THAT(Run(false), IsEmpty());
}

TEST_F(Base64Command, OneFileReturnsWhetherItWasProcessed) {
  const WString path = files_.Add(W("a.txt"), "foo");
  EXPECT_TRUE(ConvertFileBase64(Host(), path, true));
  EXPECT_FALSE(ConvertFileBase64(Host(), Scratch().Path(W("gone.txt")), true));
  files_.Add(W("a.b64"), "old");
  {
    BoxAnswers boxes{IDNO};
    EXPECT_FALSE(ConvertFileBase64(Host(), path, true));
  }
  Host().recorder.Refuse("GetService");
  EXPECT_FALSE(ConvertFileBase64(Host(), path, true));
  EXPECT_EQ(Scratch().Read(W("a.b64")), "old");
  ExpectAllReleased(Host());
}

TEST_F(Base64Command, AFailureOfTheConversionItselfStillCountsAsDoneByDesign) {
  const WString path = files_.Add(W("a.b64"), "foo");
  BoxAnswers boxes{IDYES};
  EXPECT_TRUE(ConvertFileBase64(Host(), path, true));
}

TEST(Base64CommandRefusals, EveryRefusalEndsQuietly) {
  const ScratchFolder scratch;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        scratch.Write(W("a.txt"), "foo");
        scratch.Write(W("a.b64"), "old");
        for (const WString name : {W("a.txt"), W("a.b64")}) {
          host.fileOperation.items.push_back(host.AddFileIn(scratch.Path() + W("\\"), name));
        }
        host.selection = {host.fileOperation.items[0]};
      },
      [](FakeHost& host) {
        BoxAnswers boxes{IDYES};
        ConvertBase64Command(host, true);
      });
}
