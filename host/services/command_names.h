// Names of the menu's commands, as alternatives to their numbers.
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

// Returns all commands that have a name, in the order of the menu. The names of the control panel items are
// `control-` followed by their title.
std::span<const CommandName> CommandNames();

// Returns the name of a command; empty if it has no name.
std::string_view NameOfCommand(std::int64_t number);

// Returns the number of a command that is given as a decimal number or by its complete name, in any letter
// case; std::nullopt for any other text.
std::optional<std::int32_t> FindCommand(std::string_view text);

// Returns the command that was probably typed in place of a verb: a number or name of the menu, or the only
// name with this beginning, or else the nearest name. Returns the empty text if no name is near.
std::string ProposedCommand(std::string_view text);

// Returns the number of a command as FindCommand does, but also accepts the beginning of a name if it is
// unique. Throws BadCall for any other text; its message lists the names with this beginning, or proposes the
// nearest name.
std::int32_t CommandOfText(std::string_view text);

}  // namespace QxHost
