// NTFS Properties: its declarations and its cells.
#include "security/ntfs_prop.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <thread>

#include "security/current_user.h"
#include "security/server_cache.h"
#include "support/real_files.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class NtfsPropCells : public testing::Test {
 protected:
  NtfsPropCells() {
    extension_.RegisterProperties(&files_.host);
    extension_.Attach(1);
  }

  FakeFileItem& Item() { return *item_; }

  // Requests a cell in a buffer filled with marks, of which `size` characters may be used. Stores the text up
  // to its terminator or to the marks.
  bool Ask(u16 property, u16 size = 400) {
    std::fill(std::begin(cell_), std::end(cell_), W('#'));
    const bool hasValue = extension_.GetPropertyValue(item_, cell_, size, property);
    EXPECT_EQ(cell_[size], W('#'));
    text_ = WString(cell_, std::find(cell_, cell_ + size, hasValue ? WCHAR() : W('#')));
    return hasValue;
  }

  // Returns a property record as the host stores it, with this first byte and text.
  static std::vector<unsigned char> Stored(unsigned char flags, const WString& text) {
    std::vector<unsigned char> record(1056);
    record[0] = flags;
    std::memcpy(record.data() + 2, text.data(), text.size() * sizeof(WCHAR));
    return record;
  }

  RealFiles files_;
  NTFSProp extension_;
  FakeFileItem* item_ = files_.host.AddFileIn(
      (files_.scratch.Write(W("a.txt"), "abc"), files_.scratch.Path() + W("\\")), W("a.txt"));
  WCHAR cell_[600];
  WString text_;
};

}  // namespace

TEST(NtfsProp, DeclaresItsFourPropertiesAndLearnsItsNumber) {
  FakeHost host;
  NTFSProp extension;
  EXPECT_EQ(extension.RegisterProperties(&host), 0);
  EXPECT_THAT(
      host.recorder.Calls(),
      ElementsAre("GetService(3100, 0)", "definer.SetProvider(0305E12E5E9B4B2A9278C76F80AC321B)",
                  "definer.Define(1, \"owner\", 110, 0x006F0070, 0x00640070, 0x00030100, 0)",
                  "definer.Define(2, \"access\", 100, 0x00700070, 0x00640070, 0x00030100, 0)",
                  "definer.Define(3, \"ADScount\", 60, 0x00710070, 0x00640070, 0x00070200, 2)",
                  "definer.Define(4, \"ADSsize\", 60, 0x00720070, 0x00640070, 0x00070200, 2)",
                  "ReleaseService(definer, 0)", "FindModuleByGuid(0305E12E5E9B4B2A9278C76F80AC321B)"));
  ExpectAllReleased(host);
}

TEST(NtfsProp, WithoutAHostOrADefinerNothingIsDeclared) {
  NTFSProp extension;
  EXPECT_EQ(extension.RegisterProperties(nullptr), 0);
  FakeHost host;
  host.recorder.Refuse("GetService");
  EXPECT_EQ(extension.RegisterProperties(&host), 0);
  EXPECT_THAT(host.recorder.Calls(), ElementsAre("GetService(3100, 0)"));
}

TEST_F(NtfsPropCells, ADetachedExtensionHasNoValuesAndAsksNothing) {
  const std::size_t calls = files_.host.recorder.Calls().size();
  NTFSProp fresh;
  WCHAR cell[10];
  for (u16 property = 0; property < 6; ++property) {
    EXPECT_FALSE(fresh.GetPropertyValue(item_, cell, 10, property));
  }
  EXPECT_FALSE(extension_.Detach());
  for (u16 property = 0; property < 6; ++property) EXPECT_FALSE(Ask(property));
  EXPECT_EQ(files_.host.recorder.Calls().size(), calls);
  EXPECT_FALSE(extension_.Attach(u64{1} << 40));
  EXPECT_TRUE(Ask(1));
}

TEST_F(NtfsPropCells, TheOwnerIsTheOneWhoMadeTheFile) {
  EXPECT_TRUE(Ask(1));
  EXPECT_EQ(text_, CurrentAccountName());
  EXPECT_THAT(files_.host.recorder.CallsOf({"item"}),
              ElementsAre("item a.txt.GetStoredProperty(7, 1)", "item a.txt.GetRemoteLevel()",
                          "item a.txt.GetFullPath(4096)"));
}

TEST_F(NtfsPropCells, AStoredValueIsTakenWithoutTouchingTheFile) {
  Item().stored = Stored(0x80, W("kept"));
  for (u16 property = 1; property < 5; ++property) {
    EXPECT_TRUE(Ask(property));
    EXPECT_EQ(text_, W("kept"));
  }
  EXPECT_THAT(files_.host.recorder.CallsOf({"item a.txt.GetFullPath", "item a.txt.GetRemoteLevel"}),
              IsEmpty());
}

TEST_F(NtfsPropCells, AStoredRecordWithoutItsBitIsNoValue) {
  Item().stored = Stored(0x7F, W("kept"));
  EXPECT_FALSE(Ask(1));
  EXPECT_EQ(text_, W(""));
  EXPECT_THAT(files_.host.recorder.CallsOf({"item a.txt.GetFullPath"}), IsEmpty());
}

TEST_F(NtfsPropCells, AStoredTextThatFillsItsRecordEndsWithIt) {
  Item().stored = Stored(0xFF, WString(527, W('k')));
  EXPECT_TRUE(Ask(1, 590));
  EXPECT_EQ(text_, WString(527, W('k')));
}

TEST_F(NtfsPropCells, ACellThatIsShorterThanItsTextCutsItThere) {
  Item().stored = Stored(0x80, W("abcdef"));
  for (const auto& [size, text] :
       {std::pair<u16, const WCHAR*>{0, W("")}, {1, W("a")}, {3, W("abc")}, {6, W("abcdef")}}) {
    EXPECT_TRUE(Ask(1, size));
    EXPECT_EQ(text_, text) << size;
  }
  Item().stored.clear();
  EXPECT_TRUE(Ask(1, 2));
  EXPECT_EQ(text_, CurrentAccountName().substr(0, 2));
}

TEST_F(NtfsPropCells, AFileWithoutStreamsHasTheCountZeroAndNoSize) {
  EXPECT_TRUE(Ask(3));
  EXPECT_EQ(text_, W("0"));
  EXPECT_FALSE(Ask(4));
  EXPECT_EQ(text_, W(""));
}

TEST_F(NtfsPropCells, AccessIsThreeCharacters) {
  EXPECT_TRUE(Ask(2));
  EXPECT_EQ(text_.size(), 3u);
}

TEST_F(NtfsPropCells, OtherPropertiesHaveNoValue) {
  for (const int property : {0, 5, 255, 65535}) EXPECT_FALSE(Ask(static_cast<u16>(property)));
}

TEST_F(NtfsPropCells, AFileThatIsNotThereHasNoOwnerButTheOtherCells) {
  FakeFileItem* const missing = files_.host.AddFileIn(files_.scratch.Path() + W("\\"), W("nosuch"));
  item_ = missing;
  EXPECT_FALSE(Ask(1));
  EXPECT_TRUE(Ask(2));
  EXPECT_EQ(text_, W("   "));
  EXPECT_TRUE(Ask(3));
  EXPECT_EQ(text_, W("0"));
  EXPECT_FALSE(Ask(4));
}

TEST_F(NtfsPropCells, AnItemWithoutAPathHasNoOwnerButThreeBlanksOfAccessAndTheCountZero) {
  item_ = files_.host.AddFileIn(W(""), W(""));
  EXPECT_FALSE(Ask(1));
  EXPECT_TRUE(Ask(2));
  EXPECT_EQ(text_, W("   "));
  EXPECT_TRUE(Ask(3));
  EXPECT_EQ(text_, W("0"));
  EXPECT_FALSE(Ask(4));
}

TEST_F(NtfsPropCells, APathThatIsCutHasNoValue) {
  // A truncated path would name another file.
  const WString folder = files_.scratch.Path() + W("\\");
  for (const std::size_t size : {std::size_t{4096}, std::size_t{4097}, std::size_t{5000}}) {
    for (const bool fillsWhole : {false, true}) {
      item_ = files_.host.AddFileIn(folder, WString(size - folder.size(), W('n')));
      item_->fillsPathsWhole = fillsWhole;
      for (u16 property = 1; property < 5; ++property) EXPECT_FALSE(Ask(property)) << size;
    }
  }
}

TEST_F(NtfsPropCells, NoItemAndNoBufferHaveNoValue) {
  WCHAR cell[10];
  EXPECT_FALSE(extension_.GetPropertyValue(nullptr, cell, 10, 1));
  EXPECT_FALSE(extension_.GetPropertyValue(item_, nullptr, 10, 1));
}

TEST_F(NtfsPropCells, ClearCacheForgetsTheServersOfDrives) {
  ServerCache::Instance().Store(W('Q'), W("server"));
  EXPECT_FALSE(extension_.ClearCache());
  EXPECT_EQ(ServerCache::Instance().Find(W('Q')), std::nullopt);
}

// The host queries cells on its own threads. Runs under the thread sanitizer too.
TEST_F(NtfsPropCells, CellsAreAskedForOnSeveralThreads) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 50;
  // Each thread uses its own recorder and item.
  std::vector<std::thread> threads;
  std::atomic<int> values = 0;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&] {
      HostRecorder recorder;
      FakeFileItem item(recorder, files_.scratch.Path() + W("\\"), W("a.txt"), FILE_ATTRIBUTE_ARCHIVE);
      item.remoteLevel = 1;
      WCHAR cell[300];
      for (int round = 0; round < kRounds; ++round) {
        for (u16 property = 1; property < 5; ++property) {
          if (extension_.GetPropertyValue(&item, cell, 300, property)) ++values;
        }
        extension_.ClearCache();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(values, kThreads * kRounds * 3);  // the stream size is 0, which is shown as no value
}
