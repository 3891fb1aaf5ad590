// The ruler of the Sort Lines dialog while the sample below it is scrolled to the right.
#include "linesorter/tool/scrolled_ruler.h"

#include <gtest/gtest.h>

namespace WQLineSorter {
namespace {

TEST(ScrolledRuler, NotScrolledItShowsWhole) {
  const ScrolledRuler shown = ScrollRuler(W("----+----1"), 0, 7);
  EXPECT_EQ(shown.text, W("----+----1"));
  EXPECT_EQ(shown.indent, 0);
}

TEST(ScrolledRuler, WholeCharactersGoAndTheRestBeginsAtTheEdge) {
  const ScrolledRuler shown = ScrollRuler(W("----+----1"), 28, 7);
  EXPECT_EQ(shown.text, W("+----1"));
  EXPECT_EQ(shown.indent, 0);
}

TEST(ScrolledRuler, CharacterThatIsCutGoesAndTheRestKeepsItsPlace) {
  const ScrolledRuler shown = ScrollRuler(W("----+----1"), 23, 7);
  EXPECT_EQ(shown.text, W("+----1"));
  EXPECT_EQ(shown.indent, 5);
  EXPECT_EQ(ScrollRuler(W("ab"), 1, 7).text, W("b"));
  EXPECT_EQ(ScrollRuler(W("ab"), 1, 7).indent, 6);
  EXPECT_EQ(ScrollRuler(W("ab"), 6, 7).indent, 1);
}

TEST(ScrolledRuler, FarToTheRightNothingOfItIsLeft) {
  EXPECT_EQ(ScrollRuler(W("ab"), 14, 7).text, W(""));
  EXPECT_EQ(ScrollRuler(W("ab"), 15, 7).text, W(""));
  EXPECT_EQ(ScrollRuler(W("ab"), 60000, 7).text, W(""));
}

TEST(ScrolledRuler, WithoutAWidthOrADistanceItShowsWhole) {
  for (const auto& [scrolled, width] :
       std::initializer_list<std::pair<int, int>>{{-7, 7}, {7, 0}, {7, -7}, {0, 0}}) {
    EXPECT_EQ(ScrollRuler(W("ab"), scrolled, width).text, W("ab"));
    EXPECT_EQ(ScrollRuler(W("ab"), scrolled, width).indent, 0);
  }
}

}  // namespace
}  // namespace WQLineSorter
