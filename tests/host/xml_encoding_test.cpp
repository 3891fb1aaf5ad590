// A file keeps the encoding that it declares, byte for byte.
#include <gtest/gtest.h>

#include "host/xml_files.h"

namespace {

using namespace std::string_literals;

constexpr Velmora::SDK::u32 kAsLoaded = 0;

// Returns ASCII text as little-endian UTF-16.
std::string Little(std::string_view text) {
  std::string bytes;
  for (const char character : text) bytes += {character, '\0'};
  return bytes;
}

std::string Big(std::string_view text) {
  std::string bytes;
  for (const char character : text) bytes += {'\0', character};
  return bytes;
}

TEST(XmlEncoding, FilesAreKeptInTheEncodingThatTheyName) {
  const XmlFiles files;
  const std::string kFiles[] = {
      "<a/>",
      "<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80</a>",
      "\xEF\xBB\xBF<a>\xC3\xA4</a>",
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<a>\xC3\xA4</a>",
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a/>\r\n",
      "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?><a b=\"\xE4\x80\xFF\">\xA4</a>",
      "<?xml version=\"1.0\" encoding=\"windows-1252\"?><a b=\"\x80\x9F\">\x93\x81\xFC\x94</a>",
      "<?xml version=\"1.0\" encoding=\"US-ASCII\"?><a>&#xE4;</a>",
      "\xFF\xFE" + Little("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<a>") +
          "\xAC\x20\x3D\xD8\x00\xDE"s + Little("</a>"),
      "\xFE\xFF" + Big("<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<a>") + "\x20\xAC\xD8\x3D\xDE\x00"s +
          Big("</a>"),
      "\xFF\xFE" + Little("<a/>"),
      Little("<?xml version=\"1.0\" encoding=\"UTF-16LE\"?><a/>"),
      Big("<?xml version=\"1.0\" encoding=\"UTF-16BE\"?><a/>"),
  };
  for (const std::string& bytes : kFiles) {
    SCOPED_TRACE(bytes);
    EXPECT_EQ(files.Rewritten(bytes, kAsLoaded), bytes);
    EXPECT_TRUE(files.Saved());
  }
}

TEST(XmlEncoding, TheNameIsTheOneOfTheDeclaration) {
  const ScratchFolder scratch;
  const XmlFiles::Document document;
  char name[100] = {};
  const WString named = scratch.Write(W("n.xml"), "<?xml version=\"1.0\" encoding=\"Latin1\"?><a/>");
  document->GetEncoding(document->Load(named.c_str(), 1), name, sizeof name);
  EXPECT_STREQ(name, "Latin1");
  document->GetEncoding(document->Load(scratch.Write(W("u.xml"), "<a/>").c_str(), 1), name, sizeof name);
  EXPECT_STREQ(name, "");
  char small[6] = {'x'};
  document->GetEncoding(document->Load(named.c_str(), 1), small, sizeof small);
  EXPECT_STREQ(small, "") << "a part of a name would be another encoding's";
}

TEST(XmlEncoding, ContradictionsAndUnknownNamesAreRefused) {
  const XmlFiles files;
  const std::string kFiles[] = {
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>", "<?xml version=\"1.0\" encoding=\"EBCDIC\"?><a/>",
      "<?xml version=\"1.0\" encoding=\"\"?><a/>",
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a/>",
      "\xFF\xFE" + Little("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a/>"),
      "\xFF\xFE" + Little("<?xml version=\"1.0\" encoding=\"UTF-16BE\"?><a/>"),
      "<?xml version=\"1.0\" encoding=\"US-ASCII\"?><a>\xE4</a>",
      // Invalid UTF-8: truncated, overlong, a surrogate, above U+10FFFF.
      "<a>\xC3</a>", "<a>\xC0\xBC</a>", "<a>\xED\xA0\x80</a>", "<a>\xF4\x90\x80\x80</a>", "<a>\xE4</a>",
      // Invalid UTF-16: half a code unit, unpaired surrogates.
      "\xFF\xFE" + Little("<a/>") + "<", "\xFF\xFE" + Little("<a>") + "\x3D\xD8" + Little("</a>"),
      "\xFF\xFE" + Little("<a>") + "\x00\xDE"s + Little("</a>")};
  for (const std::string& bytes : kFiles) {
    SCOPED_TRACE(bytes);
    EXPECT_EQ(files.Rewritten(bytes, kAsLoaded), std::nullopt);
  }
}

TEST(XmlEncoding, SavingInAnotherEncodingChangesTheDeclaration) {
  struct Case {
    std::string loaded;
    const char* encoding;
    std::string saved;
  };
  const XmlFiles files;
  const Case kCases[] = {
      {"<?xml version=\"1.0\" encoding='UTF-8' standalone=\"no\"?><a>\xC3\xA4</a>", "ISO-8859-1",
       "<?xml version=\"1.0\" encoding='ISO-8859-1' standalone=\"no\"?><a>\xE4</a>"},
      {"<?xml version=\"1.0\"?><a/>", "windows-1252",
       "<?xml version=\"1.0\" encoding=\"windows-1252\"?><a/>"},
      {"<a>\xE2\x82\xAC</a>", "windows-1252",
       "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<a>\x80</a>"},
      {"<a/>", "UTF-16", "\xFF\xFE" + Little("<a/>")},
      {"<a/>", "UTF-8", "<a/>"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.loaded);
    EXPECT_EQ(files.Rewritten(c.loaded, kAsLoaded, c.encoding), c.saved);
    EXPECT_TRUE(files.Saved());
  }
}

TEST(XmlEncoding, CharactersThatTheEncodingLacksBecomeReferences) {
  const XmlFiles files;
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n";
  EXPECT_EQ(files.Rewritten("<a b='\xE2\x82\xAC'>\xF0\x9F\x98\x80\xC3\xA4</a>", kAsLoaded, "ISO-8859-1"),
            declaration + "<a b='&#x20AC;'>&#x1F600;\xE4</a>");
  EXPECT_EQ(files.Rewritten("<a><![CDATA[1\xE2\x82\xAC"
                            "2]]></a>",
                            kAsLoaded, "ISO-8859-1"),
            declaration + "<a><![CDATA[1]]>&#x20AC;<![CDATA[2]]></a>");
}

TEST(XmlEncoding, ACharacterThatCanBeNoReferenceLeavesTheFileAsItWas) {
  const XmlFiles files;
  for (const std::string bytes : {"<!--\xE2\x82\xAC--><a/>", "<a><?p \xE2\x82\xAC?></a>", "<a\xE2\x82\xAC/>",
                                  "<a \xE2\x82\xAC='1'/>"}) {
    SCOPED_TRACE(bytes);
    EXPECT_EQ(files.Rewritten(bytes, kAsLoaded, "ISO-8859-1"), bytes);
    EXPECT_FALSE(files.Saved());
  }
}

TEST(XmlEncoding, AnUnknownEncodingLeavesTheFileAsItWas) {
  const XmlFiles files;
  EXPECT_EQ(files.Rewritten("<a/>", kAsLoaded, "EBCDIC"), "<a/>");
  EXPECT_FALSE(files.Saved());
}

}  // namespace
