// The protocol between the host and the process of its elevated helper.
//
// The helper sends a greeting when it has loaded the module. Each request is a header and a body of any size;
// all replies have the same size. A stream that does not follow the protocol is closed.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "host/helper/packets.h"

namespace QxHost {

// The first argument of a process that runs as the helper. The path of the module follows it.
inline constexpr const char* kHelperArgument = "helper";

// The bytes of the greeting.
inline constexpr std::string_view kHelperGreeting = "QXH1";

// The largest body of a request. A larger size is a protocol error.
constexpr u32 kMaxHelperBodyBytes = 256u << 20;

// The header of a request: the code of the message and the size of its body in bytes.
struct HelperRequestHeader {
  static constexpr std::size_t kBytes = 12;
  s32 code = 0;
  u32 bodySize = 0;
};
// Encode and decode the header. Decoding returns std::nullopt for bytes that do not follow the protocol.
std::string EncodeHelperRequest(const HelperRequestHeader& header);
std::optional<HelperRequestHeader> DecodeHelperRequest(
    const std::array<char, HelperRequestHeader::kBytes>& bytes);

// A reply, with the values that the module has set.
struct HelperReply {
  static constexpr std::size_t kBytes = 16;
  bool isHandled = false;  // the module knows the message
  u32 success = 0;
  u32 code = 0;
};
// Encode and decode a reply. Decoding returns std::nullopt for bytes that do not follow the protocol.
std::string EncodeHelperReply(const HelperReply& reply);
std::optional<HelperReply> DecodeHelperReply(const std::array<char, HelperReply::kBytes>& bytes);

}  // namespace QxHost
