// Bodies of the messages to the elevated helper: numbers and texts, one behind the other, as bytes.
//
// A number is 4 bytes, the low ones first. A text is the number of its 16-bit units, and these.
#pragma once

#include <deque>
#include <string>

#include "frame/host/host_helper_channel.h"
#include "host/system/owned_by_module.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::u32;

void AppendU32(std::string& bytes, u32 value);
// From the first four bytes.
u32 U32From(const char* bytes);

class PacketWriter final : public OwnedByModule<PacketWriter, Velmora::SDK::IHostPacketWriter> {
 public:
  void WriteU32(u32 value) override { AppendU32(bytes_, value); }
  void WriteString(const WCHAR* text) override;
  const void* GetData() override { return bytes_.data(); }
  u32 GetSize() override { return static_cast<u32>(bytes_.size()); }

 private:
  std::string bytes_;
};

// Reads nothing beyond the data's end: an operation that would answers false, and so do all later ones.
class PacketReader final : public OwnedByModule<PacketReader, Velmora::SDK::IHostPacketReader> {
 public:
  void Attach(const void* data, u32 size) override;
  bool ReadString(const WCHAR** text) override;
  bool ReadU32(u32* value) override;

 private:
  std::string_view rest_;
  bool failed_ = false;
  std::deque<WString> texts_;  // those that were read, until the release
};

}  // namespace QxHost
