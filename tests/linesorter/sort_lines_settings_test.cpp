// The options of the Sort Lines dialog in the host's settings.
#include "linesorter/tool/sort_lines_settings.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

namespace WQLineSorter {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

FakeConfig::Place PlaceOf(const WCHAR* key) { return {W("SortLines"), key}; }

void ExpectDefaults(const SortLinesOptions& options) {
  EXPECT_EQ(options.options, 0x100011u);
  EXPECT_EQ(options.keepLinesTop, 0u);
  EXPECT_EQ(options.keepLinesBottom, 0u);
  EXPECT_EQ(options.lineOffset, 0u);
  EXPECT_EQ(options.subStringLen, 0u);
  EXPECT_EQ(options.matchChar, 0);
  EXPECT_EQ(options.matchCharA, 0);
  EXPECT_EQ(options.lineItem, 0u);
  EXPECT_EQ(std::string(options.dateFormat, sizeof options.dateFormat), std::string(129, '\0'));
}

TEST(SortLinesSettings, WithNothingStoredTheyAreTheDefaults) {
  FakeHost host;
  ExpectDefaults(LoadSortLinesOptions(host));
  ExpectAllReleased(host);
}

TEST(SortLinesSettings, WithoutSettingsTheyAreTheDefaultsAndNothingIsStored) {
  FakeHost host;
  host.recorder.Refuse("GetConfig");
  ExpectDefaults(LoadSortLinesOptions(host));
  StoreSortLinesOptions(host, SortLinesOptions());
  EXPECT_THAT(host.recorder.CallsOf({"config."}), IsEmpty());
}

TEST(SortLinesSettings, EachKeyIsAskedForOnceInItsSection) {
  FakeHost host;
  LoadSortLinesOptions(host);
  EXPECT_THAT(host.recorder.CallsOf({"config."}),
              UnorderedElementsAre("config.GetInt(1, \"SortLines\", \"KeepLinesTop\", value)",
                                   "config.GetInt(1, \"SortLines\", \"KeepLinesBottom\", value)",
                                   "config.GetInt(1, \"SortLines\", \"LineOffset\", value)",
                                   "config.GetInt(1, \"SortLines\", \"SubStringLen\", value)",
                                   "config.GetString(1, \"SortLines\", \"CharMatch\", 129)",
                                   "config.GetString(1, \"SortLines\", \"MatchFilter\", 129)",
                                   "config.GetInt(1, \"SortLines\", \"LineItem\", value)",
                                   "config.GetInt(1, \"SortLines\", \"Options\", value)"));
}

TEST(SortLinesSettings, StoredValuesAreLoaded) {
  FakeHost host;
  host.config.numbers = {{PlaceOf(W("KeepLinesTop")), 1}, {PlaceOf(W("KeepLinesBottom")), 2},
                         {PlaceOf(W("LineOffset")), 3},   {PlaceOf(W("SubStringLen")), 4},
                         {PlaceOf(W("LineItem")), 5},     {PlaceOf(W("Options")), 0xFFFFFFFF}};
  host.config.texts = {{PlaceOf(W("CharMatch")), W("\u20ACrest")},
                       {PlaceOf(W("MatchFilter")), W("%d \u00E4")}};
  const SortLinesOptions options = LoadSortLinesOptions(host);
  EXPECT_EQ(options.keepLinesTop, 1u);
  EXPECT_EQ(options.keepLinesBottom, 2u);
  EXPECT_EQ(options.lineOffset, 3u);
  EXPECT_EQ(options.subStringLen, 4u);
  EXPECT_EQ(options.matchChar, 0x20AC);
  EXPECT_EQ(options.matchCharA, 0x80);
  EXPECT_STREQ(options.dateFormat, "%d \xE4");
  EXPECT_EQ(options.lineItem, 5u);
  EXPECT_EQ(options.options, 0xFFFFFFFFu);
}

TEST(SortLinesSettings, AnAbsentKeyAloneHasItsDefault) {
  FakeHost host;
  host.config.numbers = {{PlaceOf(W("LineItem")), 5}};
  const SortLinesOptions options = LoadSortLinesOptions(host);
  EXPECT_EQ(options.lineItem, 5u);
  EXPECT_EQ(options.options, 0x100011u);
}

TEST(SortLinesSettings, OfALongTextAHundredAndTwentyEightCharactersAreRead) {
  FakeHost host;
  host.config.texts = {{PlaceOf(W("MatchFilter")), WString(128, W('x')) + W("yz")}};
  EXPECT_EQ(std::string(LoadSortLinesOptions(host).dateFormat), std::string(128, 'x'));
}

TEST(SortLinesSettings, EmptyTextsAreNoCharacterAndNoFormat) {
  FakeHost host;
  host.config.texts = {{PlaceOf(W("CharMatch")), W("")}, {PlaceOf(W("MatchFilter")), W("")}};
  ExpectDefaults(LoadSortLinesOptions(host));
}

SortLinesOptions SomeOptions() {
  SortLinesOptions options;
  options.keepLinesTop = 11;
  options.keepLinesBottom = 12;
  options.lineOffset = 13;
  options.subStringLen = 4294967295;
  options.matchChar = 0x20AC;
  options.matchCharA = 0x80;
  std::copy_n("%Y \xE4", 5, options.dateFormat);
  options.lineItem = 15;
  options.options = 0x1100204;
  return options;
}

TEST(SortLinesSettings, AllEightKeysAreStored) {
  FakeHost host;
  StoreSortLinesOptions(host, SomeOptions());
  EXPECT_EQ(host.config.numbers, (std::map<FakeConfig::Place, std::uint32_t>{
                                     {PlaceOf(W("KeepLinesTop")), 11},
                                     {PlaceOf(W("KeepLinesBottom")), 12},
                                     {PlaceOf(W("LineOffset")), 13},
                                     {PlaceOf(W("SubStringLen")), 4294967295},
                                     {PlaceOf(W("LineItem")), 15},
                                     {PlaceOf(W("Options")), 0x1100204},
                                 }));
  EXPECT_EQ(host.config.texts, (std::map<FakeConfig::Place, WString>{
                                   {PlaceOf(W("CharMatch")), W("\u20AC")},
                                   {PlaceOf(W("MatchFilter")), W("%Y \u00E4")},
                               }));
  ExpectAllReleased(host);
}

TEST(SortLinesSettings, WhatWasStoredLaterReplacesWhatWasThere) {
  FakeHost host;
  StoreSortLinesOptions(host, SomeOptions());
  StoreSortLinesOptions(host, SortLinesOptions());
  EXPECT_EQ(host.config.numbers[PlaceOf(W("Options"))], 0u);
  EXPECT_EQ(host.config.texts[PlaceOf(W("CharMatch"))], W(""));
  EXPECT_EQ(host.config.texts[PlaceOf(W("MatchFilter"))], W(""));
}

TEST(SortLinesSettings, EachKeyThatTheHostRefusesHasItsDefault) {
  FakeHost host;
  StoreSortLinesOptions(host, SomeOptions());
  host.recorder.RefuseCall(1, true);
  ExpectDefaults(LoadSortLinesOptions(host));
}

}  // namespace
}  // namespace WQLineSorter
