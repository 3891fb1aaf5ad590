// The buttons of boxes: which a style shows, and which one an answer presses.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "host/services/answers.h"

namespace QxHost {

// A button by the number that MessageBoxW answers.
struct BoxButton {
  int number;
  const char* name;
};

// The buttons of a style's low four bits. An unknown style has OK alone, as MessageBoxW would show nothing.
std::span<const BoxButton> ButtonsOfStyle(std::uint32_t style);

// The low four bits of the style that shows exactly these buttons, 0 if none does.
std::uint32_t StyleOfButtons(std::span<const int> numbers);

// The button that the answer presses, if the box has it.
std::optional<BoxButton> ButtonOfAnswer(std::span<const BoxButton> buttons, const Answer& answer);

// The button that does the least: cancel, else no, else the only one there is.
BoxButton HarmlessButton(std::span<const BoxButton> buttons);

// "ok, cancel", for messages and prompts.
std::string ButtonNames(std::span<const BoxButton> buttons);

// Name of a button by its number; the number itself for one that no box has.
std::string ButtonName(int number);

}  // namespace QxHost
