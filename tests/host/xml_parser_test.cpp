// A document that is not well-formed is rejected as a whole, and hostile input does no harm.
#include "host/xml/xml_parser.h"

#include <gtest/gtest.h>

#include "host/xml/xml_writer.h"

using QxHost::ParseXml;
using QxHost::WriteXml;
using QxHost::XmlLayout;

namespace {

std::string Repeated(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t n = 0; n < count; ++n) result += text;
  return result;
}

TEST(XmlParser, FilesThatAreNotWellFormedAreRefused) {
  for (const char* const text :
       {"", " ", "text", "<", "<>", "<a", "<a>", "<a/", "</a>", "<a></b>", "<a><b></a></b>", "< a/>", "<1/>",
        "<a/><b/>", "<a/>text", "text<a/>", "<a/></a>", "<![CDATA[x]]><a/>", "<a/>&amp;",
        // Attributes.
        "<a b/>", "<a b=/>", "<a b=c/>", "<a b=\"c/>", "<a b=\"c'/>", "<a b=\"1\"c=\"2\"/>",
        "<a b=\"1\" b=\"2\"/>", "<a b=\"1\" c=\"2\" b='3'/>", "<a b=\"<\"/>", "<a =\"1\"/>", "<a b=\"&\"/>",
        // References.
        "<a>&</a>", "<a>& </a>", "<a>&;</a>", "<a>&amp</a>", "<a>&none;</a>", "<a>&#;</a>", "<a>&#x;</a>",
        "<a>&#xG;</a>", "<a>&#a;</a>", "<a>&#0;</a>", "<a>&#x1F;</a>", "<a>&#xD800;</a>", "<a>&#xFFFE;</a>",
        "<a>&#x110000;</a>", "<a>&#99999999999999999999;</a>", "<a>&#X41;</a>",
        // Sections.
        "<a>]]></a>", "<a><![CDATA[</a>", "<a><!-- -- --></a>", "<a><!-- --->", "<!--<a/>", "<a><!-></a>",
        "<a><?></a>", "<a><? p?></a>", "<a><?p</a>", "<a><?xml version=\"1.0\"?></a>", "<a><?XML?></a>",
        " <?xml version=\"1.0\"?><a/>", "<!b><a/>",
        // The declaration.
        "<?xml?><a/>", "<?xml ?><a/>", "<?xml version=\"1.0\"><a/>", "<?xml version=\"2.0\"?><a/>",
        "<?xml encoding=\"UTF-8\"?><a/>", "<?xml version=\"1.0\" standalone=\"maybe\"?><a/>",
        "<?xml version=\"1.0\" standalone=\"no\" encoding=\"UTF-8\"?><a/>",
        "<?xml version=\"1.0\"encoding=\"UTF-8\"?><a/>", "<?xml version=\"1.0\"?>",
        // The document type.
        "<!DOCTYPE><a/>", "<!DOCTYPEa><a/>", "<!DOCTYPE a", "<!DOCTYPE a [><a/>", "<!DOCTYPE a []]><a/>",
        "<!DOCTYPE a [<!ENTITY b \"c>]><a/>", "<!DOCTYPE a [<!ENTITY <!ENTITY>]><a/>", "<a/><!DOCTYPE a>",
        "<!DOCTYPE a><!DOCTYPE a><a/>", "<a><!DOCTYPE a></a>", "<!DOCTYPE a [<!-- -- -->]><a/>",
        "<!DOCTYPE a <b><a/>"}) {
    EXPECT_EQ(ParseXml(text), nullptr) << text;
  }
}

TEST(XmlParser, CharactersThatXmlDoesNotAllowAreRefused) {
  using namespace std::string_literals;
  for (const std::string& text :
       {"<a>\0</a>"s, "<a>\x01</a>"s, "<a b='\x1F'/>"s, "<a/>\0"s, "<a>\xEF\xBF\xBF</a>"s, "\0"s}) {
    EXPECT_EQ(ParseXml(text), nullptr) << text;
  }
}

TEST(XmlParser, WhatIsWellFormedIsKept) {
  for (const std::string text :
       {"<a/>", "<a></a>", "<a:b-c.d_1 x:y=\"1\" z='\"'/>", "\n<a/>\n\n", "<a>\t\r\n</a>", "<\xC3\xA4/>",
        "<?xml version=\"1.1\"?><a/>", "<?xml-stylesheet href=\"x\"?><a/><?end?>",
        "<!-- a > b - c --><a><!----></a>", "<a><?p ?><?q r > ? s?></a>", "<a><![CDATA[<&>]] >]]></a>",
        "<a b=\"&lt;&amp;&#10;&#xA;>\n\">&gt;&quot;&apos;]]&gt;</a>", "<a>\r\n\r\n</a>", "<!DOCTYPE a><a/>",
        "<!DOCTYPE a SYSTEM \"x>[\" [ ] ><a/>",
        "<!DOCTYPE a PUBLIC \"-//X\" 'y' [<!ENTITY b '<c>]'>%d;<!-- ' --><?p ' ?>\n<!ELEMENT a (b|c)*>]>"
        "<a e=\"&b;\">&b;&any;</a>"}) {
    SCOPED_TRACE(text);
    const auto tree = ParseXml(text);
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(WriteXml(*tree, XmlLayout::kAsLoaded, ""), text);
  }
}

TEST(XmlParser, BlanksWithinTagsAreMadeOne) {
  const auto tree = ParseXml("<a  b = '1'\n c=\"2\" ><d /></a >");
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(WriteXml(*tree, XmlLayout::kAsLoaded, ""), "<a b='1' c=\"2\"><d/></a>");
}

TEST(XmlParser, NestingIsBounded) {
  using QxHost::kMaxXmlDepth;
  const auto nested = [](std::size_t depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); };
  EXPECT_NE(ParseXml(nested(kMaxXmlDepth)), nullptr);
  EXPECT_EQ(ParseXml(nested(kMaxXmlDepth + 1)), nullptr);
  EXPECT_EQ(ParseXml(nested(1000000)), nullptr);
  EXPECT_EQ(ParseXml(Repeated("<a>", 1000000)), nullptr);
  EXPECT_EQ(ParseXml("<!DOCTYPE a " + Repeated("[", 1000000) + "><a/>"), nullptr);
}

TEST(XmlParser, EntitiesThatMultiplyAreNotResolved) {
  std::string text = "<!DOCTYPE a [<!ENTITY e0 \"ha\">";
  for (int n = 1; n < 100; ++n) {
    text +=
        "<!ENTITY e" + std::to_string(n) + " \"" + Repeated("&e" + std::to_string(n - 1) + ";", 10) + "\">";
  }
  text += "<!ENTITY self \"&self;\"><!ENTITY file SYSTEM \"file:///etc/passwd\">]><a>&e99;&self;&file;</a>";
  const auto tree = ParseXml(text);
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(WriteXml(*tree, XmlLayout::kAsLoaded, ""), text);
}

TEST(XmlParser, HugePartsAreReadInOneGo) {
  const std::string huge(5000000, 'x');
  std::string many = "<a";
  for (int n = 0; n < 200000; ++n) many += " n" + std::to_string(n) + "=\"\"";
  for (const std::string& text :
       {"<a b=\"" + huge + "\"/>", "<" + huge + "/>", "<a>" + huge + "</a>", "<!--" + huge + "--><a/>",
        many + "/>", "<a>" + Repeated("<b/>", 500000) + "</a>", "<a>" + Repeated("&amp;", 500000) + "</a>"}) {
    const auto tree = ParseXml(text);
    ASSERT_NE(tree, nullptr) << text.substr(0, 20);
    EXPECT_TRUE(WriteXml(*tree, XmlLayout::kAsLoaded, "") == text) << text.substr(0, 20);
  }
  EXPECT_EQ(ParseXml("<a>&" + huge + "</a>"), nullptr);
  EXPECT_EQ(ParseXml("<a>" + Repeated("&", 500000) + "</a>"), nullptr);
}

TEST(XmlParser, AFileThatIsTooLongIsRefused) {
  const std::string filling(QxHost::kMaxXmlBytes - 7, 'x');
  EXPECT_NE(ParseXml("<a>" + filling + "</a>"), nullptr);
  EXPECT_EQ(ParseXml("<a>" + filling + "x</a>"), nullptr);
}

TEST(XmlParser, EveryCutOfAFileIsRefused) {
  const std::string text =
      "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY b 'c'>]><!--d--><a e='&b;'><![CDATA[f]]><?g h?>&#10;</a>";
  ASSERT_NE(ParseXml(text), nullptr);
  for (std::size_t size = 0; size < text.size(); ++size) {
    EXPECT_EQ(ParseXml(text.substr(0, size)), nullptr) << text.substr(0, size);
  }
}

}  // namespace
