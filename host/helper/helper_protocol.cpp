#include "host/helper/helper_protocol.h"

namespace QxHost {
namespace {

constexpr u32 kRequestMark = 0x51525851;  // "QXRQ"
constexpr u32 kReplyMark = 0x50525851;    // "QXRP"

}  // namespace

std::string EncodeHelperRequest(const HelperRequestHeader& header) {
  std::string bytes;
  AppendU32(bytes, kRequestMark);
  AppendU32(bytes, static_cast<u32>(header.code));
  AppendU32(bytes, header.bodySize);
  return bytes;
}

std::optional<HelperRequestHeader> DecodeHelperRequest(
    const std::array<char, HelperRequestHeader::kBytes>& bytes) {
  const HelperRequestHeader header{static_cast<s32>(U32From(&bytes[4])), U32From(&bytes[8])};
  if (U32From(bytes.data()) != kRequestMark || header.bodySize > kMaxHelperBodyBytes) return std::nullopt;
  return header;
}

std::string EncodeHelperReply(const HelperReply& reply) {
  std::string bytes;
  AppendU32(bytes, kReplyMark);
  AppendU32(bytes, reply.isHandled ? 1 : 0);
  AppendU32(bytes, reply.success);
  AppendU32(bytes, reply.code);
  return bytes;
}

std::optional<HelperReply> DecodeHelperReply(const std::array<char, HelperReply::kBytes>& bytes) {
  const u32 isHandled = U32From(&bytes[4]);
  if (U32From(bytes.data()) != kReplyMark || isHandled > 1) return std::nullopt;
  return HelperReply{isHandled == 1, U32From(&bytes[8]), U32From(&bytes[12])};
}

}  // namespace QxHost
