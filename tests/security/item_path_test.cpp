// Paths of items near the limit of 4096 characters: complete paths are accepted, truncated ones are not.
#include "security/item_path.h"

#include <gtest/gtest.h>

#include "support/fake_files.h"

namespace {

// Returns the path that is accepted for an item of a host that terminates a truncated path with a zero, or
// does not.
std::optional<WString> PathOf(const WString& folder, const WString& name, bool fillsPathsWhole) {
  HostRecorder recorder;
  FakeFileItem item(recorder, folder, name, FILE_ATTRIBUTE_ARCHIVE);
  item.fillsPathsWhole = fillsPathsWhole;
  return SecurityPathOf(item);
}

// Returns a folder's path of that many characters, including its trailing backslash.
WString LongFolder(std::size_t size) {
  WString folder = W("Z:\\");
  while (folder.size() + 101 < size) folder += WString(100, W('f')) + W("\\");
  return folder + WString(size - folder.size() - 1, W('g')) + W("\\");
}

}  // namespace

TEST(SecurityPath, UpTo4095CharactersItIsWhole) {
  for (const WString& folder : {WString(W("Z:\\")), LongFolder(1000), LongFolder(4000)}) {
    for (const std::size_t size : {std::size_t{4093}, std::size_t{4094}, std::size_t{4095}}) {
      const WString name(size - folder.size(), W('n'));
      for (const bool fillsPathsWhole : {false, true}) {
        EXPECT_EQ(PathOf(folder, name, fillsPathsWhole), folder + name) << size;
      }
    }
  }
}

TEST(SecurityPath, OfMoreIsNoneWhereverItIsCut) {
  for (const WString& folder : {WString(W("Z:\\")), LongFolder(1000), LongFolder(4094), LongFolder(4095),
                                LongFolder(4096), LongFolder(5000)}) {
    for (const std::size_t more : {std::size_t{4096}, std::size_t{4097}, std::size_t{6000}}) {
      const WString name(more - std::min(more - 1, folder.size()), W('n'));
      if (folder.size() + name.size() < 4096) continue;
      for (const bool fillsPathsWhole : {false, true}) {
        EXPECT_EQ(PathOf(folder, name, fillsPathsWhole), std::nullopt) << folder.size() << " " << more;
      }
    }
  }
}

// The truncated path is a valid path of 4095 characters that ends in the item's name.
TEST(SecurityPath, OfMoreIsNoneWhereTheCutEndsInTheNameOfTheItem) {
  const WString name(95, W('n'));
  const WString beginning = LongFolder(4000) + name;
  ASSERT_EQ(beginning.size(), 4095u);
  EXPECT_EQ(PathOf(beginning + W("\\"), name, false), std::nullopt);
}

TEST(SecurityPath, OfAnItemWithoutOneIsEmpty) { EXPECT_EQ(PathOf(W(""), W(""), false), W("")); }
