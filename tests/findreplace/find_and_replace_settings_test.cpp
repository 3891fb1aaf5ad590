// The options of the Find and Replace dialog in the host's settings.
#include "findreplace/tool/find_and_replace_settings.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"

namespace QXFindAndReplace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

FakeConfig::Place PlaceOf(const WCHAR* key) { return {W("FindReplace"), key}; }

void ExpectDefaults(const FindAndReplaceOptions& options) {
  EXPECT_EQ(options.flags, 0x20000101u);
  EXPECT_EQ(options.find, W(""));
  EXPECT_EQ(options.replace, W(""));
  EXPECT_EQ(options.callback, nullptr);
}

FindAndReplaceOptions OptionsOf(std::uint32_t flags, const WString& find, const WString& replace) {
  FindAndReplaceOptions options;
  options.flags = flags;
  options.find = find;
  options.replace = replace;
  return options;
}

TEST(FindAndReplaceSettings, WithNothingStoredTheyAreTheDefaults) {
  FakeHost host;
  ExpectDefaults(LoadFindAndReplaceOptions(host));
  ExpectAllReleased(host);
}

TEST(FindAndReplaceSettings, WithoutSettingsTheyAreTheDefaultsAndNothingIsStored) {
  FakeHost host;
  host.recorder.Refuse("GetConfig");
  ExpectDefaults(LoadFindAndReplaceOptions(host));
  StoreFindAndReplaceOptions(host, OptionsOf(1, W("a"), W("b")));
  EXPECT_THAT(host.recorder.CallsOf({"config."}), IsEmpty());
}

TEST(FindAndReplaceSettings, EachKeyIsAskedForOnceInItsSection) {
  FakeHost host;
  LoadFindAndReplaceOptions(host);
  EXPECT_THAT(host.recorder.CallsOf({"config."}),
              UnorderedElementsAre("config.GetString(1, \"FindReplace\", \"Find\", 4096)",
                                   "config.GetString(1, \"FindReplace\", \"ReplaceWith\", 4096)",
                                   "config.GetInt(1, \"FindReplace\", \"Options\", value)"));
}

TEST(FindAndReplaceSettings, StoredValuesAreLoaded) {
  FakeHost host;
  host.config.numbers = {{PlaceOf(W("Options")), 0xFFFFFFFF}};
  host.config.texts = {{PlaceOf(W("Find")), W("a\r\nb \u20AC")}, {PlaceOf(W("ReplaceWith")), W("c")}};
  const FindAndReplaceOptions options = LoadFindAndReplaceOptions(host);
  EXPECT_EQ(options.flags, 0xFFFFFFFFu);
  EXPECT_EQ(options.find, W("a\r\nb \u20AC"));
  EXPECT_EQ(options.replace, W("c"));
}

TEST(FindAndReplaceSettings, AnAbsentKeyAloneHasItsDefault) {
  FakeHost host;
  host.config.texts = {{PlaceOf(W("ReplaceWith")), W("c")}};
  EXPECT_EQ(LoadFindAndReplaceOptions(host).flags, 0x20000101u);
  EXPECT_EQ(LoadFindAndReplaceOptions(host).find, W(""));
  EXPECT_EQ(LoadFindAndReplaceOptions(host).replace, W("c"));
  host.config.texts.clear();
  host.config.numbers = {{PlaceOf(W("Options")), 0}};
  EXPECT_EQ(LoadFindAndReplaceOptions(host).flags, 0u);
}

TEST(FindAndReplaceSettings, OfALongTextWhatFitsTheBufferIsRead) {
  FakeHost host;
  host.config.texts = {{PlaceOf(W("Find")), WString(5000, W('x'))}};
  EXPECT_EQ(LoadFindAndReplaceOptions(host).find, WString(4095, W('x')));
}

TEST(FindAndReplaceSettings, AllThreeKeysAreStored) {
  FakeHost host;
  StoreFindAndReplaceOptions(host, OptionsOf(0x40000908, W("a\r\nb"), W("")));
  EXPECT_THAT(host.config.numbers, ElementsAre(std::pair(PlaceOf(W("Options")), 0x40000908u)));
  EXPECT_EQ(host.config.texts, (std::map<FakeConfig::Place, WString>{
                                   {PlaceOf(W("Find")), W("a\r\nb")},
                                   {PlaceOf(W("ReplaceWith")), W("")},
                               }));
  ExpectAllReleased(host);
}

TEST(FindAndReplaceSettings, EachKeyThatTheHostRefusesHasItsDefault) {
  FakeHost host;
  StoreFindAndReplaceOptions(host, OptionsOf(8, W("a"), W("b")));
  host.recorder.RefuseCall(1, true);
  ExpectDefaults(LoadFindAndReplaceOptions(host));
}

}  // namespace
}  // namespace QXFindAndReplace
