// What passes between the host and the process of its elevated helper.
//
// The helper begins with a greeting, as soon as the module is loaded. Each request is a header and a body of
// any size; each reply is of one size. A stream that is not so is given up.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "host/helper/packets.h"

namespace QxHost {

// The first argument of a program that is to be a helper; the path of the module follows.
inline constexpr const char* kHelperArgument = "helper";

inline constexpr std::string_view kHelperGreeting = "QXH1";

// Beyond this a size is none that a host has sent.
constexpr u32 kMostHelperBodyBytes = 256u << 20;

struct HelperRequestHeader {
  static constexpr std::size_t kBytes = 12;
  s32 code = 0;
  u32 bodySize = 0;
};
std::string EncodeHelperRequest(const HelperRequestHeader& header);
std::optional<HelperRequestHeader> DecodeHelperRequest(
    const std::array<char, HelperRequestHeader::kBytes>& bytes);

struct HelperReply {
  static constexpr std::size_t kBytes = 16;
  bool isHandled = false;  // there is such a message
  u32 success = 0;
  u32 code = 0;
};
std::string EncodeHelperReply(const HelperReply& reply);
std::optional<HelperReply> DecodeHelperReply(const std::array<char, HelperReply::kBytes>& bytes);

}  // namespace QxHost
