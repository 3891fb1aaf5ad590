// The numbered lists of pairs and the file that stores them.
#include "multirename/saved/find_replace_manager.h"

#include <gmock/gmock.h>

#include "multirename/rename_host.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const WString kPairsPath = W("C:\\config\\FindReplace.xml");

TEST(FindReplaceManagerTest, ListsAreWrittenAscendingByNumberAsUtf8) {
  RenameHost host;
  host.configFolder = W("C:\\config");
  FindReplaceManager manager(host);
  manager.Set(7, {{W("a"), W("b")}, {W("\" c\""), W("")}});
  manager.Set(2, {});
  manager.Set(7, {{W("x"), W("y")}});
  manager.Save();
  EXPECT_EQ(host.files.saved[kPairsPath],
            "<MultiRename><FindReplace id='2'/>"
            "<FindReplace id='7'><item find='x' replace='y'/></FindReplace></MultiRename>");
  EXPECT_EQ(host.files.encodings[kPairsPath], "UTF-8");
  EXPECT_THAT(host.files.flags, ElementsAre("replace=1"));
  EXPECT_EQ(host.files.documents, 0);
}

TEST(FindReplaceManagerTest, WhatWasSavedIsLoadedAnEmptyListToo) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  FindReplaceManager manager(host);
  manager.Set(24, {{W("a"), W("b")}, {W(" "), W("|")}});
  manager.Set(1, {});
  manager.Save();
  FindReplaceManager other(host);
  EXPECT_EQ(other.Get(24), nullptr);
  other.Load();
  EXPECT_EQ(other.Lists(), manager.Lists());
  ASSERT_NE(other.Get(1), nullptr);
  EXPECT_THAT(*other.Get(1), IsEmpty());
  EXPECT_EQ(other.Get(2), nullptr);
  EXPECT_EQ(host.files.documents, 0);
  EXPECT_EQ(host.files.openFiles, 0);
}

TEST(FindReplaceManagerTest, ElementsWithoutANumberAboveZeroArePassedOver) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  MemoryXmlNode& root = host.files.Make(kPairsPath);
  root.Add(W("FindReplace")).Add(W("item")).With(W("find"), W("none"));
  root.Add(W("FindReplace")).With(W("id"), W("0"));
  root.Add(W("FindReplace")).With(W("id"), W("-3"));
  root.Add(W("Other")).With(W("id"), W("4"));
  MemoryXmlNode& list = root.Add(W("FindReplace")).With(W("id"), W("5"));
  list.Add(W("item")).With(W("find"), W("a")).With(W("replace"), W("b"));
  list.Add(W("other")).With(W("find"), W("no"));
  list.Add(W("item")).With(W("find"), W("c"));
  FindReplaceManager manager(host);
  manager.Load();
  ASSERT_EQ(manager.Lists().size(), 1u);
  EXPECT_THAT(*manager.Get(5), ElementsAre(Pair(W("a"), W("b")), Pair(W("c"), W(""))));
}

TEST(FindReplaceManagerTest, ALaterElementOfOneNumberReplacesTheEarlier) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  MemoryXmlNode& root = host.files.Make(kPairsPath);
  root.Add(W("FindReplace")).With(W("id"), W("3")).Add(W("item")).With(W("find"), W("old"));
  root.Add(W("FindReplace")).With(W("id"), W("3")).Add(W("item")).With(W("find"), W("new"));
  FindReplaceManager manager(host);
  manager.Load();
  EXPECT_THAT(*manager.Get(3), ElementsAre(Pair(W("new"), W(""))));
}

TEST(FindReplaceManagerTest, ValuesAreCutAtABufferOf1024) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  host.files.Make(kPairsPath)
      .Add(W("FindReplace"))
      .With(W("id"), W("1"))
      .Add(W("item"))
      .With(W("find"), WString(2000, W('x')));
  FindReplaceManager manager(host);
  manager.Load();
  EXPECT_THAT(*manager.Get(1), ElementsAre(Pair(WString(1023, W('x')), W(""))));
}

TEST(FindReplaceManagerTest, WithoutAFileAFolderOrADocumentNothingHappens) {
  RenameHost host;
  FindReplaceManager nowhere(host);
  nowhere.Load();
  nowhere.Set(1, {{W("a"), W("b")}});
  nowhere.Save();
  EXPECT_THAT(host.files.saved, IsEmpty());
  host.configFolder = W("C:\\config\\");
  FindReplaceManager manager(host);
  manager.Set(1, {{W("a"), W("b")}});
  manager.Load();
  EXPECT_THAT(manager.Lists(), IsEmpty());
  host.files.givesRoots = false;
  manager.Save();
  host.files.givesDocuments = false;
  manager.Save();
  manager.Load();
  EXPECT_THAT(host.files.saved, IsEmpty());
  EXPECT_EQ(host.files.documents, 0);
}

TEST(FindReplaceManagerTest, NumbersBeyondTheKeysAreKept) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  MemoryXmlNode& root = host.files.Make(kPairsPath);
  root.Add(W("FindReplace")).With(W("id"), W("25")).Add(W("item")).With(W("find"), W("a"));
  FindReplaceManager manager(host);
  manager.Load();
  manager.Set(3, {{W("b"), W("c")}});
  manager.Save();
  EXPECT_EQ(host.files.saved[kPairsPath],
            "<MultiRename><FindReplace id='3'><item find='b' replace='c'/></FindReplace>"
            "<FindReplace id='25'><item find='a' replace=''/></FindReplace></MultiRename>");
}

TEST(FindReplaceManagerTest, AValueThatIsMissingIsEmptyWhateverTheItemBeforeHas) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  MemoryXmlNode& list = host.files.Make(kPairsPath).Add(W("FindReplace")).With(W("id"), W("1"));
  list.Add(W("item")).With(W("find"), W("a")).With(W("replace"), W("b"));
  list.Add(W("item")).With(W("replace"), W("c"));
  list.Add(W("item")).With(W("find"), W("d"));
  FindReplaceManager manager(host);
  manager.Load();
  EXPECT_THAT(*manager.Get(1), ElementsAre(Pair(W("a"), W("b")), Pair(W(""), W("c")), Pair(W("d"), W(""))));
}

TEST(FindReplaceManagerTest, ALoadForgetsWhatWasNotSaved) {
  RenameHost host;
  host.configFolder = W("C:\\config\\");
  host.files.Make(kPairsPath).Add(W("FindReplace")).With(W("id"), W("1"));
  FindReplaceManager manager(host);
  manager.Set(2, {{W("a"), W("b")}});
  manager.Load();
  EXPECT_EQ(manager.Get(2), nullptr);
  EXPECT_NE(manager.Get(1), nullptr);
}

TEST(FindReplaceManagerTest, WhatTheHostRefusesOrLeavesEmptyIsNoFolder) {
  for (const auto& [result, text] : {std::pair{false, W("C:\\config\\")}, {true, W("")}}) {
    DoubtfulHost host;
    host.result = result;
    host.text = text;
    FindReplaceManager manager(host);
    manager.Load();
    EXPECT_THAT(host.recorder.CallsOf({"CreateXmlDocument"}), testing::IsEmpty());
  }
}

}  // namespace
}  // namespace Velmora::SDK
