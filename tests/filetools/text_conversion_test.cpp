// Line ends and tabs, byte by byte.
#include "filetools/text_conversion.h"

#include <gmock/gmock.h>

#include <ctime>
#include <random>

#include "filetools/plain_conversion.h"
#include "frame/host/command_numbers.h"
#include "support/real_files.h"

using namespace Velmora::SDK;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ConvertTextFileTest : public testing::Test {
 protected:
  std::string Converted(std::string_view bytes, int command, std::uint32_t width = 4) {
    const WString target = scratch_.Path(W("t"));
    EXPECT_TRUE(ConvertTextFile(scratch_.Write(W("s"), bytes), target, command, width));
    EXPECT_EQ(scratch_.Read(W("s")), bytes);
    std::string converted = scratch_.Read(W("t"));
    EXPECT_TRUE(DeleteFileW(target.c_str()));
    return converted;
  }

  std::vector<std::string> AllLineEnds(std::string_view bytes) {
    return {Converted(bytes, kCommandLineEndsToLf), Converted(bytes, kCommandLineEndsToCrLf),
            Converted(bytes, kCommandLineEndsToCr)};
  }

 private:
  const ScratchFolder scratch_;
};

class ConvertInPlace : public testing::Test {
 protected:
  FakeHost& Host() { return files_.host; }
  const ScratchFolder& Scratch() { return files_.scratch; }
  RealFiles files_;
};

}  // namespace

TEST_F(ConvertTextFileTest, LineEndsBecomeTheOnesOfTheCommand) {
  EXPECT_THAT(AllLineEnds("a\nb"), ElementsAre("a\nb", "a\r\nb", "a\rb"));
  EXPECT_THAT(AllLineEnds("a\r\nb"), ElementsAre("a\nb", "a\r\nb", "a\rb"));
  EXPECT_THAT(AllLineEnds("a\rb"), ElementsAre("a\nb", "a\r\nb", "a\rb"));
  EXPECT_THAT(AllLineEnds("\n\r\n\r\n\n"), ElementsAre("\n\n\n\n", "\r\n\r\n\r\n\r\n", "\r\r\r\r"));
  EXPECT_THAT(AllLineEnds("a\tb\0c\xFF"s), ElementsAre("a\tb\0c\xFF"s, "a\tb\0c\xFF"s, "a\tb\0c\xFF"s));
}

TEST_F(ConvertTextFileTest, AnEmptyFileStaysEmpty) {
  for (const int command :
       {kCommandLineEndsToLf, kCommandLineEndsToCrLf, kCommandLineEndsToCr, kCommandTabsToBlanks})
    EXPECT_EQ(Converted("", command), "");
}

TEST_F(ConvertTextFileTest, TheSecondOfTwoCrsIsNotConvertedByDesign) {
  EXPECT_THAT(AllLineEnds("\r\r\n"), ElementsAre("\n\r\n", "\r\n\r\r\n", "\r\r\r"));
  EXPECT_THAT(AllLineEnds("\r\r\r\n"), ElementsAre("\n\r\n", "\r\n\r\r\n", "\r\r\r"));
  EXPECT_THAT(AllLineEnds("\r\r\rx"), ElementsAre("\n\r\nx", "\r\n\r\r\nx", "\r\r\rx"));
}

TEST_F(ConvertTextFileTest, ATabAfterACrIsWrittenUnchanged) {
  EXPECT_THAT(AllLineEnds("\r\ta"), ElementsAre("\n\ta", "\r\n\ta", "\r\ta"));
}

TEST_F(ConvertTextFileTest, ACrAtTheVeryEndIsLostUnderCrLfAloneByDesign) {
  EXPECT_THAT(AllLineEnds("a\r"), ElementsAre("a\n", "a", "a\r"));
  EXPECT_THAT(AllLineEnds("\r"), ElementsAre("\n", "", "\r"));
}

TEST_F(ConvertTextFileTest, TwoCrsAtTheVeryEndAreFetchedTogetherAndTheSecondIsWrittenUnchanged) {
  EXPECT_THAT(AllLineEnds("a\r\r"), ElementsAre("a\n\r", "a\r\n\r", "a\r\r"));
}

TEST_F(ConvertTextFileTest, TabsBecomeBlanks) {
  EXPECT_EQ(Converted("\ta\t\tb", kCommandTabsToBlanks, 8), "        a                b");
  EXPECT_EQ(Converted("ab\tc", kCommandTabsToBlanks, 8), "ab        c") << "whatever the column";
  EXPECT_EQ(Converted("a\tb", kCommandTabsToBlanks, 1), "a b");
  EXPECT_EQ(Converted("a\tb", kCommandTabsToBlanks, 20), "a                    b");
}

TEST_F(ConvertTextFileTest, TabsAreDroppedForTheWidth0ByDesign) {
  EXPECT_EQ(Converted("a\tb\t", kCommandTabsToBlanks, 0), "ab");
}

TEST_F(ConvertTextFileTest, TabsDoNotCheckThePreviousByteSoTheNeighbourOfACrBecomesBlanksToo) {
  EXPECT_EQ(Converted("\r\t\r\n\t\r\r\n", kCommandTabsToBlanks, 2), "\r  \r\n  \r\r\n");
}

TEST_F(ConvertTextFileTest, ATwoByteEncodingIsChangedByteByByteByDesign) {
  EXPECT_EQ(Converted("a\0\n\0"s, kCommandLineEndsToCrLf), "a\0\r\n\0"s);
}

TEST_F(ConvertTextFileTest, APairIsOneAcrossTheEndOfTheBuffer) {
  const std::string before(65535, 'x');
  EXPECT_EQ(Converted(before + "\r\ny", kCommandLineEndsToLf), before + "\ny");
  EXPECT_EQ(Converted(before + "\r\ny", kCommandLineEndsToCrLf), before + "\r\ny");
  EXPECT_EQ(Converted(before + "\r\ny", kCommandLineEndsToCr), before + "\ry");
}

TEST_F(ConvertTextFileTest, ACrAsTheLastByteOfAFullBufferIsTheLastOfTheFile) {
  const std::string before(65535, 'x');
  EXPECT_EQ(Converted(before + "\r", kCommandLineEndsToLf), before + "\n");
  EXPECT_EQ(Converted(before + "\r", kCommandLineEndsToCrLf), before);
  EXPECT_EQ(Converted(before + "\r", kCommandLineEndsToCr), before + "\r");
}

TEST_F(ConvertTextFileTest, APairAndBlanksMayBeCutByTheEndOfTheOutputBuffer) {
  for (std::size_t size = 65530; size <= 65537; ++size) {
    const std::string before(size, 'x');
    EXPECT_EQ(Converted(before + "\ny", kCommandLineEndsToCrLf), before + "\r\ny");
    EXPECT_EQ(Converted(before + "\ty", kCommandTabsToBlanks, 8), before + "        y");
  }
}

TEST_F(ConvertTextFileTest, RandomTextsConvertAsThePlainRuleSays) {
  std::mt19937 random(4);
  const std::string characters = "\r\r\r\n\n\n\t\tab\0"s;
  for (int run = 0; run < 80; ++run) {
    const bool isLong = run % 4 == 0;
    std::string text(isLong ? 65526 + random() % 20 : random() % 40, 'a');
    for (char& character : text) character = characters[random() % characters.size()];
    if (run % 8 == 0 && text.size() > 65536) text[65535] = '\r';
    for (const int command :
         {kCommandLineEndsToLf, kCommandLineEndsToCrLf, kCommandLineEndsToCr, kCommandTabsToBlanks}) {
      const std::uint32_t width = random() % 21;
      ASSERT_TRUE(Converted(text, command, width) == PlainConversion(text, command, width))
          << "run " << run << ", " << command;
    }
  }
}

TEST_F(ConvertTextFileTest, ATargetThatExistsIsLeftAlone) {
  const ScratchFolder scratch;
  const WString target = scratch.Write(W("t"), "old");
  EXPECT_FALSE(ConvertTextFile(scratch.Write(W("s"), "a\n"), target, kCommandLineEndsToCrLf, 0));
  EXPECT_EQ(scratch.Read(W("t")), "old");
}

TEST_F(ConvertTextFileTest, ASourceThatIsNotThereMakesNoTarget) {
  const ScratchFolder scratch;
  EXPECT_FALSE(ConvertTextFile(scratch.Path(W("none")), scratch.Path(W("t")), kCommandLineEndsToCrLf, 0));
  EXPECT_THAT(scratch.Names(), IsEmpty());
}

TEST_F(ConvertInPlace, TheConvertedFileTakesThePlace) {
  const WString path = files_.Add(W("a.txt"), "a\nb\n");
  ConvertTextFileInPlace(Host(), path, kCommandLineEndsToCrLf, 0);
  EXPECT_EQ(Scratch().Read(W("a.txt")), "a\r\nb\r\n");
  EXPECT_THAT(Scratch().Names(), ElementsAre(W("a.txt")));
  EXPECT_THAT(Host().recorder.Calls(),
              ElementsAre("GetService(3000, 0)", "file operation.FileExists(" + Quoted(path.c_str()) + ")",
                          "ReleaseService(file operation, 0)"));
  ExpectAllReleased(Host());
}

TEST_F(ConvertInPlace, WithoutTheServiceNothingHappens) {
  const WString path = files_.Add(W("a.txt"), "a\n");
  Host().recorder.Refuse("GetService");
  ConvertTextFileInPlace(Host(), path, kCommandLineEndsToCrLf, 0);
  EXPECT_EQ(Scratch().Read(W("a.txt")), "a\n");
}

TEST_F(ConvertInPlace, AFileThatTheHostDoesNotFindIsLeftAlone) {
  const WString path = Scratch().Write(W("a.txt"), "a\n");
  ConvertTextFileInPlace(Host(), path, kCommandLineEndsToCrLf, 0);
  EXPECT_EQ(Scratch().Read(W("a.txt")), "a\n");
  ExpectAllReleased(Host());
}

TEST_F(ConvertInPlace, AReadOnlyFileStaysAndTheConvertedTextIsNextToItByDesign) {
  const WString path = files_.Add(W("a.txt"), "a\n");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  const std::time_t before = std::time(nullptr);
  ConvertTextFileInPlace(Host(), path, kCommandLineEndsToCrLf, 0);
  const std::time_t after = std::time(nullptr);
  EXPECT_EQ(Scratch().Read(W("a.txt")), "a\n");
  const std::vector<WString> names = Scratch().Names();
  ASSERT_EQ(names.size(), 2u);
  ASSERT_TRUE(names[1].starts_with(W("a.txt.temp"))) << ToUtf8(names[1]);
  const long long seconds = std::stoll(ToUtf8(names[1].substr(10)));
  EXPECT_TRUE(before <= seconds && seconds <= after) << seconds;
  EXPECT_EQ(names[1].substr(10), FromUtf8(std::to_string(seconds)));
  EXPECT_EQ(Scratch().Read(names[1]), "a\r\n");
}

TEST_F(ConvertInPlace, ATemporaryNameThatIsTakenLeavesTheFileAsItWas) {
  const WString path = files_.Add(W("a.txt"), "a\n");
  const std::time_t now = std::time(nullptr);
  for (int later = 0; later < 60; ++later) {
    Scratch().Write(W("a.txt.temp") + FromUtf8(std::to_string(now + later)), "x");
  }
  ConvertTextFileInPlace(Host(), path, kCommandLineEndsToCrLf, 0);
  EXPECT_EQ(Scratch().Read(W("a.txt")), "a\n");
  ExpectAllReleased(Host());
}
