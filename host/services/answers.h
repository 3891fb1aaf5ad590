// The answers on the command line, in the order of the questions.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

struct Answer {
  enum Kind { kOk, kYes, kNo, kCancel, kText, kChoice };
  Kind kind = kCancel;
  WString text;  // for kText and kChoice
};

// Parses `ok`, `yes`, `no`, `cancel`, `text=TEXT` or `choice=ROWTEXT`. Returns std::nullopt for any other
// text.
std::optional<Answer> ParseAnswer(std::string_view text);

// Returns the end of a message about an invalid answer: ". Did you mean A?" with the nearest word; the empty
// text if none is near.
std::string NearestAnswer(std::string_view text);

// Returns the text that ParseAnswer parses to this answer.
std::string AnswerText(const Answer& answer);

// The forms that ParseAnswer accepts, for messages.
inline constexpr const char* kAnswerForms = "ok, yes, no, cancel, text=TEXT or choice=ROWTEXT";

using Answers = std::deque<Answer>;

}  // namespace QxHost
