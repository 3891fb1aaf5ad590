// Names of the menu's commands, for those who would rather type a word than a number.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace QxHost {

struct CommandName {
  std::int32_t number;
  std::string_view name;
};

// All commands that have a name, in the order of the menu. The items of the control panel are named
// `control-` and their title.
std::span<const CommandName> CommandNames();

// Empty for a number without a name.
std::string_view NameOfCommand(std::int64_t number);

// The number of a command that is given as a decimal number or by its whole name, in any case. Nothing for
// anything else.
std::optional<std::int32_t> FindCommand(std::string_view text);

// The command that was likely typed where a verb should be: a number or name of the menu as it is given, or
// the one name that begins so, or else the nearest one. Empty if no name is near.
std::string ProposedCommand(std::string_view text);

// As FindCommand, where a beginning of a name will do that no other name has. Throws BadCall for anything
// else, which lists the names with such a beginning, or proposes the nearest one.
std::int32_t CommandOfText(std::string_view text);

}  // namespace QxHost
