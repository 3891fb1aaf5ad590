// Lists with wildcards: a text extends over all texts that follow it in the list, so only the last one can
// match.
#include <gmock/gmock.h>

#include <regex>

#include "findreplace/applied.h"

using namespace QXFindAndReplace;

namespace {

template <typename CharT>
class WildcardLists : public AppliedModes<CharT> {
 protected:
  std::string ErrorOf(const std::string& find) {
    return WhatOf<std::regex_error>([&] { this->Apply(ModeManySame | Wildcard, "hello\nworld", find, "-"); });
  }
};
TYPED_TEST_SUITE(WildcardLists, BothWidths);

// The result of WhatOf if there was no exception.
const std::string kNothing = "nothing was thrown";

std::string LibraryErrorOf(const char* pattern) {
  return WhatOf<std::regex_error>([pattern] { std::regex unused(pattern); });
}

}  // namespace

TYPED_TEST(WildcardLists, OnlyTheLastTextMatches) {
  EXPECT_EQ(this->Apply(ModeManySame | Wildcard, "ab\ncd", "a*\nc*", "-"), "ab\n-");
  EXPECT_EQ(this->Apply(ModeManySame | Wildcard, "ab\ncd", "a*\nc*\n", "-"), "ab\ncd");
}

TYPED_TEST(WildcardLists, TextsThatCannotMatchAreStillRefused) {
  for (const char* find : {"a{2,1}\nb", "a{\n2}", "{2}\nb"}) {
    EXPECT_EQ(this->ErrorOf(find), LibraryErrorOf(find)) << find;
    EXPECT_NE(this->ErrorOf(find), kNothing) << find;
  }
}

// From the first text on, the braces repeat a line end, which is a valid pattern. The second text begins with
// the braces.
TYPED_TEST(WildcardLists, TextThatIsNoPatternByItselfIsRefused) {
  EXPECT_EQ(LibraryErrorOf("a\n{2}\nb"), kNothing);
  EXPECT_EQ(this->ErrorOf("a\n{2}\nb"), LibraryErrorOf("{2}\nb"));
  EXPECT_NE(this->ErrorOf("a\n{2}\nb"), kNothing);
}

TYPED_TEST(WildcardLists, LongListsAreDoneSoon) {
  // Checking each text together with the whole rest of the list would take minutes, and storing each
  // gigabytes.
  std::string find;
  for (int number = 0; number < 20000; ++number) find += "w" + std::to_string(number) + "\n";
  EXPECT_EQ(this->Apply(ModeManySame | Wildcard, "hello w1\nworld", find + "w*", "-"), "hello -\n-");
}
