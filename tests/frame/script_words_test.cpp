// Words as values of script parameters.
#include "frame/services/script_words.h"

#include <gtest/gtest.h>

namespace {

constexpr ScriptWord kWords[] = {{W("One"), 1}, {W("ManySame"), 4}};

TEST(ScriptWords, AreFoundIgnoringCase) {
  EXPECT_EQ(FindScriptWord(W("One"), kWords), 1u);
  EXPECT_EQ(FindScriptWord(W("one"), kWords), 1u);
  EXPECT_EQ(FindScriptWord(W("ONE"), kWords), 1u);
  EXPECT_EQ(FindScriptWord(W("mAnYsAmE"), kWords), 4u);
}

TEST(ScriptWords, AreWhole) {
  for (const WCHAR* value : {W(""), W("On"), W("Ones"), W(" One"), W("Many"), W("0ne"), W("\u017Fame")}) {
    EXPECT_EQ(FindScriptWord(value, kWords), std::nullopt);
  }
}

TEST(ScriptWords, OnlyTheLettersAToZAreFolded) {
  constexpr ScriptWord kOdd[] = {{W("a[k\u00E4"), 2}};
  EXPECT_EQ(FindScriptWord(W("A[K\u00E4"), kOdd), 2u);
  EXPECT_EQ(FindScriptWord(W("a{k\u00E4"), kOdd), std::nullopt);
  EXPECT_EQ(FindScriptWord(W("a[k\u00C4"), kOdd), std::nullopt);
  EXPECT_EQ(FindScriptWord(W("a[\u212A\u00E4"), kOdd), std::nullopt);  // the Kelvin sign
}

}  // namespace
