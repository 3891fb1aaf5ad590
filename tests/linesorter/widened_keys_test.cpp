// Keys of bytes that are widened before they are compared: the buffers are those of earlier, longer keys, of
// which nothing may count any more.
#include <gtest/gtest.h>

#include "linesorter/line_comparators.h"
#include "linesorter/widths.h"

using namespace WQLineSorter;

namespace {

constexpr DWORD kNaturalFlags = 0x8000018;

class WidenedKeys : public testing::Test {
 protected:
  WidenedKeys() { comparator_.compareFlags = kNaturalFlags; }

  // Behind each key stands what must not count, and then a zero.
  bool Before(std::string_view lhs, std::string_view rhs) {
    const Exact<char> left(std::string(lhs) + "!" + '\0');
    const Exact<char> right(std::string(rhs) + "!!" + '\0');
    return comparator_.Compare(left.Begin(), static_cast<std::uint32_t>(lhs.size()), right.Begin(),
                               static_cast<std::uint32_t>(rhs.size()));
  }

  // Fills the buffers with texts that would decide otherwise than the keys do.
  void Fill(std::size_t size, char left, char right) {
    EXPECT_EQ(Before(std::string(size, left), std::string(size, right)), left < right);
  }

  void ExpectEqual(std::string_view lhs, std::string_view rhs) { ExpectOrder(lhs, rhs, false); }
  void ExpectBefore(std::string_view lhs, std::string_view rhs) { ExpectOrder(lhs, rhs, true); }

 private:
  void ExpectOrder(std::string_view lhs, std::string_view rhs, bool isBefore) {
    for (const std::size_t size : {10u, 200u}) {
      for (const auto& [left, right] : {std::pair{'a', 'z'}, std::pair{'z', 'a'}}) {
        Fill(size, left, right);
        EXPECT_EQ(Before(lhs, rhs), isBefore) << size << left;
        Fill(size, left, right);
        EXPECT_FALSE(Before(rhs, lhs)) << size << left;
      }
    }
  }

  LineCompare_LanguageAware_WFallback comparator_;
};

// A literal with its zeros.
template <std::size_t kSize>
constexpr std::string_view Key(const char (&literal)[kSize]) {
  return {literal, kSize - 1};
}

}  // namespace

TEST_F(WidenedKeys, EndAtAZeroWhateverStoodBehindItBefore) {
  ExpectEqual(Key("m\0xxx"), Key("m\0yyy"));
  ExpectEqual(Key("m\0"), Key("m\0"));
  ExpectEqual(Key("m\0a"), Key("m\0z"));
  ExpectEqual(Key("M12\0abc"), Key("m12\0xyz"));
  ExpectBefore(Key("m\0zzz"), Key("n\0aaa"));
  ExpectBefore(Key("m9\0zzz"), Key("m10\0aaa"));
}

TEST_F(WidenedKeys, ThatBeginWithAZeroAreAllAlike) {
  ExpectEqual(Key("\0"), Key("\0"));
  ExpectEqual(Key("\0abc"), Key("\0xyz"));
  ExpectEqual(Key("\0\0\0"), Key("\0xy"));
  ExpectBefore(Key("\0zzz"), Key("a"));
  ExpectBefore(Key("\0zzz"), Key("m\0a"));
}

TEST_F(WidenedKeys, AreTheirOwnAndNotTheLongerOnesOfBefore) {
  ExpectBefore("a", "b");
  ExpectBefore("m", "n1");
  ExpectBefore("file 9", "file 10");
  ExpectEqual("abc", "ABC");
}

TEST_F(WidenedKeys, MayGrowBehindAKeyWithAZero) {
  EXPECT_FALSE(Before(Key("m\0x"), Key("m\0y")));
  const std::string longer(500, 'm');
  EXPECT_TRUE(Before(longer + "9", longer + "10"));
  EXPECT_FALSE(Before(Key("m\0x"), Key("m\0y")));
  EXPECT_FALSE(Before(Key("m\0y"), Key("m\0x")));
}
