#include "host/services/answers.h"

#include <algorithm>
#include <vector>

#include "host/output/nearest_name.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

struct Word {
  Answer::Kind kind;
  std::string_view word;
  bool withText;
};

constexpr Word kWords[] = {
    {Answer::kOk, "ok", false},         {Answer::kYes, "yes", false},   {Answer::kNo, "no", false},
    {Answer::kCancel, "cancel", false}, {Answer::kText, "text=", true}, {Answer::kChoice, "choice=", true},
};

}  // namespace

std::optional<Answer> ParseAnswer(std::string_view text) {
  for (const Word& row : kWords) {
    if (row.withText && text.starts_with(row.word)) {
      return Answer{row.kind, PathFromUtf8(text.substr(row.word.size()))};
    }
    if (!row.withText && text == row.word) return Answer{row.kind, {}};
  }
  return std::nullopt;
}

std::string NearestAnswer(std::string_view text) {
  std::vector<std::string_view> words;
  for (const Word& row : kWords) words.push_back(row.word);
  // The answers are so few that even one letter is enough for a proposal.
  const auto beginsSo = [text](const Word& row) { return row.word.starts_with(text); };
  if (text.size() == 1 && std::ranges::count_if(kWords, beginsSo) == 1) {
    return ". Did you mean " + std::string(std::ranges::find_if(kWords, beginsSo)->word) + "?";
  }
  const std::size_t equals = text.find('=');
  return DidYouMean(equals == std::string_view::npos ? text : text.substr(0, equals + 1), words);
}

std::string AnswerText(const Answer& answer) {
  for (const Word& row : kWords) {
    if (row.kind == answer.kind) return std::string(row.word) + ToUtf8(answer.text);
  }
  return {};
}

}  // namespace QxHost
