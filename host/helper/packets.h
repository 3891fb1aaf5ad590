// The bodies of messages to the elevated helper: a sequence of numbers and texts, as bytes.
//
// A number has 4 bytes, little endian. A text is the number of its 16-bit units, followed by the units.
#pragma once

#include <deque>
#include <string>

#include "frame/host/host_helper_channel.h"
#include "host/system/owned_by_module.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::u32;

// Appends the four bytes of a number.
void AppendU32(std::string& bytes, u32 value);
// Returns the number in the first four bytes.
u32 U32From(const char* bytes);

// Writes a packet.
class PacketWriter final : public OwnedByModule<PacketWriter, Velmora::SDK::IHostPacketWriter> {
 public:
  void WriteU32(u32 value) override { AppendU32(bytes_, value); }
  void WriteString(const WCHAR* text) override;
  const void* GetData() override { return bytes_.data(); }
  u32 GetSize() override { return static_cast<u32>(bytes_.size()); }

 private:
  std::string bytes_;
};

// Reads a packet. An operation that would read past the end of the data returns false, and so do all later
// ones.
class PacketReader final : public OwnedByModule<PacketReader, Velmora::SDK::IHostPacketReader> {
 public:
  void Attach(const void* data, u32 size) override;
  bool ReadString(const WCHAR** text) override;
  bool ReadU32(u32* value) override;

 private:
  std::string_view rest_;
  bool failed_ = false;
  std::deque<WString> texts_;  // the texts read so far, which must live until the release
};

}  // namespace QxHost
