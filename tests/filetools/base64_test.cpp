// Encoding and decoding in memory.
#include "filetools/base64.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "filetools/plain_base64.h"

using namespace std::string_literals;

namespace {

const unsigned char* Bytes(const std::string& text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}

std::string Encoded(const std::string& bytes, unsigned char following0 = 0, unsigned char following1 = 0) {
  const unsigned char following[2] = {following0, following1};
  std::string output(bytes.size() * 2 + 8, '?');
  output.resize(EncodeBase64(Bytes(bytes), bytes.size(), following, output.data()));
  return output;
}

struct Decoded {
  bool ok;
  std::string bytes;
  bool areGuardsWhole;
};

// Decodes into a buffer of `room` bytes between two guard areas.
Decoded DecodeInto(const std::string& text, std::uint32_t room) {
  constexpr std::size_t kGuard = 16;
  std::vector<unsigned char> buffer(kGuard + room + kGuard, 0xA5);
  std::uint32_t size = room;
  CBase64 decoder;
  const bool ok = decoder.Decode(text.data(), text.size(), buffer.data() + kGuard, &size);
  bool areGuardsWhole = true;
  for (std::size_t at = 0; at < kGuard; ++at) {
    areGuardsWhole = areGuardsWhole && buffer[at] == 0xA5 && buffer[kGuard + room + at] == 0xA5;
  }
  if (!ok || size > room) return {ok, {}, areGuardsWhole};
  return {ok, std::string(buffer.begin() + kGuard, buffer.begin() + kGuard + size), areGuardsWhole};
}

std::string DecodedOf(const std::string& text) {
  const Decoded decoded = DecodeInto(text, 65536);
  EXPECT_TRUE(decoded.ok) << text;
  return decoded.bytes;
}

}  // namespace

TEST(Base64, EncodesGroupsOfThreeAndFillsUpTheLast) {
  EXPECT_EQ(Encoded(""), "");
  EXPECT_EQ(Encoded("f"), "Zg==");
  EXPECT_EQ(Encoded("fo"), "Zm8=");
  EXPECT_EQ(Encoded("foo"), "Zm9v");
  EXPECT_EQ(Encoded("foob"), "Zm9vYg==");
  EXPECT_EQ(Encoded("fooba"), "Zm9vYmE=");
  EXPECT_EQ(Encoded("foobar"), "Zm9vYmFy");
  EXPECT_EQ(Encoded("\0\x10\x83\xFF\xEF\xBE"s), "ABCD/+++");
}

TEST(Base64, OpenBitsOfTheLastCharacterComeFromTheFollowingBytesByDesign) {
  EXPECT_EQ(Encoded("f", 0xF0), "Zv==");
  EXPECT_EQ(Encoded("f", 0x0F, 0xFF), "Zg==");
  EXPECT_EQ(Encoded("fo", 0xC0), "Zm/=");
  EXPECT_EQ(Encoded("fo", 0x3F, 0xFF), "Zm8=");
  EXPECT_EQ(Encoded("foo", 0xFF, 0xFF), "Zm9v");
  EXPECT_EQ(Encoded("foof", 0xF0), "Zm9vZv==");
}

TEST(Base64, DecodesEachCharacterOfTheAlphabet) {
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (std::size_t value = 0; value < alphabet.size(); ++value) {
    EXPECT_EQ(DecodedOf("AAA"s + alphabet[value]), "\0\0"s + static_cast<char>(value));
  }
}

TEST(Base64, DecodesWhatWasEncoded) {
  EXPECT_EQ(DecodedOf(""), "");
  EXPECT_EQ(DecodedOf("Zg=="), "f");
  EXPECT_EQ(DecodedOf("Zm8="), "fo");
  EXPECT_EQ(DecodedOf("Zm9v"), "foo");
  EXPECT_EQ(DecodedOf("ABCD/+++"), "\0\x10\x83\xFF\xEF\xBE"s);
}

TEST(Base64, OpenBitsDoNotMatterInDecoding) {
  EXPECT_EQ(DecodedOf("Zv=="), "f");
  EXPECT_EQ(DecodedOf("Zm/="), "fo");
}

TEST(Base64, TheNextGroupReplacesThePadding) { EXPECT_EQ(DecodedOf("QQ==QUI=QUJD"), "AABABC"); }

TEST(Base64, AThirdPaddingCharacterAloneCountsForBoth) { EXPECT_EQ(DecodedOf("QQ=AQUJD"), "AABC"); }

TEST(Base64, CharactersOutsideTheAlphabetGiveWrongBytesAndStopNothingByDesign) {
  EXPECT_EQ(DecodedOf("!!!!"), "\xFF\xFF\xFF");
  EXPECT_EQ(DecodedOf("A!AA"), "\x03\xF0\x00"s);
  EXPECT_EQ(DecodedOf("AA!A"), "\x00\x0F\xC0"s);
  EXPECT_EQ(DecodedOf("AAA!"), "\x00\x00\x3F"s);
  EXPECT_EQ(DecodedOf("-_-_"), "\xFF\xFF\xFF");
  EXPECT_EQ(DecodedOf("Q==="), "\x43");
  EXPECT_EQ(DecodedOf("===="), "\xFF");
  EXPECT_EQ(DecodedOf("=AAA"), "\xFC\0\0"s);
  EXPECT_EQ(DecodedOf("\xC1\x80\r\n"), "\xFF\xFF\xFF");
}

TEST(Base64, WholeGroupsOfFourAloneAreTaken) {
  EXPECT_EQ(DecodedOf("Z"), "");
  EXPECT_EQ(DecodedOf("Zm9"), "");
  EXPECT_EQ(DecodedOf("Zm9vY"), "foo");
  EXPECT_EQ(DecodedOf("Zm9vYg="), "foo");
}

TEST(Base64, TheRoomMustExceedTheBytesByFour) {
  EXPECT_TRUE(DecodeInto("", 0).ok);
  EXPECT_TRUE(DecodeInto("Zm9", 0).ok);
  EXPECT_FALSE(DecodeInto("Zm9v", 6).ok);
  EXPECT_EQ(DecodeInto("Zm9v", 7).bytes, "foo");
  EXPECT_FALSE(DecodeInto("Zm8=", 5).ok);
  EXPECT_EQ(DecodeInto("Zm8=", 6).bytes, "fo");
  EXPECT_FALSE(DecodeInto("Zg==", 4).ok);
  EXPECT_EQ(DecodeInto("Zg==", 5).bytes, "f");
  EXPECT_FALSE(DecodeInto("Zm9vYmFy", 9).ok);
  EXPECT_EQ(DecodeInto("Zm9vYmFy", 10).bytes, "foobar");
}

TEST(Base64, NothingIsWrittenAfterTheRoom) {
  for (const std::string& text : {"Zg=="s, "Zm9v"s, "!!!!"s, "Zm9vYmFyZm9vYmFyZm9vYmFy"s, "QQ==QQ==QQ=="s}) {
    for (std::uint32_t room = 0; room < 40; ++room) {
      EXPECT_TRUE(DecodeInto(text, room).areGuardsWhole) << text << " in " << room;
    }
  }
}

TEST(Base64, RandomTextsDecodeAsThePlainRuleSays) {
  std::mt19937 random(1);
  const std::string characters = std::string(PlainBase64::kAlphabet) + "====\r\n!\0\xFF"s;
  for (int run = 0; run < 5000; ++run) {
    std::string text(random() % 70, 'A');
    for (char& character : text) character = characters[random() % characters.size()];
    const Decoded decoded = DecodeInto(text, 100);
    ASSERT_TRUE(decoded.ok && decoded.areGuardsWhole);
    ASSERT_EQ(decoded.bytes, PlainBase64::DecodedGroups(text)) << run;
  }
}
