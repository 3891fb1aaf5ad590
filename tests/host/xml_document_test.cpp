// The nodes that the module creates and reads.
#include "host/xml/xml_document.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/xml_files.h"

using namespace Velmora::SDK;

namespace {

class XmlNodes : public testing::Test {
 protected:
  XmlNode Load(std::string_view text) { return document_->Load(scratch_.Write(W("a.xml"), text).c_str(), 1); }

  std::string Saved(XmlNode root, u32 flag = 0, const char* encoding = nullptr) {
    EXPECT_TRUE(document_->Save(root, scratch_.Path(W("s.xml")).c_str(), flag, encoding));
    return scratch_.Read(W("s.xml"));
  }

  WString ChildText(XmlNode parent, const WCHAR* name, u32 size = 100) {
    WString text(size, W('?'));
    EXPECT_TRUE(document_->GetChildText(parent, name, text.data(), size));
    return WString(text.c_str());
  }

  WString AttributeText(XmlNode node, const WCHAR* attribute, u32 size = 100) {
    WString text(size, W('?'));
    EXPECT_TRUE(document_->GetAttributeText(text.data(), size, node, attribute));
    return WString(text.c_str());
  }

  const ScratchFolder scratch_;
  XmlFiles::Document document_;
};

TEST_F(XmlNodes, ANewDocumentIsWrittenAsUtf8) {
  const XmlNode root = document_->CreateRoot(W("Root"));
  const XmlNode profile =
      document_->AddChildWithTextAttribute(root, W("profile"), W("name"), W("a & \"b\""), 0);
  document_->AddChild(profile, W("filename"), W("<\x00E4>"));
  document_->AddChild(profile, W("empty"), W(""));
  const XmlNode counter = document_->AddChildWithIntAttribute(profile, W("counter"), W("startat"), -7, 0);
  document_->SetAttributeInt(counter, W("stepby"), 2, 0);
  document_->SetAttributeText(counter, W("startat"), W("8"), 1);
  document_->AddChild(root, W("last"), nullptr);
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  EXPECT_EQ(Saved(root, 1),
            declaration +
                "\n<Root>\n  <profile name=\"a &amp; &quot;b&quot;\">\n"
                "    <filename>&lt;\xC3\xA4&gt;</filename>\n    <empty/>\n"
                "    <counter startat=\"8\" stepby=\"2\"/>\n  </profile>\n  <last/>\n</Root>\n");
  EXPECT_EQ(Saved(root, 0, "UTF-8").substr(0, 60), declaration + "<Root><profile name=\"a");
}

TEST_F(XmlNodes, WhatIsWrittenIsRead) {
  const WString kTexts[] = {W("plain"), W(" \t a\nb\r\nc\r "),   W("<a>&amp;'\""),
                            W("]]>"),   W("\x20AC\xD83D\xDE00"), W("&#65;"),
                            W("  ")};
  for (const WString& text : kTexts) {
    const XmlNode made = document_->CreateRoot(W("r"));
    document_->AddChild(made, W("c"), text.c_str());
    document_->SetAttributeText(made, W("t"), text.c_str(), 0);
    const XmlNode root = Load(Saved(made, 1));
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(ChildText(root, W("c")), text);
    EXPECT_EQ(AttributeText(root, W("t")), text);
  }
}

TEST_F(XmlNodes, WhatXmlCannotHoldBecomesTheReplacementCharacter) {
  const WString text = {W('a'), 1, static_cast<WCHAR>(0xD800), static_cast<WCHAR>(0xFFFF), W('b')};
  const XmlNode root = document_->CreateRoot(W("r"));
  document_->SetAttributeText(root, W("t"), text.c_str(), 0);
  document_->AddChild(root, W("c"), text.c_str());
  const XmlNode read = Load(Saved(root));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(AttributeText(read, W("t")), W("a\xFFFD\xFFFD\xFFFD") W("b"));
  EXPECT_EQ(ChildText(read, W("c")), W("a\xFFFD\xFFFD\xFFFD") W("b"));
}

TEST_F(XmlNodes, ChildrenAreFoundByTheirNameInTheirOrder) {
  const XmlNode root = Load("<r>text<!--x--><a n='1'/><b><a n='in'/></b><?p q?><a n='2'/>text<c/></r>");
  XmlNode node = document_->FirstChild(root, W("a"), 0, 0);
  EXPECT_EQ(AttributeText(node, W("n")), W("1"));
  EXPECT_EQ(document_->NextSibling(node, nullptr), document_->FirstChild(root, W("b"), 0, 0));
  node = document_->NextSibling(node, W("a"));
  EXPECT_EQ(AttributeText(node, W("n")), W("2"));
  EXPECT_EQ(document_->NextSibling(node, W("a")), nullptr);
  EXPECT_EQ(document_->FirstChild(root, W("A"), 0, 0), nullptr) << "names differ by letter case";
  EXPECT_EQ(document_->FirstChild(root, W("d"), 0, 0), nullptr);
  EXPECT_EQ(document_->FirstChild(document_->FirstChild(root, W("c"), 0, 0), nullptr, 0, 0), nullptr);
  EXPECT_EQ(document_->FirstChild(root, nullptr, 0, 0), document_->FirstChild(root, W("a"), 0, 0));
}

TEST_F(XmlNodes, TextsAreReadWithTheirReferencesResolved) {
  const XmlNode root = Load(
      "<!DOCTYPE r [<!ENTITY own 'x'>]><r t='a\r\nb\tc\rd &lt;&#x41;&own;'>"
      "<c>1&amp;2<!--no-->\r\n3<i>no</i>\r4&#13;<![CDATA[&amp;<\r\n]]>&own;</c><e/></r>");
  EXPECT_EQ(ChildText(root, W("c")), W("1&2\n3\n4\r&amp;<\n&own;"));
  EXPECT_EQ(ChildText(root, W("e")), W(""));
  EXPECT_EQ(AttributeText(root, W("t")), W("a b c d <A&own;"));
}

TEST_F(XmlNodes, ATextIsCutAtTheBuffer) {
  const XmlNode root = Load("<r t='abcdef'><c>abcdef</c></r>");
  EXPECT_EQ(ChildText(root, W("c"), 4), W("abc"));
  EXPECT_EQ(AttributeText(root, W("t"), 7), W("abcdef"));
  EXPECT_EQ(AttributeText(root, W("t"), 6), W("abcde"));
  WCHAR one = W('x');
  EXPECT_FALSE(document_->GetAttributeText(&one, 0, root, W("t")));
  EXPECT_EQ(one, W('x'));
}

TEST_F(XmlNodes, WhatIsNotThereLeavesTheBufferAsItWas) {
  const XmlNode root = Load("<r><c/></r>");
  WCHAR buffer[] = W("as it was");
  s32 number = 5;
  EXPECT_FALSE(document_->GetChildText(root, W("d"), buffer, 10));
  EXPECT_FALSE(document_->GetAttributeText(buffer, 10, root, W("d")));
  EXPECT_FALSE(document_->GetAttributeInt(&number, root, W("d")));
  EXPECT_EQ(WString(buffer), W("as it was"));
  EXPECT_EQ(number, 5);
  EXPECT_EQ(document_->GetAttributeValue(root, W("d")), 0);
}

TEST_F(XmlNodes, NumbersAreDecimal) {
  struct Case {
    const WCHAR* text;
    bool isNumber;
    s32 value;
  };
  constexpr Case kCases[] = {{W("0"), true, 0},
                             {W("12"), true, 12},
                             {W("-12"), true, -12},
                             {W("+12"), true, 12},
                             {W("2147483647"), true, 2147483647},
                             {W("-2147483648"), true, std::numeric_limits<s32>::min()},
                             {W("2147483648"), false, 0},
                             {W(""), false, 0},
                             {W("+"), false, 0},
                             {W("+-1"), false, 0},
                             {W("1x"), false, 0},
                             {W("0x1"), false, 0}};
  const XmlNode root = document_->CreateRoot(W("r"));
  for (const Case& c : kCases) {
    document_->SetAttributeText(root, W("n"), c.text, 0);
    s32 value = 99;
    EXPECT_EQ(document_->GetAttributeInt(&value, root, W("n")), c.isNumber) << ToUtf8(c.text);
    EXPECT_EQ(value, c.isNumber ? c.value : 99) << ToUtf8(c.text);
    EXPECT_EQ(document_->GetAttributeValue(root, W("n")), c.value) << ToUtf8(c.text);
  }
}

TEST_F(XmlNodes, NamesThatXmlDoesNotAllowGiveNothing) {
  EXPECT_EQ(document_->CreateRoot(nullptr), nullptr);
  const XmlNode root = document_->CreateRoot(W("r"));
  for (const WCHAR* const name : {W(""), W("a b"), W("1"), W("<"), W("a>"), W("-a")}) {
    EXPECT_EQ(document_->CreateRoot(name), nullptr);
    EXPECT_EQ(document_->AddChild(root, name, W("x")), nullptr);
    EXPECT_EQ(document_->AddChildWithTextAttribute(root, W("c"), name, W("x"), 0), nullptr);
    EXPECT_EQ(document_->AddChildWithIntAttribute(root, W("c"), name, 1, 0), nullptr);
    document_->SetAttributeText(root, name, W("x"), 0);
  }
  EXPECT_EQ(Saved(root), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r/>");
}

TEST_F(XmlNodes, OperationsWithoutANodeDoNothing) {
  WCHAR buffer[10] = {};
  char encoding[10] = "x";
  s32 number = 5;
  EXPECT_EQ(document_->Load(nullptr, 1), nullptr);
  EXPECT_FALSE(document_->Save(nullptr, scratch_.Path(W("s.xml")).c_str(), 1, nullptr));
  EXPECT_FALSE(document_->Save(document_->CreateRoot(W("r")), nullptr, 1, nullptr));
  document_->Close(nullptr);
  document_->GetEncoding(nullptr, encoding, sizeof encoding);
  EXPECT_STREQ(encoding, "");
  EXPECT_EQ(document_->AddChild(nullptr, W("c"), W("")), nullptr);
  EXPECT_EQ(document_->AddChildWithTextAttribute(nullptr, W("c"), W("t"), W(""), 0), nullptr);
  EXPECT_EQ(document_->AddChildWithIntAttribute(nullptr, W("c"), W("t"), 1, 0), nullptr);
  EXPECT_EQ(document_->FirstChild(nullptr, W("c"), 0, 0), nullptr);
  EXPECT_EQ(document_->NextSibling(nullptr, W("c")), nullptr);
  EXPECT_FALSE(document_->GetChildText(nullptr, W("c"), buffer, 10));
  EXPECT_FALSE(document_->GetAttributeText(buffer, 10, nullptr, W("t")));
  EXPECT_FALSE(document_->GetAttributeInt(&number, nullptr, W("t")));
  EXPECT_EQ(document_->GetAttributeValue(nullptr, W("t")), 0);
  document_->SetAttributeInt(nullptr, W("t"), 1, 0);
  document_->SetAttributeText(nullptr, W("t"), W(""), 0);
  EXPECT_FALSE(scratch_.Exists(W("s.xml")));
}

TEST_F(XmlNodes, AClosedDocumentMakesRoomForTheNext) {
  const XmlNode first = Load("<first/>");
  const XmlNode second = Load("<second/>");
  document_->Close(first);
  EXPECT_EQ(Saved(second), "<second/>");
  document_->Close(second);
  EXPECT_EQ(Saved(Load("<third/>")), "<third/>");
}

TEST_F(XmlNodes, ALoadedDocumentIsChangedInItsOwnEncoding) {
  const XmlNode root = Load("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r a='\xE4'/>");
  document_->SetAttributeText(root, W("b"), W("\x00F6\x20AC"), 0);
  EXPECT_EQ(Saved(root), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r a='\xE4' b=\"\xF6&#x20AC;\"/>");
}

TEST_F(XmlNodes, AFileThatIsNotThereOrIsAFolderGivesNull) {
  EXPECT_EQ(document_->Load(scratch_.Path(W("none.xml")).c_str(), 0), nullptr);
  EXPECT_EQ(document_->Load(scratch_.MakeFolder(W("d")).c_str(), 0), nullptr);
}

TEST_F(XmlNodes, AReadOnlyFileIsNotSaved) {
  const WString path = scratch_.Write(W("a.xml"), "<a><b/></a>");
  const XmlNode root = document_->Load(path.c_str(), 0);
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(document_->Save(root, path.c_str(), 1, nullptr));
  EXPECT_EQ(scratch_.Read(W("a.xml")), "<a><b/></a>");
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.xml")});
}

TEST_F(XmlNodes, ASaveIntoAMissingFolderReturnsFalse) {
  EXPECT_FALSE(
      document_->Save(document_->CreateRoot(W("r")), scratch_.Path(W("d\\a.xml")).c_str(), 1, nullptr));
}

}  // namespace
