// The rule flag word of MultiRename: the case rule in the low eight bits, the switches of the search above.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// At most one is set. A word with several obeys the lowest.
enum CaseRule : u32 {
  kCaseNone = 0,
  kCaseAllLower = 1,  // name and extension
  kCaseAllUpper = 2,
  kCaseNameLower = 4,
  kCaseNameUpper = 8,
  kCaseExtensionLower = 16,
  kCaseExtensionUpper = 32,
  kCaseWords = 64,        // the first letter of each word of the name upper, the others lower
  kCaseFirstLetter = 128  // the name lower, its first character upper
};

constexpr u32 kCaseRuleMask = 0xFF;

enum SearchFlag : u32 {
  kSearchCaseSensitive = 0x100000,
  kSearchRegex = 0x200000,
  kSearchReplaceAll = 0x400000,
  kSearchNameAndExtension = 0x1000000,
  kSearchName = 0x2000000,
  kSearchExtension = 0x4000000
};

}  // namespace Velmora::SDK
