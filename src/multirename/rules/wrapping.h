// 32-bit arithmetic that wraps around. The numbers of counters and ranges are typed by the user, so any
// operation may overflow.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

constexpr s32 WrappingSum(s32 a, s32 b) {
  return static_cast<s32>(static_cast<u32>(a) + static_cast<u32>(b));
}
constexpr s32 WrappingDifference(s32 a, s32 b) {
  return static_cast<s32>(static_cast<u32>(a) - static_cast<u32>(b));
}
constexpr s32 WrappingNegative(s32 a) { return WrappingDifference(0, a); }

}  // namespace Velmora::SDK
