// Encoding files to Base64 and decoding them.
#include "filetools/base64_file.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>

#include "filetools/plain_base64.h"
#include "support/scratch_folder.h"

using namespace std::string_literals;

namespace {

class Base64File : public testing::Test {
 protected:
  std::string Encoded(std::string_view bytes, const WString& name = W("s")) {
    EXPECT_TRUE(EncodeFileBase64(scratch_.Write(name, bytes), scratch_.Path(W("t"))));
    return scratch_.Read(W("t"));
  }

  // Encodes a file named "s" and returns the text after the header.
  std::string EncodedText(std::string_view bytes) {
    const std::string header = PlainBase64::Header("s");
    const std::string file = Encoded(bytes);
    EXPECT_TRUE(file.starts_with(header));
    return file.substr(std::min(header.size(), file.size()));
  }

  std::string Decoded(std::string_view text, bool skipHeader = false) {
    EXPECT_TRUE(DecodeFileBase64(scratch_.Write(W("s"), text), scratch_.Path(W("t")), skipHeader));
    return scratch_.Read(W("t"));
  }

  std::optional<WString> NameIn(std::string_view text) {
    return GetEncodedFileName(scratch_.Write(W("s"), text));
  }

  std::optional<WString> NameOf(std::string_view name) {
    return NameIn("MIME-Version: 1.0\r\nContent-Type: x; name=\"" + std::string(name) + "\"\r\n");
  }

  std::uint32_t StartOf(std::string_view text) {
    FileInput file;
    EXPECT_TRUE(file.Open(scratch_.Write(W("s"), text)));
    return FindBase64Start(file);
  }

  const ScratchFolder scratch_;
};

}  // namespace

TEST_F(Base64File, IsWrittenByteForByte) {
  EXPECT_EQ(Encoded("foobar", W("a b.txt")),
            "MIME-Version: 1.0\r\n"
            "Content-Type: application/octet-stream; name=\"a b.txt\"\r\n"
            "Content-Transfer-Encoding: base64\r\n"
            "Content-Disposition: attachment; filename=\"a b.txt\"\r\n"
            "\r\n"
            "Zm9vYmFy");
}

TEST_F(Base64File, OfAnEmptyFileIsTheHeaderAlone) { EXPECT_EQ(Encoded(""), PlainBase64::Header("s")); }

TEST_F(Base64File, NameIsWrittenInTheThreadsCodePage) {
  EXPECT_TRUE(Encoded("x", W("\x00E4\x20AC.txt")).starts_with(PlainBase64::Header("\xE4\x80.txt")));
}

TEST_F(Base64File, LinesHave76Characters) {
  const std::string line(76, 'A');
  EXPECT_EQ(EncodedText(std::string(54, '\0')), std::string(72, 'A'));
  EXPECT_EQ(EncodedText(std::string(56, '\0')), std::string(75, 'A') + "=\r\n");
  EXPECT_EQ(EncodedText(std::string(57, '\0')), line + "\r\n");
  EXPECT_EQ(EncodedText(std::string(58, '\0')), line + "\r\nAA==");
  EXPECT_EQ(EncodedText(std::string(114, '\0')), line + "\r\n" + line + "\r\n");
}

// 3072 bytes are encoded as 4096 characters: 53 lines and 68 characters of the next.
TEST_F(Base64File, LineGoesOnFromBlockToBlock) {
  std::string lines;
  for (int line = 0; line < 53; ++line) lines += std::string(76, 'A') + "\r\n";
  EXPECT_EQ(EncodedText(std::string(3072, '\0')), lines + std::string(68, 'A'));
  EXPECT_EQ(EncodedText(std::string(3072 + 3, '\0')), lines + std::string(72, 'A'));
  EXPECT_EQ(EncodedText(std::string(3072 + 6, '\0')), lines + std::string(76, 'A') + "\r\n");
  EXPECT_EQ(EncodedText(std::string(3072 + 60, '\0')),
            lines + std::string(76, 'A') + "\r\n" + std::string(72, 'A'));
}

TEST_F(Base64File, LastPieceOfABlockMayRunPastColumn76ByDesign) {
  std::string lines;
  for (int line = 0; line < 53; ++line) lines += std::string(76, 'A') + "\r\n";
  EXPECT_EQ(EncodedText(std::string(3072 + 9, '\0')), lines + std::string(80, 'A') + "\r\n");
  EXPECT_EQ(EncodedText(std::string(3072 + 57, '\0')), lines + std::string(144, 'A') + "\r\n");
}

TEST_F(Base64File, OpenBitsAreZeroInTheFirstBlock) {
  EXPECT_EQ(EncodedText("f"), "Zg==");
  EXPECT_EQ(EncodedText("fo"), "Zm8=");
}

TEST_F(Base64File, OpenBitsComeFromTheBlockBeforeAtTheSamePlaceByDesign) {
  std::string bytes(3072, '\0');
  bytes[1] = '\xF0';
  const std::string one = EncodedText(bytes + "f");
  EXPECT_EQ(one.substr(one.size() - 4), "Zv==");
  bytes[1] = '\0';
  bytes[2] = '\xC0';
  const std::string two = EncodedText(bytes + "fo");
  EXPECT_EQ(two.substr(two.size() - 4), "Zm/=");
}

TEST_F(Base64File, IsWrittenAnew) {
  scratch_.Write(W("t"), std::string(10000, 'x'));
  EXPECT_EQ(Encoded("foo"), PlainBase64::Header("s") + "Zm9v");
}

TEST_F(Base64File, EncodingAFileIntoItselfFailsAndLeavesItWhole) {
  const WString path = scratch_.Write(W("a.b64"), "content");
  EXPECT_FALSE(EncodeFileBase64(path, path));
  EXPECT_EQ(scratch_.Read(W("a.b64")), "content");
}

TEST_F(Base64File, DecodingAFileIntoItselfFailsAndLeavesItWhole) {
  const WString path = scratch_.Write(W("a"), "Zm9v");
  EXPECT_FALSE(DecodeFileBase64(path, path, false));
  EXPECT_EQ(scratch_.Read(W("a")), "Zm9v");
}

TEST_F(Base64File, ASourceThatIsNotThereLeavesTheTarget) {
  const WString target = scratch_.Write(W("t"), "old");
  EXPECT_FALSE(EncodeFileBase64(scratch_.Path(W("none")), target));
  EXPECT_FALSE(DecodeFileBase64(scratch_.Path(W("none")), target, false));
  EXPECT_EQ(scratch_.Read(W("t")), "old");
}

TEST_F(Base64File, ATargetThatCannotBeMadeFails) {
  const WString source = scratch_.Write(W("s"), "Zm9v");
  EXPECT_FALSE(EncodeFileBase64(source, scratch_.Path(W("none\\t"))));
  EXPECT_FALSE(DecodeFileBase64(source, scratch_.Path(W("none\\t")), true));
}

TEST_F(Base64File, DecodesAfterTheHeader) {
  EXPECT_EQ(Decoded(PlainBase64::Header("x") + "Zm9vYmFy", true), "foobar");
  EXPECT_EQ(Decoded(PlainBase64::Header("x"), true), "");
  EXPECT_EQ(Decoded("a\nb\nc\n\nZm9v", true), "foo");
}

TEST_F(Base64File, DecodesFromTheFirstByteWithoutAHeader) {
  EXPECT_EQ(Decoded("Zm9v"), "foo");
  EXPECT_EQ(Decoded("Zm9v", true), "foo");
  EXPECT_EQ(Decoded(""), "");
}

TEST_F(Base64File, PairsOfCrLfAreLeftOut) { EXPECT_EQ(Decoded("Zm\r\n9v\r\n\r\nYm\r\nFy\r\n"), "foobar"); }

TEST_F(Base64File, ALoneLfCountsAsACharacterByDesign) { EXPECT_EQ(Decoded("Zm9v\nYmFy"), "foo\xFD\x89\x85"); }

TEST_F(Base64File, ALoneCrCountsAsACharacterByDesign) { EXPECT_EQ(Decoded("Zm9v\rYmFy"), "foo\xFD\x89\x85"); }

TEST_F(Base64File, APairMadeByTheRemovalOfAPairStaysByDesign) {
  EXPECT_EQ(Decoded("Zm9v\r\r\n\nAA"), "foo\xFF\xF0\x00"s);
}

TEST_F(Base64File, AZeroByteEndsTheBlockItIsIn) {
  EXPECT_EQ(Decoded("Zm9v\0YmFy"s), "foo");
  EXPECT_EQ(Decoded("Zm9v\0"s + std::string(4091, 'x') + "YmFy"), "foobar");
}

TEST_F(Base64File, WhatIsCarriedAtTheEndIsDropped) {
  EXPECT_EQ(Decoded("Zm9vYg"), "foo");
  EXPECT_EQ(Decoded("Zm9"), "");
}

TEST_F(Base64File, NothingIsCarriedAfterPadding) { EXPECT_EQ(Decoded("Zm9vYg="), "foo"); }

TEST_F(Base64File, GroupsGoOnFromBlockToBlock) {
  for (std::size_t shift = 0; shift < 4; ++shift) {
    // "AAAA" repeated, after line ends that move a group across the boundary of the first block of 4096
    // bytes.
    const std::string text = std::string(shift * 2, '\r') + std::string(5000, 'A');
    EXPECT_EQ(Decoded(text), PlainBase64::DecodedFile(text));
  }
  // The last byte of the first block is a CR.
  const std::string text = std::string(4094, 'A') + "\r" + "A\r\nAAAAA";
  EXPECT_EQ(Decoded(text), PlainBase64::DecodedFile(text));
  const std::string split = std::string(4095, 'A') + "\r\nA" + "AAAA";
  EXPECT_EQ(Decoded(split), PlainBase64::DecodedFile(split));
  const std::string aligned = std::string(4092, 'A') + "\r\nA\r\nAAAAAAA";
  EXPECT_EQ(Decoded(aligned), std::string(3075, '\0'));
}

TEST_F(Base64File, RandomTextsDecodeAsThePlainRuleSays) {
  std::mt19937 random(2);
  const std::string characters = std::string(PlainBase64::kAlphabet) + "\r\r\r\n\n\n=\0"s;
  for (int run = 0; run < 200; ++run) {
    std::string text(random() % 10000, 'A');
    for (char& character : text) character = characters[random() % characters.size()];
    // Most texts have no zero byte, but many CR LF pairs.
    if (run % 4 != 0) {
      for (char& character : text) character = character == '\0' ? '\n' : character;
    }
    ASSERT_EQ(Decoded(text), PlainBase64::DecodedFile(text)) << run;
  }
}

TEST_F(Base64File, ThousandRandomFilesComeBack) {
  std::mt19937 random(3);
  for (int run = 0; run < 1000; ++run) {
    const std::size_t size = random() % (run % 4 == 0 ? 70001 : 9001);
    std::string bytes(run < 200 ? static_cast<std::size_t>(run) : size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    const WString source = scratch_.Write(W("r"), bytes);
    ASSERT_TRUE(EncodeFileBase64(source, scratch_.Path(W("e"))));
    if (run % 10 == 0) {
      ASSERT_EQ(scratch_.Read(W("e")), PlainBase64::Header("r") + PlainBase64::Text(bytes)) << run;
    }
    ASSERT_TRUE(DecodeFileBase64(scratch_.Path(W("e")), scratch_.Path(W("d")), true));
    ASSERT_TRUE(scratch_.Read(W("d")) == bytes) << "run " << run << ", " << bytes.size() << " bytes";
  }
}

TEST_F(Base64File, NameOfTheHeaderIsFound) {
  EXPECT_EQ(NameIn(PlainBase64::Header("a b.txt") + "Zm9v"), W("a b.txt"));
  EXPECT_EQ(NameOf("\xE4\x80.txt"), W("\x00E4\x20AC.txt"));
}

TEST_F(Base64File, ThereIsNoNameWithoutAHeader) {
  EXPECT_EQ(NameIn("Zm9v"), std::nullopt);
  EXPECT_EQ(NameIn(""), std::nullopt);
  EXPECT_EQ(GetEncodedFileName(scratch_.Path(W("none"))), std::nullopt);
}

TEST_F(Base64File, NameIsLookedForInTheFirst1023Bytes) {
  const std::string begin = "MIME-Version: 1.0\r\n";
  const std::string line = "name=\"a.txt\"\r\n";
  const auto filling = [&](std::size_t end) {
    return std::string(end - begin.size() - line.size() - 1, 'x') + "\n";
  };
  EXPECT_EQ(NameIn(begin + filling(1023) + line + "Zm9v"), W("a.txt"));
  // The second quote is the 1024th byte.
  EXPECT_EQ(NameIn(begin + filling(1026) + line + "Zm9v"), std::nullopt);
  EXPECT_EQ(NameIn(begin + filling(2000) + line + "Zm9v"), std::nullopt);
}

TEST_F(Base64File, ANameThatIsRefusedIsEmpty) {
  for (const std::string& name : {""s, ".."s, "a\\b"s, "a*"s, "a\0b"s, "NUL"s, "COM1.txt"s}) {
    EXPECT_EQ(NameOf(name), W("")) << name;
  }
}

// The first name decides, even if it is refused.
TEST_F(Base64File, NoOtherNameIsLookedForAfterOneThatIsRefused) {
  for (const char* name : {"", "..\\evil", "NUL"}) {
    EXPECT_EQ(NameIn("MIME-Version: 1.0\r\nContent-Type: x; name=\"" + std::string(name) +
                     "\"\r\nContent-Disposition: x; filename=\"ok.txt\"\r\n\r\n"),
              W(""))
        << name;
  }
}

TEST_F(Base64File, ALoneCrInTheNameSearchEndsItWithoutANameAndDoesNotHang) {
  EXPECT_EQ(NameIn("MIME-Version: 1.0\rContent-Type: x; name=\"a.txt\"\r"), std::nullopt);
  EXPECT_EQ(NameIn("MIME-Version: 1.0\r\nX: y\r\rname=\"a.txt\"\r\n"), std::nullopt);
}

TEST_F(Base64File, StartIsAfterTheHeader) {
  EXPECT_EQ(StartOf(PlainBase64::Header("ab") + "Zm9v"), PlainBase64::Header("ab").size());
  EXPECT_EQ(StartOf("Zm9v"), 0u);
  EXPECT_EQ(StartOf(""), 0u);
}

TEST_F(Base64File, StartDoesNotGetPastALoneCrAndIsZeroThen) {
  EXPECT_EQ(StartOf("1\r\n2\r\n3\r4\r\n\r\nZm9v"), 0u);
  EXPECT_EQ(StartOf("1\r\n2\r\n3\r\n4\r\n\rZm9v"), 0u);
}

TEST_F(Base64File, StartIsLookedForInTheFirst4096Bytes) {
  EXPECT_EQ(StartOf("1\n2\n" + std::string(4088, 'x') + "\n\n" + "Zm9v"), 4094u);
  EXPECT_EQ(StartOf("1\n2\n" + std::string(4096, 'x') + "\n\n" + "Zm9v"), 0u);
}

TEST_F(Base64File, AnEmptyLineAfterTheTenthDoesNotEndTheHeaderAlthoughANameIsFound) {
  const std::string text = "MIME-Version: 1.0\nname=\"a\"\n3\n4\n5\n6\n7\n8\n9\n10\n\nZm9v";
  EXPECT_EQ(NameIn(text), W("a"));
  EXPECT_EQ(StartOf(text), 0u);
}
