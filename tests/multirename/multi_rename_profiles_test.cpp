// Profiles and the file that stores them.
#include "multirename/saved/multi_rename_profiles.h"

#include <gmock/gmock.h>

#include "multirename/rename_host.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const WString kProfilesPath = W("C:\\config\\MultiRenameProfiles.xml");

std::unique_ptr<MultiRenameProfile> ProfileOf(const WString& name) {
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = name;
  profile->filenameRule = W("[N]_[C]");
  profile->extensionRule = W("[E]");
  profile->caseRule = 64;
  profile->startAt = 10;
  profile->stepBy = static_cast<u32>(-2);
  profile->digits = 3;
  profile->flags = 0x2000000 | 0x300000;
  profile->searchItems = PairsOf({{W("\" a\""), W("b")}, {W("c"), W("")}});
  return profile;
}

class MultiRenameProfilesTest : public testing::Test {
 protected:
  MultiRenameProfilesTest() { host_.configFolder = W("C:\\config\\"); }

  // Returns the profile after saving and loading it.
  MultiRenameProfile ThroughTheFile(std::unique_ptr<MultiRenameProfile> profile) {
    MultiRenameProfiles profiles(host_);
    profiles.Load();
    profiles.profiles.clear();
    profiles.Add(std::move(profile));
    EXPECT_TRUE(profiles.Save());
    MultiRenameProfiles loaded(host_);
    loaded.Load();
    EXPECT_EQ(loaded.profiles.size(), 1u);
    EXPECT_EQ(host_.files.openFiles, 0);
    EXPECT_EQ(host_.files.documents, 0);
    return *loaded.profiles.front();
  }

  // Returns the profile that is read from a file with this profile element.
  MultiRenameProfile ReadOf(const std::function<void(MemoryXmlNode&)>& fill) {
    fill(host_.files.Make(kProfilesPath).Add(W("profile")));
    MultiRenameProfiles profiles(host_);
    profiles.Load();
    EXPECT_EQ(profiles.profiles.size(), 1u);
    return *profiles.profiles.front();
  }

  RenameHost host_;
};

TEST_F(MultiRenameProfilesTest, TheFileHasThisForm) {
  MultiRenameProfiles profiles(host_);
  profiles.Load();
  profiles.Add(ProfileOf(W("one")));
  auto bare = std::make_unique<MultiRenameProfile>();
  bare->name = W("two");
  profiles.Add(std::move(bare));
  EXPECT_TRUE(profiles.Save());
  EXPECT_EQ(
      host_.files.saved[kProfilesPath],
      "<MultiRename><profile name='one'><filename>[N]_[C]</filename><extension>[E]</extension>"
      "<counter startat='10' stepby='-2' digits='3'/><case value='64'/>"
      "<searchandreplace replaceall='0' casesensative='1' regex='1' replaceparts='2'>"
      "<item find='\" a\"' replacewith='b'/><item find='c' replacewith=''/></searchandreplace></profile>"
      "<profile name='two'><filename/><extension/><counter startat='0' stepby='0' digits='0'/>"
      "<case value='0'/></profile></MultiRename>");
  EXPECT_EQ(host_.files.encodings[kProfilesPath], "null");
  EXPECT_THAT(host_.files.flags, testing::Each("replacewith=0"));
  EXPECT_EQ(host_.files.documents, 0);
}

TEST_F(MultiRenameProfilesTest, AProfileComesBackFromTheFile) {
  const MultiRenameProfile profile = ThroughTheFile(ProfileOf(W("one")));
  EXPECT_EQ(profile.name, W("one"));
  EXPECT_EQ(profile.filenameRule, W("[N]_[C]"));
  EXPECT_EQ(profile.extensionRule, W("[E]"));
  EXPECT_EQ(profile.caseRule, 64u);
  EXPECT_EQ(profile.startAt, 10u);
  EXPECT_EQ(profile.stepBy, 0xFFFFFFFEu);
  EXPECT_EQ(profile.digits, 3u);
  EXPECT_EQ(profile.flags, 0x2300000u);
  EXPECT_THAT(*profile.searchItems, ElementsAre(Pair(W("\" a\""), W("b")), Pair(W("c"), W(""))));
}

TEST_F(MultiRenameProfilesTest, SavingAProfileWithoutPairsLosesItsSearchFlags) {
  for (const bool isNull : {true, false}) {
    auto profile = ProfileOf(W("one"));
    profile->flags = 0x4700000;
    profile->searchItems = isNull ? nullptr : PairsOf({});
    const MultiRenameProfile loaded = ThroughTheFile(std::move(profile));
    EXPECT_EQ(loaded.flags, 0u);
    EXPECT_EQ(loaded.caseRule, 64u);
  }
}

TEST_F(MultiRenameProfilesTest, AProfileForTheExtensionAloneComesBackForNameAndExtension) {
  auto profile = ProfileOf(W("one"));
  profile->flags = 0x4000000;
  EXPECT_EQ(ThroughTheFile(std::move(profile)).flags, 0x1000000u);
  EXPECT_NE(host_.files.saved[kProfilesPath].find("replaceparts='3'"), std::string::npos);
}

TEST_F(MultiRenameProfilesTest, WithoutAPartTheWriterSaysNameAndExtension) {
  auto profile = ProfileOf(W("one"));
  profile->flags = 0;
  EXPECT_EQ(ThroughTheFile(std::move(profile)).flags, 0x1000000u);
  EXPECT_NE(host_.files.saved[kProfilesPath].find("replaceparts='1'"), std::string::npos);
}

TEST_F(MultiRenameProfilesTest, AMissingNameEndsTheReadingAndTheEmptyProfileJoinsTheList) {
  const MultiRenameProfile profile =
      ReadOf([](MemoryXmlNode& node) { node.Add(W("filename"), W("[N]")).With(W("x"), W("y")); });
  EXPECT_EQ(profile.name, W(""));
  EXPECT_EQ(profile.filenameRule, W(""));
  EXPECT_EQ(profile.flags, 0u);
}

TEST_F(MultiRenameProfilesTest, MissingElementsLeaveTheirFieldsEmptyOrZero) {
  const MultiRenameProfile profile = ReadOf([](MemoryXmlNode& node) {
    node.With(W("name"), W("n"));
    node.Add(W("counter")).With(W("stepby"), W("4"));
    node.Add(W("unknown")).With(W("digits"), W("9"));
  });
  EXPECT_EQ(profile.name, W("n"));
  EXPECT_EQ(profile.filenameRule, W(""));
  EXPECT_EQ(profile.extensionRule, W(""));
  EXPECT_EQ(profile.startAt, 0u);
  EXPECT_EQ(profile.stepBy, 4u);
  EXPECT_EQ(profile.digits, 0u);
  EXPECT_EQ(profile.caseRule, 0u);
  EXPECT_EQ(profile.searchItems, nullptr);
}

TEST_F(MultiRenameProfilesTest, AnUnknownCaseRuleIsKept) {
  EXPECT_EQ(ReadOf([](MemoryXmlNode& node) {
              node.With(W("name"), W("n")).Add(W("case")).With(W("value"), W("77"));
            }).caseRule,
            77u);
}

TEST_F(MultiRenameProfilesTest, OnlyTheValueOneSetsASearchFlag) {
  const auto flagsOf = [this](const WString& value) {
    return ReadOf([&value](MemoryXmlNode& node) {
             node.With(W("name"), W("n"));
             node.Add(W("searchandreplace"))
                 .With(W("replaceall"), value)
                 .With(W("casesensative"), value)
                 .With(W("regex"), value);
           })
        .flags;
  };
  EXPECT_EQ(flagsOf(W("1")), 0x700000u);
  EXPECT_EQ(flagsOf(W("2")), 0u);
  EXPECT_EQ(flagsOf(W("-1")), 0u);
  EXPECT_EQ(flagsOf(W("0")), 0u);
}

TEST_F(MultiRenameProfilesTest, PartsOfTwoAreTheNameAllOthersBothAndAMissingOneIsNone) {
  const auto flagsOf = [this](const WCHAR* value) {
    return ReadOf([value](MemoryXmlNode& node) {
             MemoryXmlNode& search = node.With(W("name"), W("n")).Add(W("searchandreplace"));
             if (value) search.With(W("replaceparts"), value);
           })
        .flags;
  };
  EXPECT_EQ(flagsOf(W("1")), 0x1000000u);
  EXPECT_EQ(flagsOf(W("2")), 0x2000000u);
  EXPECT_EQ(flagsOf(W("3")), 0x1000000u);
  EXPECT_EQ(flagsOf(W("0")), 0x1000000u);
  EXPECT_EQ(flagsOf(W("99")), 0x1000000u);
  EXPECT_EQ(flagsOf(nullptr), 0u);
}

TEST_F(MultiRenameProfilesTest, AMissingReplacementKeepsThatOfTheItemBefore) {
  const MultiRenameProfile profile = ReadOf([](MemoryXmlNode& node) {
    MemoryXmlNode& search = node.With(W("name"), W("n")).Add(W("searchandreplace"));
    search.Add(W("item")).With(W("find"), W("a"));
    search.Add(W("item")).With(W("find"), W("b")).With(W("replacewith"), W("x"));
    search.Add(W("item")).With(W("find"), W("c"));
    search.Add(W("item")).With(W("find"), W("d")).With(W("replacewith"), W(""));
    search.Add(W("item")).With(W("find"), W("e"));
  });
  EXPECT_THAT(*profile.searchItems,
              ElementsAre(Pair(W("a"), W("")), Pair(W("b"), W("x")), Pair(W("c"), W("x")),
                          Pair(W("d"), W("")), Pair(W("e"), W(""))));
}

TEST_F(MultiRenameProfilesTest, TextsAreCutAtABufferOf1024) {
  const WString text(2000, W('x'));
  const WString cut(1023, W('x'));
  const MultiRenameProfile profile = ReadOf([&](MemoryXmlNode& node) {
    node.With(W("name"), text);
    node.Add(W("filename"), text);
    node.Add(W("extension"), text);
    node.Add(W("searchandreplace")).Add(W("item")).With(W("find"), text).With(W("replacewith"), text);
  });
  EXPECT_EQ(profile.name, cut);
  EXPECT_EQ(profile.filenameRule, cut);
  EXPECT_EQ(profile.extensionRule, cut);
  EXPECT_THAT(*profile.searchItems, ElementsAre(Pair(cut, cut)));
}

TEST_F(MultiRenameProfilesTest, AMissingFileLeavesTheListEmptyAndThePathStored) {
  MultiRenameProfiles profiles(host_);
  profiles.Add(ProfileOf(W("old")));
  profiles.Load();
  EXPECT_THAT(profiles.profiles, IsEmpty());
  EXPECT_EQ(profiles.filePath, kProfilesPath);
}

TEST_F(MultiRenameProfilesTest, TheNameOfTheFileComesStraightAfterTheHostsPath) {
  host_.configFolder = W("C:\\config");
  MultiRenameProfiles profiles(host_);
  profiles.Load();
  EXPECT_EQ(profiles.filePath, W("C:\\configMultiRenameProfiles.xml"));
}

TEST_F(MultiRenameProfilesTest, ASaveWithoutADocumentOrARootIsFalse) {
  MultiRenameProfiles profiles(host_);
  profiles.Load();
  host_.files.givesRoots = false;
  EXPECT_FALSE(profiles.Save());
  host_.files.givesDocuments = false;
  EXPECT_FALSE(profiles.Save());
  EXPECT_EQ(host_.files.documents, 0);
}

TEST_F(MultiRenameProfilesTest, NamesThatDifferOnlyInCaseAreOne) {
  MultiRenameProfiles profiles(host_);
  profiles.Add(ProfileOf(W("One")));
  profiles.Add(ProfileOf(W("two")));
  profiles.Add(ProfileOf(W("oNE")));
  EXPECT_EQ(profiles.Find(W("ONE")), profiles.profiles[0].get());
  EXPECT_EQ(profiles.Find(W("three")), nullptr);
  profiles.Remove(W("one"));
  ASSERT_EQ(profiles.profiles.size(), 1u);
  EXPECT_EQ(profiles.profiles[0]->name, W("two"));
  profiles.Remove(profiles.profiles[0].get());
  EXPECT_THAT(profiles.profiles, IsEmpty());
}

TEST_F(MultiRenameProfilesTest, AFindTextThatIsMissingIsEmptyWhateverTheItemBeforeHas) {
  const MultiRenameProfile profile = ReadOf([](MemoryXmlNode& node) {
    MemoryXmlNode& search = node.With(W("name"), W("n")).Add(W("searchandreplace"));
    search.Add(W("item")).With(W("find"), W("a")).With(W("replacewith"), W("b"));
    search.Add(W("item")).With(W("replacewith"), W("c"));
  });
  EXPECT_THAT(*profile.searchItems, ElementsAre(Pair(W("a"), W("b")), Pair(W(""), W("c"))));
}

TEST_F(MultiRenameProfilesTest, ASearchElementWithoutItemsKeepsItsFlags) {
  const MultiRenameProfile profile = ReadOf([](MemoryXmlNode& node) {
    node.With(W("name"), W("n")).Add(W("searchandreplace")).With(W("regex"), W("1"));
  });
  EXPECT_EQ(profile.flags, 0x200000u);
  EXPECT_TRUE(!profile.searchItems || profile.searchItems->empty());
}

TEST_F(MultiRenameProfilesTest, AFileThatTheHostCannotReadGivesNoProfilesAndTheNextSaveWritesOverIt) {
  MultiRenameProfiles profiles(host_);
  profiles.Load();
  EXPECT_THAT(profiles.profiles, IsEmpty());
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = W("new");
  profiles.Add(std::move(profile));
  EXPECT_TRUE(profiles.Save());
  EXPECT_THAT(host_.files.saved[kProfilesPath], testing::HasSubstr("<profile name='new'>"));
}

TEST_F(MultiRenameProfilesTest, ProfilesAreWrittenInTheOrderOfTheListWithANewOneAtItsEnd) {
  MultiRenameProfiles profiles(host_);
  profiles.Load();
  for (const WCHAR* const name : {W("b"), W("c"), W("a")}) profiles.Add(ProfileOf(name));
  // A profile that is saved again moves to the end.
  profiles.Remove(W("B"));
  profiles.Add(ProfileOf(W("B")));
  EXPECT_TRUE(profiles.Save());
  MultiRenameProfiles loaded(host_);
  loaded.Load();
  std::vector<WString> names;
  for (const auto& profile : loaded.profiles) names.push_back(profile->name);
  EXPECT_THAT(names, ElementsAre(W("c"), W("a"), W("B")));
}

TEST_F(MultiRenameProfilesTest, WithoutAFolderNothingIsReadOrWritten) {
  host_.configFolder.clear();
  MultiRenameProfiles profiles(host_);
  profiles.Load();
  EXPECT_EQ(profiles.filePath, W(""));
  profiles.Add(ProfileOf(W("a")));
  EXPECT_TRUE(profiles.Save());
  EXPECT_THAT(host_.files.saved, IsEmpty());
}

TEST(MultiRenameProfilesFolderTest, WhatTheHostRefusesOrLeavesEmptyIsNoFolder) {
  DoubtfulHost host;
  MultiRenameProfiles profiles(host);
  for (const auto& [result, text] : {std::pair{false, W("C:\\config\\")}, {true, W("")}}) {
    host.result = result;
    host.text = text;
    profiles.Load();
    EXPECT_EQ(profiles.filePath, W(""));
    EXPECT_THAT(host.recorder.CallsOf({"CreateXmlDocument"}), IsEmpty());
  }
}

}  // namespace
}  // namespace Velmora::SDK
