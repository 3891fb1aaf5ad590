// Which names in a header may be used as file names, and which may not.
#include "filetools/decoded_name.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

void ExpectAllRefused(std::initializer_list<const WCHAR*> names) {
  for (const WCHAR* name : names) EXPECT_FALSE(IsFileNameToDecode(name)) << ToUtf8(name);
}

void ExpectAllTaken(std::initializer_list<const WCHAR*> names) {
  for (const WCHAR* name : names) EXPECT_TRUE(IsFileNameToDecode(name)) << ToUtf8(name);
}

}  // namespace

TEST(DecodedName, MayBeAnyPlainName) {
  ExpectAllTaken({W("a"), W("a b.txt"), W(".a"), W("..a"), W("a."), W("a.tar.gz"), W("\u00E4\u20AC.txt"),
                  W("~$x"), W("a,b;c=[d]+e&f'g!@#%^(h){i}")});
}

TEST(DecodedName, IsRefusedIfItIsEmpty) { EXPECT_FALSE(IsFileNameToDecode(W(""))); }

TEST(DecodedName, IsRefusedWithAnythingThatCouldLeadOutOfTheFolder) {
  ExpectAllRefused({W("a\\b"), W("a/b"), W("\\a"), W("../a"), W("..\\a"), W("C:a"), W("a:b"), W("C:\\a"),
                    W("a\\"), W("/")});
}

TEST(DecodedName, IsRefusedWithACharacterThatNoNameHas) {
  for (const WCHAR character : WStringView(W("*?<>|\"\x1\t\n\x1F\0"), 11)) {
    for (const WString& name : {WString(1, character), W("a") + WString(1, character) + W("b.txt")}) {
      EXPECT_FALSE(IsFileNameToDecode(name)) << static_cast<unsigned>(character);
    }
  }
}

// The system removes trailing dots and blanks, which would leave an empty name.
TEST(DecodedName, IsRefusedIfItHasNothingButDotsAndBlanks) {
  ExpectAllRefused({W("."), W(".."), W("..."), W(" "), W(".. "), W(". .")});
}

TEST(DecodedName, IsRefusedIfItIsThatOfADevice) {
  ExpectAllRefused({W("NUL"), W("nul"), W("Con"), W("PRN"), W("AUX"), W("CONIN$"), W("conout$"), W("COM1"),
                    W("com9"), W("COM0"), W("LPT1"), W("lpt9"), W("COM\u00B9"), W("LPT\u00B2"),
                    W("COM\u00B3")});
}

TEST(DecodedName, IsRefusedIfItIsThatOfADeviceWithAnExtensionOrBlanks) {
  ExpectAllRefused({W("COM1.txt"), W("NUL.tar.gz"), W("nul."), W("NUL "), W("NUL .txt"), W("LPT3..b64")});
}

TEST(DecodedName, MayBeginAsADevice) {
  ExpectAllTaken({W("NULL"), W("NUL1"), W("CONSOLE.txt"), W("COM"), W("COM.txt"), W("COM10"), W("COMA"),
                  W("LPTX.txt"), W("a.NUL"), W(" NUL"), W("xCOM1"), W("CON$")});
}
