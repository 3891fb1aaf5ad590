#include "host/services/property_definer.h"

namespace QxHost {
namespace {

// The alignment that this host interprets as a column of numbers.
constexpr u32 kAlignRight = 2;

}  // namespace

void PropertyDefiner::SetProvider(const char* id) { module_ = id ? modules_.NumberOf(id) : 0; }

void PropertyDefiner::Define(const Velmora::SDK::PropertyDefinition* definition) {
  if (!definition || ViewOf(definition->name).empty()) return;
  columns_.push_back({.owner = owner_,
                      .module = module_,
                      .number = definition->number,
                      .name = definition->name,
                      .heading = textOf_(definition->displayText),
                      .isNumber = definition->alignment == kAlignRight});
}

}  // namespace QxHost
