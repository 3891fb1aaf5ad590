#include "host/services/script_command_set.h"

#include <algorithm>

#include "platform/ascii_case.h"

namespace QxHost {
namespace {

// Bits of the flags of a parameter.
constexpr u32 kSwitch = 0x10;
constexpr u32 kNumber = 0x40;
constexpr u32 kRequired = 0x1000;

template <typename Rows>
auto FindByName(const Rows& rows, std::string_view name) -> decltype(&rows.front()) {
  const std::string lowered = AsciiLower(name);
  const auto found =
      std::ranges::find_if(rows, [&lowered](const auto& row) { return AsciiLower(row.name) == lowered; });
  return found != rows.end() ? &*found : nullptr;
}

}  // namespace

bool DeclaredScriptCommand::Parameter::IsSwitch() const { return (flags & kSwitch) != 0; }
bool DeclaredScriptCommand::Parameter::IsRequired() const { return (flags & kRequired) != 0; }

std::string DeclaredScriptCommand::Parameter::KindName() const {
  if (IsSwitch()) return {};
  return (flags & kNumber) != 0 ? "NUMBER" : "TEXT";
}

const DeclaredScriptCommand::Parameter* DeclaredScriptCommand::Find(std::string_view parameter) const {
  return FindByName(parameters, parameter);
}

const DeclaredScriptCommand* ScriptCommandSet::Find(std::string_view commandName) const {
  return FindByName(commands, commandName);
}

}  // namespace QxHost
