#include "support/fake_properties.h"

using Velmora::SDK::PropertyDefinition;

void FakePropertyDefiner::SetProvider(const char* id) {
  recorder_.Record(std::string("definer.SetProvider(") + (id ? id : "null") + ")");
  if (!recorder_.IsTaken(kPropertyDefinerService))
    recorder_.Problem("the definer is used behind its release");
}

void FakePropertyDefiner::Define(const PropertyDefinition* definition) {
  if (!definition) return recorder_.Problem("the definer was given no definition");
  recorder_.Record("definer.Define(" + std::to_string(definition->number) + ", " + Quoted(definition->name) +
                   ", " + std::to_string(definition->width) + ", " + Hex(definition->displayText) + ", " +
                   Hex(definition->groupText) + ", " + Hex(definition->typeFlags) + ", " +
                   std::to_string(definition->alignment) + ")");
  if (!recorder_.IsTaken(kPropertyDefinerService))
    recorder_.Problem("the definer is used behind its release");
}

void FakeViewRefresh::AddFolder(const WCHAR* path) {
  recorder_.Record("refresh.AddFolder(" + Quoted(path) + ")");
  if (!recorder_.IsTaken(kViewRefreshService)) recorder_.Problem("the refresh is used behind its release");
}
