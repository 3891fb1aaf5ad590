#include "host/services/module_registry.h"

#include "host/services/language_table.h"
#include "platform/ascii_case.h"

namespace QxHost {
namespace {

using Velmora::SDK::u32;

// The high half of all module numbers. It is not zero, so that code that confuses a number with its low half
// fails.
constexpr u32 kNumberBase = 0x00010000;

bool SameId(std::string_view left, std::string_view right) { return AsciiLower(left) == AsciiLower(right); }

}  // namespace

u32 ModuleRegistry::NumberOf(std::string_view id) const {
  for (u32 index = 0; index < modules_.size(); ++index) {
    if (SameId(modules_[index].id, id)) return kNumberBase + index + 1;
  }
  return 0;
}

std::string_view ModuleRegistry::SectionOf(u32 number) const {
  const u32 low = number & 0xFFFF;
  if (low == 0) return kCommonSection;
  return low <= modules_.size() ? std::string_view(modules_[low - 1].section) : std::string_view();
}

}  // namespace QxHost
