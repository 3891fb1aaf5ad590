// Names are scanned in blocks: in a text of any length, every position must be examined.
#include "multirename/rules/character_scan.h"

#include <gtest/gtest.h>

namespace Velmora::SDK {
namespace {

constexpr std::size_t kLongestText = 50;  // several blocks and a remainder

bool ContainsBarOrStar(WStringView text) { return ContainsAnyOf<W('|'), W('*')>(text); }

TEST(CharacterScanTest, ACharacterIsFoundAtEachPlaceOfEachLength) {
  for (std::size_t size = 1; size <= kLongestText; ++size) {
    for (std::size_t at = 0; at < size; ++at) {
      for (const WCHAR wanted : {W('|'), W('*')}) {
        WString text(size, W('a'));
        text[at] = wanted;
        EXPECT_TRUE(ContainsBarOrStar(text)) << "size " << size << ", at " << at;
      }
    }
  }
}

TEST(CharacterScanTest, OtherCharactersAreNotFoundWhateverTheirBytes) {
  for (std::size_t size = 0; size <= kLongestText; ++size) {
    // Code units whose bytes are those of the bar or the star, or adjacent to them.
    for (const WCHAR other :
         {WCHAR{0x7C00}, WCHAR{0x017C}, WCHAR{0x2A00}, WCHAR{0x012A}, W('{'), W('+'), WCHAR()}) {
      EXPECT_FALSE(ContainsBarOrStar(WString(size, other)))
          << "size " << size << ", unit " << unsigned{other};
    }
  }
}

TEST(CharacterScanTest, NothingOutsideTheTextIsLookedAt) {
  for (std::size_t size = 0; size <= kLongestText; ++size) {
    const WString text = W('|') + WString(size, W('a')) + W('|');
    EXPECT_FALSE(ContainsBarOrStar(WStringView(text).substr(1, size))) << "size " << size;
  }
}

TEST(CharacterScanTest, AZeroCanBeLookedFor) {
  EXPECT_TRUE((ContainsAnyOf<W('\0')>(WStringView(W("a\0b"), 3))));
  EXPECT_FALSE((ContainsAnyOf<W('\0')>(W("ab"))));
}

}  // namespace
}  // namespace Velmora::SDK
