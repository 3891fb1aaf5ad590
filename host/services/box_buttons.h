// The buttons of message boxes: which ones a style shows, and which one an answer presses.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "host/services/answers.h"

namespace QxHost {

// A button, with the number that MessageBoxW returns for it.
struct BoxButton {
  int number;
  const char* name;
};

// Returns the buttons of a style, by its low four bits. For an unknown style, for which MessageBoxW shows
// nothing, returns only OK.
std::span<const BoxButton> ButtonsOfStyle(std::uint32_t style);

// Returns the low four bits of the style that shows exactly these buttons; 0 if no style does.
std::uint32_t StyleOfButtons(std::span<const int> numbers);

// Returns the button that the answer presses; std::nullopt if the box does not have it.
std::optional<BoxButton> ButtonOfAnswer(std::span<const BoxButton> buttons, const Answer& answer);

// Returns the button that does least: cancel, else no, else the only one.
BoxButton HarmlessButton(std::span<const BoxButton> buttons);

// Returns the names of buttons for messages and prompts: "ok, cancel".
std::string ButtonNames(std::span<const BoxButton> buttons);

// Returns the name of a button; its number as text if no box has it.
std::string ButtonName(int number);

}  // namespace QxHost
