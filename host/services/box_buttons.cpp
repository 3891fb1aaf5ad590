#include "host/services/box_buttons.h"

#include <algorithm>

namespace QxHost {
namespace {

constexpr BoxButton kOk = {1, "ok"};
constexpr BoxButton kCancel = {2, "cancel"};
constexpr BoxButton kAbort = {3, "abort"};
constexpr BoxButton kRetry = {4, "retry"};
constexpr BoxButton kIgnore = {5, "ignore"};
constexpr BoxButton kYes = {6, "yes"};
constexpr BoxButton kNo = {7, "no"};

constexpr BoxButton kOkGroup[] = {kOk};
constexpr BoxButton kOkCancelGroup[] = {kOk, kCancel};
constexpr BoxButton kAbortRetryIgnoreGroup[] = {kAbort, kRetry, kIgnore};
constexpr BoxButton kYesNoCancelGroup[] = {kYes, kNo, kCancel};
constexpr BoxButton kYesNoGroup[] = {kYes, kNo};
constexpr BoxButton kRetryCancelGroup[] = {kRetry, kCancel};

// Indexed by the low four bits of the style.
constexpr std::span<const BoxButton> kGroups[] = {
    kOkGroup, kOkCancelGroup, kAbortRetryIgnoreGroup, kYesNoCancelGroup, kYesNoGroup, kRetryCancelGroup,
};

constexpr BoxButton kAll[] = {kOk, kCancel, kAbort, kRetry, kIgnore, kYes, kNo};

const BoxButton* FindNumber(std::span<const BoxButton> buttons, int number) {
  const auto found = std::find_if(buttons.begin(), buttons.end(),
                                  [number](const BoxButton& button) { return button.number == number; });
  return found == buttons.end() ? nullptr : &*found;
}

}  // namespace

std::span<const BoxButton> ButtonsOfStyle(std::uint32_t style) {
  const std::uint32_t group = style & 0xF;
  return group < std::size(kGroups) ? kGroups[group] : kGroups[0];
}

std::uint32_t StyleOfButtons(std::span<const int> numbers) {
  for (std::uint32_t style = 0; style < std::size(kGroups); ++style) {
    const auto isShown = [&](int number) { return FindNumber(kGroups[style], number) != nullptr; };
    if (numbers.size() == kGroups[style].size() && std::all_of(numbers.begin(), numbers.end(), isShown)) {
      return style;
    }
  }
  return 0;
}

std::optional<BoxButton> ButtonOfAnswer(std::span<const BoxButton> buttons, const Answer& answer) {
  constexpr std::pair<Answer::Kind, BoxButton> kPresses[] = {
      {Answer::kOk, kOk}, {Answer::kYes, kYes}, {Answer::kNo, kNo}, {Answer::kCancel, kCancel}};
  for (const auto& [kind, button] : kPresses) {
    if (kind == answer.kind && FindNumber(buttons, button.number)) return button;
  }
  return std::nullopt;
}

BoxButton HarmlessButton(std::span<const BoxButton> buttons) {
  for (const BoxButton& button : {kCancel, kNo, kIgnore}) {
    if (FindNumber(buttons, button.number)) return button;
  }
  return buttons.front();
}

std::string ButtonNames(std::span<const BoxButton> buttons) {
  std::string names;
  for (const BoxButton& button : buttons) {
    if (!names.empty()) names += ", ";
    names += button.name;
  }
  return names;
}

std::string ButtonName(int number) {
  const BoxButton* const button = FindNumber(kAll, number);
  return button ? button->name : std::to_string(number);
}

}  // namespace QxHost
