// Compares the engine with the reference over random short texts: output bytes, changes, failures and
// questions must be equal.
#include <gtest/gtest.h>

#include "findreplace/documents.h"
#include "findreplace/engine/modes.h"
#include "findreplace/plain_engine.h"
#include "findreplace/plain_outcome.h"
#include "support/random_numbers.h"

using namespace QXFindAndReplace;

namespace {

template <typename CharT>
std::basic_string<CharT> Letters(RandomNumbers& random, const std::basic_string<CharT>& alphabet,
                                 std::size_t count) {
  std::basic_string<CharT> text;
  while (text.size() < count) text += random.Of(alphabet);
  return text;
}

// Few different letters, so that texts repeat prefixes of the find text, and characters at which a search
// must stop.
template <typename CharT>
std::vector<std::basic_string<CharT>> Alphabets() {
  using namespace std::string_view_literals;
  std::vector<std::basic_string<CharT>> alphabets;
  for (const std::string_view narrow :
       {"aaaab\n"sv, "abc\n"sv, "aAbB\n"sv, "ab\r\n"sv, "aab\0\n"sv, "aAb\r\n\0"sv, "ab\xE4\xC4\n"sv,
        "a[{@`\n"sv, "ab"sv, "a\n"sv, "ababc\r"sv}) {
    alphabets.push_back(In<CharT>(narrow));
  }
  if constexpr (sizeof(CharT) == 2) {
    alphabets.push_back({'a', 0x0A0A, 0x0D0D, 0x6100, 0x0061, '\n'});
    alphabets.push_back({'a', 'b', 0x0A61, 0x610A, 0x0161, '\n'});
    alphabets.push_back({'a', 'b', 0x2028, 0x2029, 'a', '\n'});
  }
  return alphabets;
}

template <typename CharT>
std::basic_string<CharT> Without(std::basic_string<CharT> text, std::string_view characters) {
  std::erase_if(text, [&](CharT character) {
    return In<CharT>(characters).find(character) != std::basic_string<CharT>::npos;
  });
  return text;
}

constexpr std::uint32_t kModes[] = {ModeOne, ModeMany, ModeManySame, ModeMultiline};

// A random run of a mode over a document.
template <typename CharT>
Trial<CharT> MakeTrial(std::uint32_t seed) {
  RandomNumbers random(seed);
  Trial<CharT> trial;
  const auto alphabet = random.Of(Alphabets<CharT>());
  const auto findAlphabet = Without<CharT>(alphabet, std::string_view("\0", 1));
  trial.bytes = RawBytes<CharT>(Letters(random, alphabet, random(random(8) == 0 ? 400 : 60)));
  if (random(12) == 0) trial.bytes += "\n";
  trial.flags = random.Of(kModes) | (random(2) ? IgnoreCase : 0u) | (random(4) == 0 ? Wildcard : 0u);
  const bool isList = (trial.flags & ModeOne) == 0;
  trial.find =
      Letters(random, isList ? findAlphabet : Without<CharT>(findAlphabet, "\r\n"), random(isList ? 9 : 5));
  if ((trial.flags & Wildcard) != 0) {
    trial.find = Without<CharT>(trial.find, "{");
    for (CharT& character : trial.find) {
      if (character != '\n' && character != '\r' && random(3) == 0)
        character = static_cast<CharT>("?*"[random(2)]);
    }
  }
  // Usually as many lines as the find list has items.
  const auto plain = In<CharT>("xyA");
  const std::size_t items = PlainEngine::Items(trial.find).size();
  const std::size_t lines = (trial.flags & ModeMany) != 0 && random(8) != 0 ? items : random(5);
  for (std::size_t i = 0; i < lines; ++i) {
    trial.replace += Letters(random, plain, random(4));
    if (i + 1 < lines || trial.replace.empty() || random(2)) trial.replace += CharT('\n');
  }
  // Block boundaries inside lines. With small blocks the text is often refused, which is compared too.
  trial.blockBytes = (random(3) == 0 ? 4 + random(16) : 64 + random(500)) * sizeof(CharT);
  return trial;
}

template <typename CharT>
class FindAndReplaceDifferential : public testing::Test {
 protected:
  static void Compare(const Trial<CharT>& trial, std::uint32_t seed) {
    const TrialOutcome<CharT> plain = RunReference(trial);
    const TrialOutcome<CharT> engine = RunEngine(trial);
    EXPECT_EQ(engine, plain) << "seed " << seed << ", " << Described(trial);
    refused += plain.failure.code != 0;
    changed += plain.failure.code == 0 && plain.changes != 0;
  }
  static inline int refused = 0;
  static inline int changed = 0;
};
TYPED_TEST_SUITE(FindAndReplaceDifferential, BothWidths);

}  // namespace

TYPED_TEST(FindAndReplaceDifferential, ModesWithNobodyToAsk) {
  this->refused = this->changed = 0;
  for (std::uint32_t seed = 1; seed <= 10000 && !this->HasFailure(); ++seed) {
    this->Compare(MakeTrial<TypeParam>(seed), seed);
  }
  // The random cases cover refusals and changes well.
  EXPECT_GT(this->refused, 500);
  EXPECT_GT(this->changed, 2000);
}

TYPED_TEST(FindAndReplaceDifferential, ModesWithQuestions) {
  for (std::uint32_t seed = 100001; seed <= 105000 && !this->HasFailure(); ++seed) {
    Trial<TypeParam> trial = MakeTrial<TypeParam>(seed);
    RandomNumbers random(seed);
    trial.asks = true;
    for (int i = 0; i < 40; ++i) {
      const bool rare = random(12) == 0;
      trial.answers.push_back(static_cast<ConfirmResult>(rare ? random(7) : random(2) * 3));
    }
    this->Compare(trial, seed);
  }
}

// Find texts that cannot be list items: with line ends and zeros.
TYPED_TEST(FindAndReplaceDifferential, PassesOfAnyText) {
  for (std::uint32_t seed = 200001; seed <= 206000 && !this->HasFailure(); ++seed) {
    RandomNumbers random(seed);
    Trial<TypeParam> trial;
    const auto alphabet = random.Of(Alphabets<TypeParam>());
    trial.isPass = true;
    trial.bytes = RawBytes<TypeParam>(Letters(random, alphabet, random(120)));
    trial.find = Letters(random, alphabet, 1 + random(5));
    trial.replace = Letters(random, alphabet, random(4));
    trial.flags = random(2) ? IgnoreCase : 0u;
    trial.blockBytes = (8 + random(200)) * sizeof(TypeParam);
    this->Compare(trial, seed);
  }
}

TYPED_TEST(FindAndReplaceDifferential, LongTextsOfSeveralBlocks) {
  for (std::uint32_t seed = 300001; seed <= 300012 && !this->HasFailure(); ++seed) {
    RandomNumbers random(seed);
    Trial<TypeParam> trial = MakeTrial<TypeParam>(seed);
    trial.flags &= ~std::uint32_t{Wildcard};
    auto alphabet = random.Of(Alphabets<TypeParam>());
    alphabet += TypeParam('\n');
    trial.bytes = RawBytes<TypeParam>(Letters(random, alphabet, 40000 + random(40000)));
    trial.blockBytes = 32768;
    this->Compare(trial, seed);
  }
}
