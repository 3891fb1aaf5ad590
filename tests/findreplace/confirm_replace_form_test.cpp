// The contents of the dialog that confirms a match.
#include "findreplace/tool/confirm_replace_form.h"

#include <gtest/gtest.h>

namespace QXFindAndReplace {
namespace {

using WQDR::TextFormat;

ConfirmReplaceForm FormOf(TextFormat format, const WString& context, const WString& replacement) {
  ConfirmReplaceForm form;
  form.format = format;
  form.context = context;
  form.replacement = replacement;
  return form;
}

TEST(ConfirmReplaceForm, BeginsWithTheRawTexts) {
  const ConfirmReplaceForm form =
      FormOf(TextFormat::Utf8, W("Gr\u00C3\u00BC\u00C3\u0178e"), W("\u00C3\u00A4"));
  EXPECT_TRUE(form.rawShown);
  EXPECT_EQ(ShownContext(form), W("Gr\u00C3\u00BC\u00C3\u0178e"));
  EXPECT_EQ(ShownReplacement(form), W("\u00C3\u00A4"));
}

TEST(ConfirmReplaceForm, OtherViewReadsTheBytesAsUtf8) {
  ConfirmReplaceForm form =
      FormOf(TextFormat::Utf8, W("Gr\u00C3\u00BC\u00C3\u0178e\r\n\u00E2\u201A\u00AC"), W("\u00C3\u00A4"));
  form.rawShown = false;
  EXPECT_EQ(ShownContext(form), W("Gr\u00FC\u00DFe\r\n\u20AC"));
  EXPECT_EQ(ShownReplacement(form), W("\u00E4"));
}

TEST(ConfirmReplaceForm, BytesWithoutACharacterInTheCodePageComeBackToo) {
  // In code page 1252, 0x81 and 0x9D are not characters.
  ConfirmReplaceForm form = FormOf(TextFormat::Utf8, W("\u00C3\u0081\u00E2\u20AC\u009D"), W(""));
  form.rawShown = false;
  EXPECT_EQ(ShownContext(form), W("\u00C1\u201D"));
  EXPECT_EQ(ShownReplacement(form), W(""));
}

TEST(ConfirmReplaceForm, BytesThatAreNoUtf8AreReplacementCharacters) {
  ConfirmReplaceForm form = FormOf(TextFormat::Utf8, W("a\u20ACb"), W(""));
  form.rawShown = false;
  EXPECT_EQ(ShownContext(form), W("a\uFFFDb"));
}

TEST(ConfirmReplaceForm, OnlyForUtf8TheViewCanBeSwitched) {
  EXPECT_TRUE(CanSwitchView(FormOf(TextFormat::Utf8, {}, {})));
  for (const TextFormat format : {TextFormat::Ansi, TextFormat::Utf16, TextFormat::Binary}) {
    EXPECT_FALSE(CanSwitchView(FormOf(format, {}, {}))) << static_cast<int>(format);
  }
}

TEST(ConfirmReplaceForm, RangeIsStartLineStartColumnEndLineEndColumnFromZero) {
  EXPECT_EQ(RangeText(W("%d:%d-%d:%d"), {{0, 3}, {12, 4000000000}}), W("0:3-12:4000000000"));
}

TEST(ConfirmReplaceForm, FormatOfTheRangeMayBeAnything) {
  EXPECT_EQ(RangeText(W("%s%n%d%%%p"), {{7, 1}, {2, 3}}), W("%s%n7%%p"));
  EXPECT_EQ(RangeText(W("match"), {{7, 1}, {2, 3}}), W("match"));
  EXPECT_EQ(RangeText(W("%d %d %d %d %d"), {{0, 1}, {2, 3}}), W("0 1 2 3 %d"));
}

}  // namespace
}  // namespace QXFindAndReplace
