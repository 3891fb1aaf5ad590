// The answers of the command line, given in the order in which the questions will come.
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
  WString text;  // of kText and kChoice
};

// `ok`, `yes`, `no`, `cancel`, `text=TEXT` or `choice=ROWTEXT`; nothing for anything else.
std::optional<Answer> ParseAnswer(std::string_view text);

// The last sentence of a message about a text that is no answer: ". Did you mean A?" with the word that is
// the nearest to it; empty if none is near.
std::string NearestAnswer(std::string_view text);

// The form that ParseAnswer takes.
std::string AnswerText(const Answer& answer);

// What ParseAnswer takes, for messages.
inline constexpr const char* kAnswerForms = "ok, yes, no, cancel, text=TEXT or choice=ROWTEXT";

using Answers = std::deque<Answer>;

}  // namespace QxHost
