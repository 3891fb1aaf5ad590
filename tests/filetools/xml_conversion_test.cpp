// Commands 30200 and 30201 with the host's documents.
#include "filetools/xml_conversion.h"

#include <gmock/gmock.h>

#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/refusals.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

void Select(FakeHost& host, const std::vector<WString>& names) {
  host.SelectFiles(names);
  for (const WString& name : names) host.xmlFiles[W("C:\\view\\") + name] = {};
}

// Runs the command and returns the calls of documents, in order.
std::vector<std::string> Convert(FakeHost& host, bool format, std::initializer_list<int> buttons = {}) {
  BoxAnswers boxes(buttons);
  ConvertXmlCommand(host, format);
  EXPECT_EQ(boxes.Unused(), 0);
  EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
  for (const ShownBox& box : boxes.Boxes()) {
    EXPECT_EQ(box.title, W("Error"));
    EXPECT_EQ(box.text, W("Failed to save xml file"));
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_TRUE(box.hasIcon);
  }
  ExpectAllReleased(host);
  return host.recorder.CallsOf({"document", "CreateXmlDocument"});
}

}  // namespace

TEST(XmlConversion, EachFileIsLoadedAndSavedOverItselfInItsEncoding) {
  FakeHost host;
  Select(host, {W("a.xml"), W("b.xml")});
  host.xmlFiles[W("C:\\view\\a.xml")].encoding = "ISO-8859-1";
  host.xmlFiles[W("C:\\view\\b.xml")].encoding = "UTF-16";
  EXPECT_THAT(Convert(host, true),
              ElementsAre("CreateXmlDocument()", "document1.Load(\"C:\\view\\a.xml\", 0)",
                          "document1.GetEncoding(100)", "document1.Save(\"C:\\view\\a.xml\", 1, ISO-8859-1)",
                          "document1.Release()", "CreateXmlDocument()",
                          "document2.Load(\"C:\\view\\b.xml\", 0)", "document2.GetEncoding(100)",
                          "document2.Save(\"C:\\view\\b.xml\", 1, UTF-16)", "document2.Release()"));
  EXPECT_THAT(host.recorder.CallsOf({"FileListRequest"}),
              ElementsAre("FileListRequest(21215, list1, 18, 0)"));
  EXPECT_THAT(host.recorder.Calls(), testing::Contains("item a.xml.GetFullPath(2048)"));
}

TEST(XmlConversion, TheCommandsDifferInTheFlagOfSaveAlone) {
  FakeHost host;
  Select(host, {W("a.xml")});
  EXPECT_THAT(Convert(host, false),
              ElementsAre("CreateXmlDocument()", "document1.Load(\"C:\\view\\a.xml\", 0)",
                          "document1.GetEncoding(100)", "document1.Save(\"C:\\view\\a.xml\", 0, )",
                          "document1.Release()"));
}

TEST(XmlConversion, AFileThatCannotBeLoadedIsPassedOverSilently) {
  FakeHost host;
  Select(host, {W("a.xml"), W("b.xml")});
  host.xmlFiles.erase(W("C:\\view\\a.xml"));
  EXPECT_THAT(Convert(host, true),
              ElementsAre("CreateXmlDocument()", "document1.Load(\"C:\\view\\a.xml\", 0)",
                          "document1.Release()", "CreateXmlDocument()",
                          "document2.Load(\"C:\\view\\b.xml\", 0)", "document2.GetEncoding(100)",
                          "document2.Save(\"C:\\view\\b.xml\", 1, )", "document2.Release()"));
}

TEST(XmlConversion, AFileThatCannotBeSavedShowsABoxAndTheRunGoesOn) {
  FakeHost host;
  Select(host, {W("a.xml"), W("b.xml"), W("c.xml")});
  host.xmlFiles[W("C:\\view\\a.xml")].canBeSaved = false;
  host.xmlFiles[W("C:\\view\\b.xml")].canBeSaved = false;
  const std::vector<std::string> calls = Convert(host, true, {IDOK, IDOK});
  ASSERT_EQ(calls.size(), 15u);
  EXPECT_EQ(calls[13], "document3.Save(\"C:\\view\\c.xml\", 1, )");
}

TEST(XmlConversion, NothingSelectedMakesNoDocument) {
  FakeHost host;
  EXPECT_THAT(Convert(host, true), IsEmpty());
}

TEST(XmlConversion, EveryRefusalEndsQuietly) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost& host) {
        Select(host, {W("a.xml"), W("b.xml")});
      },
      [](FakeHost& host) { ConvertXmlCommand(host, true); });
}
