#include "host/helper/packets.h"

#include "platform/text.h"

namespace QxHost {
namespace {

constexpr std::size_t kU32Bytes = 4;
constexpr std::size_t kUnitBytes = 2;

u32 ByteAt(const char* bytes, std::size_t index) { return static_cast<unsigned char>(bytes[index]); }

}  // namespace

void AppendU32(std::string& bytes, u32 value) {
  for (std::size_t index = 0; index < kU32Bytes; ++index) bytes += static_cast<char>(value >> (8 * index));
}

u32 U32From(const char* bytes) {
  return ByteAt(bytes, 0) | ByteAt(bytes, 1) << 8 | ByteAt(bytes, 2) << 16 | ByteAt(bytes, 3) << 24;
}

void PacketWriter::WriteString(const WCHAR* text) {
  const WStringView units = ViewOf(text);
  AppendU32(bytes_, static_cast<u32>(units.size()));
  for (const WCHAR unit : units) {
    bytes_ += static_cast<char>(unit & 0xFF);
    bytes_ += static_cast<char>(unit >> 8);
  }
}

void PacketReader::Attach(const void* data, u32 size) {
  rest_ = data ? std::string_view(static_cast<const char*>(data), size) : std::string_view();
  failed_ = false;
}

bool PacketReader::ReadU32(u32* value) {
  failed_ = failed_ || rest_.size() < kU32Bytes;
  if (failed_ || !value) return false;
  *value = U32From(rest_.data());
  rest_.remove_prefix(kU32Bytes);
  return true;
}

bool PacketReader::ReadString(const WCHAR** text) {
  u32 count = 0;
  if (!text || !ReadU32(&count)) return false;
  failed_ = rest_.size() / kUnitBytes < count;
  if (failed_) return false;
  WString& units = texts_.emplace_back();
  for (std::size_t index = 0; index < count; ++index) {
    const char* const unit = rest_.data() + index * kUnitBytes;
    units += static_cast<WCHAR>(ByteAt(unit, 0) | ByteAt(unit, 1) << 8);
  }
  rest_.remove_prefix(count * kUnitBytes);
  *text = units.c_str();
  return true;
}

}  // namespace QxHost
