// Converting where a call fails: the text is whole, in the file or under the temporary name.
#include <gmock/gmock.h>

#include <functional>

#include "filetools/text_conversion.h"
#include "platform/posix/faults.h"
#include "support/memory_limit.h"
#include "support/real_files.h"

using namespace Platform;
using testing::ElementsAre;

namespace {

class TextConversionFaults : public testing::Test {
 protected:
  void Convert() {
    ConvertTextFileInPlace(files_.host, path_, 30101, 0);
    Faults::Clear();
    ExpectAllGivenBack(files_.host);
  }

  void ExpectFileAsItWas() {
    EXPECT_TRUE(files_.scratch.Read(W("a")) == text_);
    EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a")));
  }

  // The one file beside, under the temporary name.
  WString Temporary() const {
    for (const WString& name : files_.scratch.Names()) {
      if (name.starts_with(W("a.temp"))) return name;
    }
    return {};
  }

  const Faults::Scope faults_;
  RealFiles files_;
  // Three buffers and a half.
  const std::string text_ = std::string(65536 * 7 / 2, 'x');
  const WString path_ = files_.Add(W("a"), text_);
};

}  // namespace

TEST_F(TextConversionFaults, AFileThatCannotBeOpenedOrMadeIsAsItWas) {
  for (int nth = 1; nth <= 2; ++nth) {
    Faults::Fail("CreateFileW", nth, ERROR_ACCESS_DENIED);
    Convert();
    ExpectFileAsItWas();
  }
}

TEST_F(TextConversionFaults, AFailedWriteBeforeTheLastLeavesTheFileAsItWas) {
  for (int nth = 1; nth <= 3; ++nth) {
    Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
    Convert();
    ExpectFileAsItWas();
    Faults::WriteShort(nth, 100);
    Convert();
    ExpectFileAsItWas();
  }
}

TEST_F(TextConversionFaults, AFailedLastWriteStillCountsAsSuccessWhichIsMeant) {
  Faults::Fail("WriteFile", 4, ERROR_DISK_FULL);
  Convert();
  EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a")));
  EXPECT_TRUE(files_.scratch.Read(W("a")) == std::string(65536 * 3, 'x'));
}

TEST_F(TextConversionFaults, AFailedReadEndsTheTextAndStillCountsAsSuccessWhichIsMeant) {
  Faults::Fail("ReadFile", 3, ERROR_IO_DEVICE);
  Convert();
  EXPECT_THAT(files_.scratch.Names(), ElementsAre(W("a")));
  EXPECT_TRUE(files_.scratch.Read(W("a")) == std::string(65536 * 2, 'x'));
}

TEST_F(TextConversionFaults, AFailedFirstReadGivesAnEmptyFileWhichIsMeant) {
  Faults::Fail("ReadFile", 1, ERROR_IO_DEVICE);
  EXPECT_TRUE(ConvertTextFile(path_, files_.scratch.Path(W("t")), 30101, 0));
  Faults::Clear();
  EXPECT_EQ(files_.scratch.Read(W("t")), "");
}

TEST_F(TextConversionFaults, AFileThatCannotBeDeletedStaysAndTheTextStandsBesideIt) {
  Faults::Fail("DeleteFileW", 1, ERROR_SHARING_VIOLATION);
  Convert();
  EXPECT_TRUE(files_.scratch.Read(W("a")) == text_);
  EXPECT_TRUE(files_.scratch.Read(Temporary()) == text_);
  EXPECT_EQ(files_.scratch.Names().size(), 2u);
}

TEST_F(TextConversionFaults, ATextThatCannotBeRenamedStandsUnderTheTemporaryName) {
  Faults::Fail("MoveFileW", 1, ERROR_ACCESS_DENIED);
  Convert();
  EXPECT_THAT(files_.scratch.Names(), ElementsAre(Temporary()));
  EXPECT_TRUE(files_.scratch.Read(Temporary()) == text_);
}

TEST_F(TextConversionFaults, ATemporaryFileThatCannotBeDeletedLeavesTheFileAsItWas) {
  Faults::Fail("WriteFile", 1, ERROR_DISK_FULL);
  Faults::Fail("DeleteFileW", 1, ERROR_ACCESS_DENIED);
  Convert();
  EXPECT_TRUE(files_.scratch.Read(W("a")) == text_);
}

TEST_F(TextConversionFaults, MemoryDoesNotGrowWithTheFile) {
  const ScratchFolder scratch;
  const auto allocations = [&](std::size_t size, const WString& target) {
    const WString source = scratch.Write(W("s"), std::string(size, '\n'));
    const WString path = scratch.Path(target);
    const long before = Memory::AllocationCount();
    EXPECT_TRUE(ConvertTextFile(source, path, 30102, 0));
    return Memory::AllocationCount() - before;
  };
  EXPECT_EQ(allocations(10, W("1")), allocations(3000000, W("2")));
}
