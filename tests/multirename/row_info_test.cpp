// The texts in the rows of the list.
#include "multirename/form/row_info.h"

#include <gtest/gtest.h>

#include "multirename/bare_file_item.h"
#include "support/fake_host.h"

namespace Velmora::SDK {
namespace {

class ImageItem final : public BareFileItem {
 public:
  s64 GetRowImage(u32 imageSet) override {
    requests.push_back(imageSet);
    return 42;
  }

  std::vector<u32> requests;
};

class RowInfo : public testing::Test {
 protected:
  RowInfo() {
    row_.folderPath = W("C:\\photos\\");
    row_.oldName = W("old.jpg");
    row_.newName = W("new.jpg");
  }

  WString Cell(u32 column, u32 state = StateReady, u32 size = 100) {
    row_.state = state;
    std::vector<WCHAR> buffer(size, W('~'));
    EXPECT_EQ(info_.GetCellText(&row_, column, buffer.data(), size), 1u);
    return buffer.data();
  }

  FakeHost host_;
  std::atomic<u32> imageSet_{3};
  RenameRowInfo info_{host_, &imageSet_};
  MultiRenameItem row_;
};

TEST_F(RowInfo, TheColumnsAreFolderOldNameAndNewName) {
  EXPECT_EQ(Cell(1), W("C:\\photos\\"));
  EXPECT_EQ(Cell(2), W("old.jpg"));
  EXPECT_EQ(Cell(3), W("new.jpg"));
  EXPECT_EQ(Cell(0), W(""));
  EXPECT_EQ(Cell(4), W(""));
}

TEST_F(RowInfo, TheNewNameShowsItsConflict) {
  EXPECT_EQ(Cell(3, 2), W("new.jpg > T006E0065"));
  EXPECT_EQ(Cell(3, 3), W("new.jpg > T00780065"));
  EXPECT_EQ(Cell(3, 4), W("new.jpg > T00790065"));
  EXPECT_EQ(Cell(3, 5), W("new.jpg"));
  EXPECT_EQ(Cell(3, 6), W("new.jpg"));
}

TEST_F(RowInfo, ADuplicateShowsOnlyTheFixedTextAndNotItsNewName) {
  EXPECT_EQ(Cell(3, 1), W("T00640065"));
  EXPECT_EQ(Cell(2, 1), W("old.jpg"));
}

TEST_F(RowInfo, AnEmptyNewNameIsAnEmptyCellWithItsReason) {
  row_.newName.clear();
  EXPECT_EQ(Cell(3), W(""));
  EXPECT_EQ(Cell(3, 2), W(" > T006E0065"));
  EXPECT_EQ(Cell(3, 6), W(""));
}

TEST_F(RowInfo, ACellIsCutAtItsBufferAndEndsInAZero) {
  EXPECT_EQ(Cell(3, 3, 4), W("new"));
  EXPECT_EQ(Cell(3, 3, 10), W("new.jpg >"));
  EXPECT_EQ(Cell(3, 3, 13), W("new.jpg > T0"));
  EXPECT_EQ(Cell(2, 0, 1), W(""));
}

TEST_F(RowInfo, WithoutABufferOnlyTheResultIsGiven) {
  EXPECT_EQ(info_.GetCellText(&row_, 3, nullptr, 0), 1u);
  WCHAR untouched = W('~');
  EXPECT_EQ(info_.GetCellText(&row_, 3, &untouched, 0), 1u);
  EXPECT_EQ(untouched, W('~'));
}

TEST_F(RowInfo, ANullItemHasNoText) {
  WCHAR buffer[4] = {W('~')};
  EXPECT_EQ(info_.GetCellText(nullptr, 3, buffer, 4), 1u);
  EXPECT_EQ(buffer[0], WCHAR());
}

TEST_F(RowInfo, TheNewNamesOfRowsInTheWayAreMarked) {
  for (const auto& [state, style] :
       {std::pair{0u, 0x1000000u}, std::pair{1u, 0x1300000u}, std::pair{2u, 0x1300000u},
        std::pair{3u, 0x1300000u}, std::pair{4u, 0x1300000u}, std::pair{5u, 0x1000000u},
        std::pair{6u, 0x1000000u}}) {
    row_.state = state;
    EXPECT_EQ(info_.GetCellStyle(&row_, 3), style) << state;
    EXPECT_EQ(info_.GetCellStyle(&row_, 1), 0x1000000u) << state;
    EXPECT_EQ(info_.GetCellStyle(&row_, 2), 0x1000000u) << state;
  }
  EXPECT_EQ(info_.GetCellStyle(nullptr, 3), 0x1000000u);
}

TEST_F(RowInfo, DuplicatesAndFailuresHaveTheirColours) {
  for (const auto& [state, colour] :
       {std::pair{0u, -1}, std::pair{1u, 0x1621BB}, std::pair{2u, -1}, std::pair{3u, 0x0B1699},
        std::pair{4u, 0x0B1699}, std::pair{5u, -1}, std::pair{6u, -1}}) {
    row_.state = state;
    EXPECT_EQ(info_.GetTextColor(&row_, 3), colour) << state;
    EXPECT_EQ(info_.GetTextColor(&row_, 1), -1) << state;
    EXPECT_EQ(info_.GetTextColor(&row_, 2), -1) << state;
  }
  EXPECT_EQ(info_.GetTextColor(nullptr, 3), -1);
}

TEST_F(RowInfo, TheOtherOperationsReturnTheirConstants) {
  EXPECT_EQ(info_.Reserved1(), 0u);
  EXPECT_EQ(info_.Reserved2(), 16u);
  EXPECT_EQ(info_.Reserved3(), 0u);
  u32 flags = 0;
  EXPECT_EQ(info_.GetRowFlags(&row_, &flags), 1u);
  EXPECT_EQ(flags, 512u);
  EXPECT_EQ(info_.Reserved4(), -1);
  EXPECT_EQ(info_.GetBackColor(&row_, 3), 0xFFFFFFFFu);
  EXPECT_EQ(info_.Reserved5(), 16u);
  EXPECT_EQ(info_.Reserved6(), 0u);
}

TEST_F(RowInfo, AFoldersImageIsAskedForOnceAndKept) {
  ImageItem folder;
  row_.hostItem = &folder;
  row_.rowImage = -1;
  EXPECT_EQ(info_.GetRowImage(&row_), 42);
  EXPECT_EQ(info_.GetRowImage(&row_), 42);
  EXPECT_EQ(folder.requests, std::vector<u32>{3});
  EXPECT_EQ(row_.rowImage, 42);
}

TEST_F(RowInfo, ARowOfAnUndoSessionIsNotAskedForItsImage) {
  EXPECT_EQ(row_.rowImage, 0);
  EXPECT_EQ(info_.GetRowImage(&row_), 0);
}

TEST_F(RowInfo, WithoutARowOrAnImageSetThereIsNoImage) {
  EXPECT_EQ(info_.GetRowImage(nullptr), 0);
  ImageItem item;
  row_.hostItem = &item;
  row_.rowImage = -1;
  RenameRowInfo without(host_, nullptr);
  EXPECT_EQ(without.GetRowImage(&row_), 0);
  EXPECT_TRUE(item.requests.empty());
}

}  // namespace
}  // namespace Velmora::SDK
