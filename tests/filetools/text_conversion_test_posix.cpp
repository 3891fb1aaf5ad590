// Converting when a call fails: the complete text remains, in the file or under the temporary name.
#include <gmock/gmock.h>

#include <filesystem>
#include <initializer_list>
#include <vector>

#include "filetools/text_conversion.h"
#include "frame/host/command_numbers.h"
#include "platform/posix/files/faults.h"
#include "support/box_answers.h"
#include "support/memory_limit.h"
#include "support/real_files.h"

using namespace Velmora::SDK;
using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

// A text of three and a half buffers, which takes five reads, the last of which detects the end, and four
// writes.
class TextConversionFaults : public testing::Test {
 protected:
  // Returns the boxes shown, which are answered with these buttons in turn; each box must have one.
  std::vector<ShownBox> Convert(std::initializer_list<int> buttons = {}) {
    BoxAnswers boxes(buttons);
    ConvertTextFileInPlace(files_.host, path_, kCommandLineEndsToLf, 0);
    Faults::Clear();
    ExpectAllReleased(files_.host);
    EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
    return boxes.Boxes();
  }

  void ExpectFileAsItWas() {
    EXPECT_TRUE(files_.scratch.Read(W("a")) == text_);
    EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a")));
  }

  // Returns the temporary name of the other file.
  WString Temporary() const {
    for (const WString& name : files_.scratch.Names()) {
      if (name.starts_with(W("a.temp"))) return name;
    }
    return {};
  }

  void ExpectTextOnlyUnderTheTemporaryName() {
    EXPECT_THAT(files_.scratch.Names(), ElementsAre(Temporary()));
    EXPECT_TRUE(files_.scratch.Read(Temporary()) == converted_);
  }

  const Faults::Scope faults_;
  RealFiles files_;
  const std::string text_ = "\r" + std::string(65536 * 7 / 2 - 1, 'x');
  const std::string converted_ = "\n" + std::string(65536 * 7 / 2 - 1, 'x');
  const WString path_ = files_.Add(W("a"), text_);
};

constexpr int kReads = 5;
constexpr int kWrites = 4;

// The new file cannot be renamed after the old one was deleted.
class FailedMove : public TextConversionFaults {
 protected:
  FailedMove() { FailMove(); }

  void FailMove() { Faults::Fail("MoveFileW", 1, ERROR_ACCESS_DENIED); }

  // Converts, and expects a box that names the file with the text, because it could not be copied back.
  void ExpectBoxNamesTheTextFile() {
    const std::vector<ShownBox> boxes = Convert({IDOK});
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes[0].title, W("Error"));
    EXPECT_EQ(boxes[0].style, 16u);
    EXPECT_EQ(boxes[0].text, W("Failed to save text file\n") + path_ + W("\n\nThe converted text is in\n") +
                                 files_.scratch.Path(Temporary()));
  }

  // Like the above; then restores the file for the next fault.
  void ExpectTextIsKept() {
    ExpectBoxNamesTheTextFile();
    ExpectTextOnlyUnderTheTemporaryName();
    std::filesystem::remove(files_.scratch.NativePath(Temporary()));
    files_.scratch.Write(W("a"), text_);
    FailMove();
  }
};

}  // namespace

TEST_F(TextConversionFaults, WithoutAFaultTheTextIsInPlace) {
  Faults::Watch("ReadFile");
  Faults::Watch("WriteFile");
  ConvertTextFileInPlace(files_.host, path_, kCommandLineEndsToLf, 0);
  EXPECT_EQ(Faults::CallCount("ReadFile"), kReads);
  EXPECT_EQ(Faults::CallCount("WriteFile"), kWrites);
  EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a")));
  EXPECT_TRUE(files_.scratch.Read(W("a")) == converted_);
}

TEST_F(TextConversionFaults, AFileThatCannotBeOpenedOrMadeIsAsItWas) {
  for (int nth = 1; nth <= 2; ++nth) {
    Faults::Fail("CreateFileW", nth, ERROR_ACCESS_DENIED);
    Convert();
    ExpectFileAsItWas();
  }
}

TEST_F(TextConversionFaults, EachFailedWriteLeavesTheFileAsItWas) {
  for (int nth = 1; nth <= kWrites; ++nth) {
    Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
    Convert();
    ExpectFileAsItWas();
    Faults::WriteShort(nth, 100);
    Convert();
    ExpectFileAsItWas();
  }
}

TEST_F(TextConversionFaults, EachFailedReadLeavesTheFileAsItWas) {
  for (int nth = 1; nth <= kReads; ++nth) {
    Faults::Fail("ReadFile", nth, ERROR_IO_DEVICE);
    Convert();
    ExpectFileAsItWas();
  }
}

TEST_F(TextConversionFaults, AFailedLastWriteCountsAsSuccessOfTheConversionItselfWhichIsIntended) {
  Faults::Fail("WriteFile", kWrites, ERROR_DISK_FULL);
  EXPECT_TRUE(ConvertTextFile(path_, files_.scratch.Path(W("t")), kCommandLineEndsToLf, 0));
  Faults::Clear();
  EXPECT_TRUE(files_.scratch.Read(W("t")) == converted_.substr(0, 65536 * 3));
}

TEST_F(TextConversionFaults, AFailedWriteBeforeTheLastIsAFailureOfTheConversionItself) {
  for (int nth = 1; nth < kWrites; ++nth) {
    Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
    EXPECT_FALSE(ConvertTextFile(path_, files_.scratch.Path(W("t")), kCommandLineEndsToLf, 0)) << nth;
    Faults::Clear();
    std::filesystem::remove(files_.scratch.NativePath(W("t")));
  }
}

TEST_F(TextConversionFaults, AFailedReadCountsAsSuccessOfTheConversionItselfWhichIsIntended) {
  Faults::Fail("ReadFile", 3, ERROR_IO_DEVICE);
  EXPECT_TRUE(ConvertTextFile(path_, files_.scratch.Path(W("t")), kCommandLineEndsToLf, 0));
  Faults::Clear();
  EXPECT_TRUE(files_.scratch.Read(W("t")) == converted_.substr(0, 65536 * 2));
}

TEST_F(TextConversionFaults, AFailedFirstReadGivesAnEmptyFileWhichIsIntended) {
  Faults::Fail("ReadFile", 1, ERROR_IO_DEVICE);
  EXPECT_TRUE(ConvertTextFile(path_, files_.scratch.Path(W("t")), kCommandLineEndsToLf, 0));
  Faults::Clear();
  EXPECT_EQ(files_.scratch.Read(W("t")), "");
}

TEST_F(TextConversionFaults, AFileThatCannotBeDeletedStaysAndTheTextIsNextToIt) {
  Faults::Fail("DeleteFileW", 1, ERROR_SHARING_VIOLATION);
  Convert();
  EXPECT_TRUE(files_.scratch.Read(W("a")) == text_);
  EXPECT_TRUE(files_.scratch.Read(Temporary()) == converted_);
  EXPECT_EQ(files_.scratch.Names().size(), 2u);
}

TEST_F(TextConversionFaults, ATemporaryFileThatCannotBeDeletedLeavesTheFileAsItWas) {
  Faults::Fail("WriteFile", 1, ERROR_DISK_FULL);
  Faults::Fail("DeleteFileW", 1, ERROR_ACCESS_DENIED);
  Convert();
  EXPECT_TRUE(files_.scratch.Read(W("a")) == text_);
}

TEST_F(FailedMove, TheTextIsCopiedBackUnderTheOldName) {
  Convert();
  EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a")));
  EXPECT_TRUE(files_.scratch.Read(W("a")) == converted_);
}

TEST_F(FailedMove, ACopiedTextKeepsItsTemporaryFileWhereThatCannotBeDeleted) {
  Faults::Fail("DeleteFileW", 2, ERROR_SHARING_VIOLATION);
  Convert();
  EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a"), Temporary()));
  EXPECT_TRUE(files_.scratch.Read(W("a")) == converted_);
}

TEST_F(FailedMove, ABoxSaysWhereTheTextIsIfACopyCannotBeOpenedOrMade) {
  for (const int nth : {3, 4}) {
    Faults::Fail("CreateFileW", nth, ERROR_FILE_EXISTS);
    ExpectTextIsKept();
  }
}

TEST_F(FailedMove, ABoxSaysWhereTheTextIsIfAnyReadOrWriteOfTheCopyFails) {
  for (int nth = 1; nth <= kReads; ++nth) {
    Faults::Fail("ReadFile", kReads + nth, ERROR_IO_DEVICE);
    ExpectTextIsKept();
  }
  for (int nth = 1; nth <= kWrites; ++nth) {
    Faults::Fail("WriteFile", kWrites + nth, ERROR_DISK_FULL);
    ExpectTextIsKept();
    Faults::WriteShort(kWrites + nth, 100);
    ExpectTextIsKept();
  }
}

TEST_F(FailedMove, TheTemporaryFileIsWholeWhereAPartialCopyCannotBeDeleted) {
  Faults::Fail("WriteFile", kWrites + 1, ERROR_DISK_FULL);
  Faults::Fail("DeleteFileW", 2, ERROR_ACCESS_DENIED);
  ExpectBoxNamesTheTextFile();
  EXPECT_TRUE(files_.scratch.Read(Temporary()) == converted_);
}

TEST_F(TextConversionFaults, MemoryDoesNotGrowWithTheFile) {
  const ScratchFolder scratch;
  const auto allocations = [&](std::size_t size, const WString& target) {
    const WString source = scratch.Write(W("s"), std::string(size, '\n'));
    const WString path = scratch.Path(target);
    const long before = Memory::AllocationCount();
    EXPECT_TRUE(ConvertTextFile(source, path, kCommandLineEndsToCrLf, 0));
    return Memory::AllocationCount() - before;
  };
  EXPECT_EQ(allocations(10, W("1")), allocations(3000000, W("2")));
}
