// Answers and records the message boxes that the module opens (MessageBoxW) on the thread of the test.
//
// During its lifetime, the boxes of this thread are closed with the given buttons, in order. A box for which
// no button is left gets Cancel and is recorded as unexpected. Boxes of other threads and processes are
// ignored. Only one object may exist at a time.
#pragma once

#include <deque>
#include <initializer_list>
#include <iosfwd>
#include <memory>
#include <vector>

#include "platform/text.h"

struct ShownBox {
  WString title;
  WString text;
  std::vector<int> buttons;  // their ids, in ascending order
  bool hasIcon;
  UINT style;  // as passed by the caller; 0 on Windows, where the box does not show it
  HWND owner;  // on Windows; null in the native build, where it is not recorded
};

// Prints a box in the message of a failed expectation.
void PrintTo(const ShownBox& box, std::ostream* out);

// A call of ShellExecuteW; recorded in the native build only.
struct ShellStart {
  WString verb;
  WString file;
  WString arguments;
  int show;
};

class BoxAnswers {
 public:
  explicit BoxAnswers(std::initializer_list<int> buttons = {});
  BoxAnswers(const BoxAnswers&) = delete;
  BoxAnswers& operator=(const BoxAnswers&) = delete;
  ~BoxAnswers();

  const std::vector<ShownBox>& Boxes() const { return boxes_; }
  const std::vector<ShellStart>& Starts() const { return starts_; }
  // Returns the boxes for which no button was left.
  const std::vector<ShownBox>& UnexpectedBoxes() const { return unexpected_; }
  int Unused() const { return static_cast<int>(answers_.size()); }  // buttons that no box has used

 private:
  // Intercepts the boxes; each build has its own.
  class Responder;

  // Records a box and returns the id of the button that closes it.
  int AnswerBox(const ShownBox& box);

  std::deque<int> answers_;
  std::vector<ShownBox> boxes_;
  std::vector<ShownBox> unexpected_;
  std::vector<ShellStart> starts_;
  std::unique_ptr<Responder> responder_;
};
