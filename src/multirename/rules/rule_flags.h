// The rule flags of MultiRename: the case rule in the low eight bits, the search flags above them.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// At most one is set. If several are set, the lowest applies.
enum CaseRule : u32 {
  kCaseNone = 0,
  kCaseAllLower = 1,  // base name and extension
  kCaseAllUpper = 2,
  kCaseNameLower = 4,
  kCaseNameUpper = 8,
  kCaseExtensionLower = 16,
  kCaseExtensionUpper = 32,
  kCaseWords = 64,        // the first letter of each word of the name in upper case, the others in lower case
  kCaseFirstLetter = 128  // the name in lower case, its first character in upper case
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
