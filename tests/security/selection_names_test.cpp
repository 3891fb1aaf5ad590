// The names in a selection of the object picker, built by hand.
#include "security/selection_names.h"

#include <gmock/gmock.h>

#include <cstring>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A selection in memory, whose texts follow the records, as the picker returns it.
class BuiltSelection {
 public:
  explicit BuiltSelection(std::uint32_t count, std::size_t size = 1024) : bytes_(size) {
    std::memcpy(bytes_.data(), &count, sizeof count);
  }

  void SetPath(std::size_t record, const WCHAR* path) {
    std::memcpy(bytes_.data() + 8 + 48 * record + 8, &path, sizeof path);
  }
  // Stores a text in the memory and returns its address.
  const WCHAR* PutText(std::size_t at, const WString& text) {
    std::memcpy(bytes_.data() + at, text.c_str(), (text.size() + 1) * sizeof(WCHAR));
    return reinterpret_cast<const WCHAR*>(bytes_.data() + at);
  }
  std::span<const std::byte> Bytes(std::size_t size = 1024) const {
    return std::span(bytes_).first(std::min(size, bytes_.size()));
  }

 private:
  std::vector<std::byte> bytes_;
};

}  // namespace

TEST(SelectionNames, ThePathsComeInTheirOrder) {
  BuiltSelection list(2);
  list.SetPath(0, list.PutText(200, W("WinNT://D/a")));
  list.SetPath(1, list.PutText(300, W("WinNT://D/b")));
  EXPECT_THAT(NamesOfSelectionList(list.Bytes()), ElementsAre(W("WinNT://D/a"), W("WinNT://D/b")));
}

TEST(SelectionNames, AnEmptyListHasNone) {
  EXPECT_THAT(NamesOfSelectionList(BuiltSelection(0).Bytes()), IsEmpty());
  EXPECT_THAT(NamesOfSelectionList({}), IsEmpty());
  EXPECT_THAT(NamesOfSelectionList(BuiltSelection(1).Bytes(7)), IsEmpty());
}

TEST(SelectionNames, ANullPathIsAnEmptyText) {
  BuiltSelection list(2);
  list.SetPath(1, list.PutText(300, W("WinNT://D/b")));
  EXPECT_THAT(NamesOfSelectionList(list.Bytes()), ElementsAre(W(""), W("WinNT://D/b")));
}

TEST(SelectionNames, AWrongCountGivesWhatTheMemoryContains) {
  BuiltSelection list(0xFFFFFFFF, 8 + 2 * 48 + 47);
  const WString outside = W("WinNT://D/a");
  list.SetPath(0, outside.c_str());
  EXPECT_THAT(NamesOfSelectionList(list.Bytes()), ElementsAre(W("WinNT://D/a"), W("")));
  EXPECT_THAT(NamesOfSelectionList(list.Bytes(8 + 47)), IsEmpty());
}

TEST(SelectionNames, AnUnterminatedPathEndsWithTheMemory) {
  BuiltSelection list(1, 8 + 48 + 6);
  const WString text = W("ab");
  std::vector<std::byte> bytes(8 + 48 + 4);
  std::memcpy(bytes.data(), list.Bytes().data(), 8);
  std::memcpy(bytes.data() + 56, text.data(), 4);
  const auto* const path = reinterpret_cast<const WCHAR*>(bytes.data() + 56);
  std::memcpy(bytes.data() + 16, &path, sizeof path);
  EXPECT_THAT(NamesOfSelectionList(bytes), ElementsAre(W("ab")));
}

TEST(AccountOfSelection, IsTheFirstNameWithoutItsProvider) {
  EXPECT_EQ(AccountOfSelection({W("WinNT://DOMAIN/user"), W("WinNT://DOMAIN/other")}), W("DOMAIN\\user"));
  EXPECT_EQ(AccountOfSelection({W("WinNT://W/M/user")}), W("W\\M\\user"));
  EXPECT_EQ(AccountOfSelection({W("user")}), W("user"));
}

TEST(AccountOfSelection, LosesEveryProvider) {
  EXPECT_EQ(AccountOfSelection({W("WinNT://A/WinNT://b")}), W("A\\b"));
}

TEST(AccountOfSelection, IsNoneForNoNameAndAnEmptyOne) {
  EXPECT_EQ(AccountOfSelection({}), std::nullopt);
  EXPECT_EQ(AccountOfSelection({W(""), W("WinNT://D/b")}), std::nullopt);
}
