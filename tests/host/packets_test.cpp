// Bodies of helper messages, written and read.
#include "host/helper/packets.h"

#include <gmock/gmock.h>

namespace QxHost {
namespace {

template <typename Packet>
struct Releaser {
  void operator()(Packet* packet) const { packet->Release(); }
};
using Writer = std::unique_ptr<PacketWriter, Releaser<PacketWriter>>;
using Reader = std::unique_ptr<PacketReader, Releaser<PacketReader>>;

std::string BytesOf(PacketWriter& writer) {
  return std::string(static_cast<const char*>(writer.GetData()), writer.GetSize());
}

Reader ReaderOf(const std::string& bytes) {
  Reader reader(PacketReader::Lend());
  reader->Attach(bytes.data(), static_cast<u32>(bytes.size()));
  return reader;
}

TEST(Packets, AreTheseBytes) {
  const Writer writer(PacketWriter::Lend());
  writer->WriteU32(0x01020384);
  writer->WriteString(W("a\u0416"));
  writer->WriteString(W(""));
  writer->WriteString(nullptr);
  using namespace std::string_literals;
  EXPECT_EQ(BytesOf(*writer), "\x84\x03\x02\x01\x02\0\0\0a\0\x16\x04\0\0\0\0\0\0\0\0"s);
}

TEST(Packets, WhatWasWrittenIsReadInItsOrder) {
  const Writer writer(PacketWriter::Lend());
  const WString longText(32000, W('x'));
  writer->WriteU32(0xFFFFFFFF);
  writer->WriteString(W("one"));
  writer->WriteString(longText.c_str());
  writer->WriteU32(0);
  const std::string bytes = BytesOf(*writer);
  const Reader reader = ReaderOf(bytes);
  u32 first = 0;
  u32 last = 7;
  const WCHAR* one = nullptr;
  const WCHAR* two = nullptr;
  EXPECT_TRUE(reader->ReadU32(&first));
  EXPECT_TRUE(reader->ReadString(&one));
  EXPECT_TRUE(reader->ReadString(&two));
  EXPECT_TRUE(reader->ReadU32(&last));
  EXPECT_EQ(first, 0xFFFFFFFF);
  EXPECT_EQ(WString(one), W("one"));  // still valid
  EXPECT_EQ(WString(two), longText);
  EXPECT_EQ(last, 0u);
  EXPECT_FALSE(reader->ReadU32(&last));
  EXPECT_FALSE(reader->ReadString(&one));
}

TEST(Packets, ATextThatIsCutIsNotRead) {
  using namespace std::string_literals;
  const std::string whole = "\x02\0\0\0a\0b\0"s;
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::string bytes = whole.substr(0, size);
    const Reader reader = ReaderOf(bytes);
    const WCHAR* text = W("untouched");
    EXPECT_FALSE(reader->ReadString(&text)) << size;
    EXPECT_EQ(WString(text), W("untouched")) << size;
    u32 value = 0;
    EXPECT_FALSE(reader->ReadU32(&value)) << size;
  }
}

TEST(Packets, ALengthBeyondAllBoundsIsNotBelieved) {
  const std::string bytes = "\xFF\xFF\xFF\xFF\x41\x41";
  const Reader reader = ReaderOf(bytes);
  const WCHAR* text = nullptr;
  EXPECT_FALSE(reader->ReadString(&text));
}

TEST(Packets, NothingIsReadWhereNothingIsAttachedOrThereIsNoPlaceForIt) {
  const Reader reader(PacketReader::Lend());
  u32 value = 0;
  const WCHAR* text = nullptr;
  EXPECT_FALSE(reader->ReadU32(&value));
  reader->Attach(nullptr, 100);
  EXPECT_FALSE(reader->ReadU32(&value));
  const std::string bytes(8, '\0');
  reader->Attach(bytes.data(), 8);
  EXPECT_FALSE(reader->ReadU32(nullptr));
  EXPECT_FALSE(reader->ReadString(nullptr));
  EXPECT_TRUE(reader->ReadString(&text));
  EXPECT_EQ(WString(text), W(""));
}

}  // namespace
}  // namespace QxHost
