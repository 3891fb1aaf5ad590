// The quoted cells of the panel's list, and the lines of the search dialog.
#include "multirename/saved/search_pairs.h"

#include <gmock/gmock.h>

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(SearchPairsTest, AValueWithABlankAtAnEndIsShownInQuotes) {
  EXPECT_EQ(PairCell(W("a")), W("a"));
  EXPECT_EQ(PairCell(W("a b")), W("a b"));
  EXPECT_EQ(PairCell(W(" a")), W("\" a\""));
  EXPECT_EQ(PairCell(W("a ")), W("\"a \""));
  EXPECT_EQ(PairCell(W(" ")), W("\" \""));
  EXPECT_EQ(PairCell(W("")), W(""));
  EXPECT_EQ(PairCell(W("\" a\"")), W("\" a\""));
  EXPECT_EQ(PairCell(W("\ta")), W("\ta"));
}

TEST(SearchPairsTest, AddMakesARowOfTheTwoFieldsAndNothingOfAnEmptyFindText) {
  EXPECT_EQ(PairRow(W(""), W("x")), std::nullopt);
  EXPECT_EQ(PairRow(W(" a"), W("b ")), std::pair(WString(W("\" a\"")), WString(W("\"b \""))));
  const WString longText(300, W('x'));
  EXPECT_EQ(PairRow(longText, longText), std::pair(WString(255, W('x')), WString(255, W('x'))));
}

TEST(SearchPairsTest, ABlankTypedInTheFieldsArrivesInTheSearch) {
  const SearchAndReplaceItems rows = {*PairRow(W(" a"), W("b "))};
  EXPECT_THAT(CollectSearchItems(rows, true), ElementsAre(Pair(W(" a"), W("b "))));
  EXPECT_THAT(CollectSearchItems(rows, false), ElementsAre(Pair(W("\" a\""), W("\"b \""))));
}

TEST(SearchPairsTest, AllQuotesAtBothEndsAreTakenOffSoThatAQuotedValueCannotBeHeld) {
  EXPECT_THAT(CollectSearchItems({{W("\"\"a\"b\"\""), W("\"\"")}}, true),
              ElementsAre(Pair(W("a\"b"), W(""))));
}

TEST(SearchPairsTest, A1024CharactersOfACellAreRead) {
  EXPECT_THAT(CollectSearchItems({{WString(1025, W('x')), W("")}}, false),
              ElementsAre(Pair(WString(1024, W('x')), W(""))));
}

TEST(SearchPairsTest, RowsOfStoredPairsGetNoSecondQuotes) {
  EXPECT_THAT(PairRows({{W(" a"), W("b")}, {W("\" a\""), W("\"b \"")}}),
              ElementsAre(Pair(W("\" a\""), W("b")), Pair(W("\" a\""), W("\"b \""))));
}

TEST(SearchPairsTest, TheDialogShowsOnePairOnALine) {
  EXPECT_EQ(PairDialogText({}), W(""));
  EXPECT_EQ(PairDialogText({{W("a"), W("b")}, {W("\" c\""), W("")}}), W("a|b\r\n\" c\"|"));
}

TEST(SearchPairsTest, LinesOfTheDialogBecomePairs) {
  EXPECT_THAT(ParsePairDialog(W("")), IsEmpty());
  EXPECT_THAT(ParsePairDialog(W("a|b|c\r\nd\r\n\r\n|e\r\nf|")),
              ElementsAre(Pair(W("a"), W("b|c")), Pair(W("d"), W("")), Pair(W("f"), W(""))));
  EXPECT_THAT(ParsePairDialog(W("a|b\nc|d")), ElementsAre(Pair(W("a"), W("b")), Pair(W("c"), W("d"))));
}

TEST(SearchPairsTest, TabsLineEndsAndQuotesAreTakenOffBothEndsAndBlanksStay) {
  EXPECT_THAT(ParsePairDialog(W("\t\"\" a \"\t|\"b c\"\r\n\"\"|x")), ElementsAre(Pair(W(" a "), W("b c"))));
}

TEST(SearchPairsTest, WhatTheDialogShowsComesBackWithItsBlanks) {
  const SearchAndReplaceItems items = {{W(" a"), W("b ")}, {W("c"), W("")}};
  EXPECT_EQ(ParsePairDialog(PairDialogText(PairRows(items))), items);
}

TEST(SearchPairsTest, A4096CharactersOfTheDialogAreRead) {
  EXPECT_THAT(ParsePairDialog(WString(5000, W('x'))), ElementsAre(Pair(WString(4096, W('x')), W(""))));
}

}  // namespace
}  // namespace Velmora::SDK
