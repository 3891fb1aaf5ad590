// Byte keys that are widened before they are compared: the buffers still contain earlier, longer keys, which
// must have no effect.
#include <gtest/gtest.h>

#include "linesorter/engine/line_comparators.h"
#include "linesorter/widths.h"

using namespace WQLineSorter;

namespace {

constexpr DWORD kNaturalFlags = 0x8000018;

class WidenedKeys : public testing::Test {
 protected:
  WidenedKeys() { comparator_.compareFlags = kNaturalFlags; }

  // Each key is followed by text that must be ignored, and by a zero.
  bool Before(std::string_view lhs, std::string_view rhs) {
    const Exact<char> left(std::string(lhs) + "!" + '\0');
    const Exact<char> right(std::string(rhs) + "!!" + '\0');
    return comparator_.Compare(left.Begin(), static_cast<std::uint32_t>(lhs.size()), right.Begin(),
                               static_cast<std::uint32_t>(rhs.size()));
  }

  // Fills the buffers with texts whose order differs from that of the keys.
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

// Returns a literal with its zeros.
template <std::size_t kSize>
constexpr std::string_view KeyBytes(const char (&literal)[kSize]) {
  return {literal, kSize - 1};
}

}  // namespace

TEST_F(WidenedKeys, EndAtAZeroWhateverFollowedItBefore) {
  ExpectEqual(KeyBytes("m\0xxx"), KeyBytes("m\0yyy"));
  ExpectEqual(KeyBytes("m\0"), KeyBytes("m\0"));
  ExpectEqual(KeyBytes("m\0a"), KeyBytes("m\0z"));
  ExpectEqual(KeyBytes("M12\0abc"), KeyBytes("m12\0xyz"));
  ExpectBefore(KeyBytes("m\0zzz"), KeyBytes("n\0aaa"));
  ExpectBefore(KeyBytes("m9\0zzz"), KeyBytes("m10\0aaa"));
}

TEST_F(WidenedKeys, ThatBeginWithAZeroAreAllAlike) {
  ExpectEqual(KeyBytes("\0"), KeyBytes("\0"));
  ExpectEqual(KeyBytes("\0abc"), KeyBytes("\0xyz"));
  ExpectEqual(KeyBytes("\0\0\0"), KeyBytes("\0xy"));
  ExpectBefore(KeyBytes("\0zzz"), KeyBytes("a"));
  ExpectBefore(KeyBytes("\0zzz"), KeyBytes("m\0a"));
}

TEST_F(WidenedKeys, AreTheirOwnAndNotTheLongerOnesOfBefore) {
  ExpectBefore("a", "b");
  ExpectBefore("m", "n1");
  ExpectBefore("file 9", "file 10");
  ExpectEqual("abc", "ABC");
}

TEST_F(WidenedKeys, MayGrowAfterAKeyWithAZero) {
  EXPECT_FALSE(Before(KeyBytes("m\0x"), KeyBytes("m\0y")));
  const std::string longer(500, 'm');
  EXPECT_TRUE(Before(longer + "9", longer + "10"));
  EXPECT_FALSE(Before(KeyBytes("m\0x"), KeyBytes("m\0y")));
  EXPECT_FALSE(Before(KeyBytes("m\0y"), KeyBytes("m\0x")));
}
