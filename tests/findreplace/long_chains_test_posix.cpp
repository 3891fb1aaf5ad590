// Chains of ten thousand inserted lines, on a thread whose stack is too small for recursion over them.
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>

#include "findreplace/applied.h"

using namespace QXFindAndReplace;

namespace {

constexpr std::size_t kStack = 256 * 1024;
constexpr std::uint32_t kLines = 10000;

void RunOnSmallStack(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
  pthread_t thread;
  const auto start = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

std::string Repeated(std::string_view text, std::size_t times) {
  std::string result;
  result.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

template <typename CharT>
class LongChains : public AppliedModes<CharT> {};
TYPED_TEST_SUITE(LongChains, BothWidths);

}  // namespace

TYPED_TEST(LongChains, LineCutIntoThousandsOfLinesIsWritten) {
  RunOnSmallStack([&] {
    const auto document = MakeDocument<TypeParam>(std::string(kLines, 'a'), 4 * kLines);
    FindAndReplaceOptions options;
    options.flags = ModeMultiline;
    EXPECT_EQ(this->ApplyTo(*document, options, "a", "x\ny"), kLines);
    EXPECT_EQ(Written(*document), "x\n" + Repeated("yx\n", kLines - 1) + "y\n");
  });
}

TYPED_TEST(LongChains, ReplacementOfThousandsOfLinesIsWritten) {
  RunOnSmallStack([&] {
    const auto document = MakeDocument<TypeParam>("1a\nb2\n");
    FindAndReplaceOptions options;
    options.flags = ModeMultiline;
    EXPECT_EQ(this->ApplyTo(*document, options, "a\nb", Repeated("x\n", kLines)), 1u);
    EXPECT_EQ(Written(*document), "1" + Repeated("x\n", kLines - 1) + "x2\n");
  });
}

TYPED_TEST(LongChains, ThousandsOfLinesAreShownAroundARange) {
  RunOnSmallStack([&] {
    const auto document = MakeDocument<TypeParam>("1a\nb2\n");
    FindAndReplaceOptions options;
    options.flags = ModeMultiline;
    this->ApplyTo(*document, options, "a\nb", Repeated("x\n", kLines));
    Highlight highlight = {};
    const auto context = document->GetContextText(InLine(1, 1, 2), highlight, LineEnding::Lf);
    EXPECT_EQ(Narrow<TypeParam>(context.get()), "1" + Repeated("x\n", kLines - 1) + "x2\n");
    EXPECT_EQ(highlight.start, 2 * kLines);
    EXPECT_EQ(highlight.end, 2 * kLines + 1);
  });
}

TYPED_TEST(LongChains, LineOfThousandsOfPartsIsWritten) {
  RunOnSmallStack([&] {
    const auto document = MakeDocument<TypeParam>(Repeated("ab", kLines), 4 * kLines);
    FindAndReplaceOptions options;
    options.flags = ModeOne;
    EXPECT_EQ(this->ApplyTo(*document, options, "a", "xyz"), kLines);
    EXPECT_EQ(Written(*document), Repeated("xyzb", kLines));
  });
}

// With wildcards, a line of any length and a pattern that matches all of it.
TYPED_TEST(LongChains, WildcardsOverALongLine) {
  RunOnSmallStack([&] {
    const auto document = MakeDocument<TypeParam>(Repeated("ab", kLines) + "c", 4 * kLines);
    FindAndReplaceOptions options;
    options.flags = ModeOne | Wildcard;
    EXPECT_EQ(this->ApplyTo(*document, options, "a*?c", "x"), 1u);
    EXPECT_EQ(Written(*document), "x");
  });
}
