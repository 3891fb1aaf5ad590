#include "support/box_answers.h"

#include <ostream>

void PrintTo(const ShownBox& box, std::ostream* out) {
  *out << "the box \"" << ToUtf8(box.title) << "\": \"" << ToUtf8(box.text) << "\", buttons";
  for (const int button : box.buttons) *out << ' ' << button;
}

int BoxAnswers::AnswerBox(const ShownBox& box) {
  boxes_.push_back(box);
  if (answers_.empty()) {
    unexpected_.push_back(box);
    return IDCANCEL;
  }
  const int answer = answers_.front();
  answers_.pop_front();
  return answer;
}
