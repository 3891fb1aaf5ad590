// Random actions of a user of MultiRename's window, for monkey tests; the same seed gives the same actions.
// The program that drives the window, drawn or not, performs them.
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "platform/text.h"

enum class MonkeyDeed {
  kType,          // types a text into a field of the panel, or into a combo box
  kPress,         // presses a button or a check box
  kChoose,        // chooses a line of a combo box: `number`, modulo the number of its lines
  kDoubleClick,   // double-clicks a list with columns
  kSelectRows,    // selects `count` rows of the list of files, from row `number` on
  kMoveRows,      // moves rows with one of the four commands of the frame
  kRun,           // presses Start and waits for the end of the run
  kUndo,          // presses Undo and waits for its end
  kEscape,        // presses the Escape key
  kContextMenu,   // opens the context menu of the list of files
  kNewSelection,  // invokes the command of the window again
  kClose,         // closes the window as the user
  kShutDown,      // shuts the window down as the host
};

struct MonkeyAction {
  MonkeyDeed deed;
  int control = 0;  // the id of the control, or the number of the frame's command
  WString text;
  std::uint32_t number = 0;
  std::uint32_t count = 0;
  bool isAwaited = true;  // whether the next action waits until this one is done

  // Returns the action as one line, for the log of a failed run.
  std::string Shown() const;
};

class ActionGenerator {
 public:
  explicit ActionGenerator(std::uint32_t seed) : engine_(seed) {}

  MonkeyAction Next();

  // Random numbers for boxes, menus, dialogs and other choices.
  std::uint32_t Below(std::uint32_t limit);  // from 0 to limit - 1; 0 if limit is 0
  bool Chance(std::uint32_t percent) { return Below(100) < percent; }
  // Returns a text for a field: a valid or invalid rule, an odd name, a number, or nothing.
  WString Text();
  // Returns a line for a question of the host, or nothing for the end of the input.
  std::optional<std::string> Line();

 private:
  std::mt19937 engine_;  // same numbers with every standard library, unlike the distributions
};
