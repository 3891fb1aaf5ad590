// Moves of selected rows, compared with a reference that stores a mark in each row and swaps rows one by one.
#include "host/controls/row_order.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace QxHost {
namespace {

struct MarkedRow {
  char name;
  bool isSelected;
};

// The reference for each move.
void MoveReference(std::vector<MarkedRow>& rows, RowMove move) {
  const auto isSelected = [](const MarkedRow& row) { return row.isSelected; };
  const auto isOther = [](const MarkedRow& row) { return !row.isSelected; };
  switch (move) {
    case RowMove::kUp:
      for (std::size_t at = 1; at < rows.size(); ++at) {
        if (rows[at].isSelected && !rows[at - 1].isSelected) std::swap(rows[at], rows[at - 1]);
      }
      break;
    case RowMove::kDown:
      for (std::size_t at = rows.size(); at-- > 1;) {
        if (rows[at - 1].isSelected && !rows[at].isSelected) std::swap(rows[at - 1], rows[at]);
      }
      break;
    case RowMove::kTop:
      std::stable_partition(rows.begin(), rows.end(), isSelected);
      break;
    case RowMove::kBottom:
      std::stable_partition(rows.begin(), rows.end(), isOther);
      break;
  }
}

// Returns the rows as text, with selected rows in upper case: "aBCd".
std::string Shown(const RowOrder& order, const RowRanges& selected) {
  std::string text;
  for (std::size_t at = 0; at < order.Count(); ++at) {
    const char name = *static_cast<const char*>(order.At(at));
    text += selected.Contains(at) ? static_cast<char>(name - 'a' + 'A') : name;
  }
  return text;
}

constexpr char kNames[] = "abcdefghijklmnopqrst";

void* RowNamed(char name) { return const_cast<char*>(kNames + (name - 'a')); }

// Moves the rows of a text such as "aBCd".
std::string MovedText(const std::string& rows, RowMove move) {
  RowOrder order;
  RowRanges selected;
  std::size_t followed = 0;
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const bool isSelected = rows[at] < 'a';
    order.Add(RowNamed(isSelected ? static_cast<char>(rows[at] - 'A' + 'a') : rows[at]));
    if (isSelected) selected.Append({at, at + 1});
  }
  const RowRanges after = order.Move(move, selected, followed);
  return Shown(order, after);
}

TEST(RowOrderTest, OneRowMovesByOneAndToTheEnds) {
  EXPECT_EQ(MovedText("abCd", RowMove::kUp), "aCbd");
  EXPECT_EQ(MovedText("aBcd", RowMove::kDown), "acBd");
  EXPECT_EQ(MovedText("abCd", RowMove::kTop), "Cabd");
  EXPECT_EQ(MovedText("aBcd", RowMove::kBottom), "acdB");
}

TEST(RowOrderTest, SelectedRowsKeepTheirOrderAndTheirGaps) {
  EXPECT_EQ(MovedText("abCDeFg", RowMove::kUp), "aCDbFeg");
  EXPECT_EQ(MovedText("aBcDEfg", RowMove::kDown), "acBfDEg");
  EXPECT_EQ(MovedText("aBcDeF", RowMove::kTop), "BDFace");
  EXPECT_EQ(MovedText("AbCdEf", RowMove::kBottom), "bdfACE");
}

TEST(RowOrderTest, RowsAtTheEndStayAndThoseBeyondAGapCloseIt) {
  EXPECT_EQ(MovedText("ABcD", RowMove::kUp), "ABDc");
  EXPECT_EQ(MovedText("ABDc", RowMove::kUp), "ABDc");
  EXPECT_EQ(MovedText("aBcD", RowMove::kDown), "acBD");
  EXPECT_EQ(MovedText("ABC", RowMove::kDown), "ABC");
  EXPECT_EQ(MovedText("ABC", RowMove::kTop), "ABC");
}

TEST(RowOrderTest, WithoutASelectionNothingMoves) {
  for (const RowMove move : {RowMove::kUp, RowMove::kDown, RowMove::kTop, RowMove::kBottom}) {
    EXPECT_EQ(MovedText("abc", move), "abc");
    EXPECT_EQ(MovedText("", move), "");
  }
}

TEST(RowOrderTest, AgreesWithThePlainRuleWhateverTheSelection) {
  std::mt19937 random(11);
  for (int round = 0; round < 5000; ++round) {
    const std::size_t count = random() % 20;
    const unsigned density = random() % 5;
    std::vector<MarkedRow> plain;
    RowOrder order;
    RowRanges selected;
    for (std::size_t at = 0; at < count; ++at) {
      const bool isSelected = random() % 5 <= density;
      plain.push_back({kNames[at], isSelected});
      order.Add(RowNamed(kNames[at]));
      if (isSelected) selected.Append({at, at + 1});
    }
    for (int step = 0; step < 5; ++step) {
      const auto move = static_cast<RowMove>(random() % 4);
      std::size_t followed = count == 0 ? 0 : random() % count;
      const void* const row = order.At(followed);
      MoveReference(plain, move);
      selected = order.Move(move, selected, followed);
      std::string expected;
      for (const MarkedRow& one : plain) {
        expected += one.isSelected ? static_cast<char>(one.name - 'a' + 'A') : one.name;
      }
      ASSERT_EQ(Shown(order, selected), expected) << "round " << round << ", step " << step;
      ASSERT_EQ(order.At(followed), row) << "round " << round << ", step " << step;
    }
  }
}

TEST(RowOrderTest, MovesHalfOfAMillionRowsAtOnce) {
  RowOrder order;
  std::vector<int> items(1000000);
  RowRanges selected;
  for (std::size_t at = 0; at < items.size(); ++at) {
    order.Add(&items[at]);
    if (at % 2 == 1) selected.Append({at, at + 1});
  }
  std::size_t followed = 1;
  selected = order.Move(RowMove::kUp, selected, followed);
  EXPECT_EQ(order.At(0), &items[1]);
  EXPECT_EQ(order.At(999999), &items[999998]);
  EXPECT_EQ(followed, 0u);
  selected = order.Move(RowMove::kBottom, selected, followed);
  EXPECT_EQ(order.At(0), &items[0]);
  EXPECT_EQ(order.At(500000), &items[1]);
  EXPECT_EQ(followed, 500000u);
  EXPECT_EQ(selected, (RowRanges{{500000, 1000000}}));
}

TEST(RowOrderTest, APlaceBeyondTheLastHoldsNothing) {
  RowOrder order;
  int item = 0;
  order.Add(&item);
  EXPECT_EQ(order.At(0), &item);
  EXPECT_EQ(order.At(1), nullptr);
  order.Clear();
  EXPECT_EQ(order.At(0), nullptr);
  EXPECT_EQ(order.Count(), 0u);
}

}  // namespace
}  // namespace QxHost
