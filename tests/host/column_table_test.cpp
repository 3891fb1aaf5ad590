// The table of columns, aligned within a block of rows and with the blocks before it.
#include "host/output/column_table.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace QxHost {
namespace {

class ColumnTableTest : public testing::Test {
 protected:
  std::vector<std::string> Write(const std::vector<ColumnRow>& rows) {
    std::vector<std::string> lines;
    table_.Write(heads_, rows, [&lines](const std::string& line) { lines.push_back(line); });
    return lines;
  }

  const std::vector<ColumnHead> heads_ = {{W("owner"), W("Owner"), false}, {W("size"), W(""), true}};
  ColumnTable table_;
};

ColumnRow RowOf(const WCHAR* item, const WCHAR* owner, std::optional<WString> size) {
  return {item, {WString(owner), std::move(size)}};
}

TEST_F(ColumnTableTest, HasItsHeadingsOnceAndNumbersAtTheRight) {
  EXPECT_THAT(Write({RowOf(W("Z:\\a"), W("me"), W("7")), RowOf(W("Z:\\b"), W("someone"), std::nullopt)}),
              ElementsAre("Owner    size  Item",   //
                          "me          7  Z:\\a",  //
                          "someone        Z:\\b"));
}

TEST_F(ColumnTableTest, ALaterBlockIsAsWideAsThoseBeforeItOrWider) {
  Write({RowOf(W("Z:\\a"), W("someone"), W("7"))});
  EXPECT_THAT(Write({RowOf(W("Z:\\b"), W("me"), W("10")), RowOf(W("Z:\\c"), W("me"), std::nullopt)}),
              ElementsAre("me         10  Z:\\b",  //
                          "me             Z:\\c"));
  EXPECT_THAT(Write({RowOf(W("Z:\\d"), W("someone else"), W("123456"))}),
              ElementsAre("someone else  123456  Z:\\d"));
  EXPECT_THAT(Write({RowOf(W("Z:\\e"), W(""), W("1"))}), ElementsAre("                   1  Z:\\e"));
}

TEST_F(ColumnTableTest, CountsCharactersAndNotBytes) {
  EXPECT_THAT(
      Write({RowOf(W("Z:\\a"), W("\u00E4\u00F6\u00FC\u00DF\u20AC\u00E9"), W("1"))}),
      ElementsAre("Owner   size  Item", "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xE2\x82\xAC\xC3\xA9     1  Z:\\a"));
}

}  // namespace
}  // namespace QxHost
