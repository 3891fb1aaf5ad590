// What a monkey does with MultiRename's window: actions at random, the same ones for the same seed. How each
// is done is the business of who drives the window, drawn or not.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "platform/text.h"

enum class MonkeyDeed {
  kType,          // a text into a field of the panel, or into a box with an edit field
  kPress,         // a button or a check box
  kChoose,        // a line of a box: the number, modulo how many it has
  kDoubleClick,   // a list with columns
  kSelectRows,    // of the list of files: from the number on, as many as `count`
  kMoveRows,      // by one of the four commands of the frame
  kRun,           // Start, and wait for its end
  kUndo,          // Undo, and wait for its end
  kEscape,        // the key
  kContextMenu,   // of the list of files
  kNewSelection,  // the command of the window again
  kClose,         // as the user
  kShutDown,      // as the host
};

struct MonkeyAction {
  MonkeyDeed deed;
  int control = 0;  // its number, or the number of the frame's command
  WString text;
  std::uint32_t number = 0;
  std::uint32_t count = 0;
  bool isAwaited = true;  // the next action waits until this one is done

  // In one line, for whoever looks for what went wrong.
  std::string Shown() const;
};

class ActionGenerator {
 public:
  explicit ActionGenerator(std::uint32_t seed) : engine_(seed) {}

  MonkeyAction Next();

  // For boxes, menus and dialogs, and whatever else is chosen on the way.
  std::uint32_t Below(std::uint32_t limit);  // 0 to limit - 1; 0 for 0
  bool Chance(std::uint32_t percent) { return Below(100) < percent; }
  // A text for a field: rules that compile and such as do not, odd names, numbers, nothing.
  WString Text();

 private:
  std::mt19937 engine_;  // the same numbers with every library; its distributions are not
};
