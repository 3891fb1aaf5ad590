// The flag of Save: 1 formats the document, 0 leaves the white space unchanged.
#include <gtest/gtest.h>

#include "host/xml_files.h"

namespace {

constexpr Velmora::SDK::u32 kAsLoaded = 0;
constexpr Velmora::SDK::u32 kFormatted = 1;

struct Case {
  const char* loaded;
  const char* formatted;
};

constexpr Case kCases[] = {
    {"<a/>", "<a/>\n"},
    {"<a><b/><c>text</c></a>", "<a>\n  <b/>\n  <c>text</c>\n</a>\n"},
    {"<a>\n\n      <b> </b>\n <c></c></a>\n\n", "<a>\n  <b> </b>\n  <c></c>\n</a>\n"},
    {"<?xml version=\"1.0\"?><!DOCTYPE a><!--x--><a><!--y--><?p q?><b><c/></b></a><!--z-->",
     "<?xml version=\"1.0\"?>\n<!DOCTYPE a>\n<!--x-->\n<a>\n  <!--y-->\n  <?p q?>\n  <b>\n    <c/>\n  "
     "</b>\n</a>\n"
     "<!--z-->\n"},
    // White space that belongs to text content is preserved.
    {"<a> one <b/> <c><d/></c></a>", "<a> one <b/> <c><d/></c></a>\n"},
    {"<a> <b/>&#32;</a>", "<a> <b/>&#32;</a>\n"},
    {"<a> <b/><![CDATA[]]></a>", "<a> <b/><![CDATA[]]></a>\n"},
    {"<a><p xml:space=\"preserve\"> <b/> </p><q xml:space='default'> <b/> </q></a>",
     "<a>\n  <p xml:space=\"preserve\"> <b/> </p>\n  <q xml:space='default'>\n    <b/>\n  </q>\n</a>\n"},
    // Line ends are the same as in the file.
    {"<a>\r\n<b/></a>", "<a>\r\n  <b/>\r\n</a>\r\n"},
};

TEST(XmlLayout, Flag1PutsEachElementOnALineOfItsOwn) {
  const XmlFiles files;
  for (const Case& c : kCases) {
    EXPECT_EQ(files.Rewritten(c.loaded, kFormatted), c.formatted) << c.loaded;
  }
}

TEST(XmlLayout, WhatIsFormattedStaysAsItIs) {
  const XmlFiles files;
  for (const Case& c : kCases) {
    EXPECT_EQ(files.Rewritten(c.formatted, kFormatted), c.formatted);
  }
}

TEST(XmlLayout, Flag0LeavesTheWhiteSpaceBetweenTheElements) {
  const XmlFiles files;
  for (const Case& c : kCases) {
    EXPECT_EQ(files.Rewritten(c.loaded, kAsLoaded), c.loaded);
    EXPECT_EQ(files.Rewritten(c.formatted, kAsLoaded), c.formatted);
  }
}

TEST(XmlLayout, FormattingThatWouldGrowBeyondAllBoundsLeavesTheFileAsItWas) {
  const XmlFiles files;
  std::string text;
  for (int n = 0; n < 400; ++n) text += "<a>";
  for (int n = 0; n < 400000; ++n) text += "<b/>";
  for (int n = 0; n < 400; ++n) text += "</a>";
  EXPECT_TRUE(files.Rewritten(text, kFormatted) == text);
  EXPECT_FALSE(files.Saved());
}

}  // namespace
