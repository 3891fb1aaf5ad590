// Answers the message boxes of the module (MessageBoxW) on the thread of the test, and records them.
//
// For its lifetime the boxes that this thread opens get the given buttons, in order. A box without an answer
// left gets Cancel and counts as unexpected. Boxes of other threads and programs are theirs alone. One at a
// time.
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
  std::vector<int> buttons;  // their ids, in rising order
  bool hasIcon;
  UINT style;  // as given natively; on Windows a box does not tell it, and it is 0
  HWND owner;  // on Windows; natively it is not told, and null
};

// What a failed expectation says of a box.
void PrintTo(const ShownBox& box, std::ostream* out);

// What ShellExecuteW was asked to start; recorded natively alone.
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
  // Those of the boxes that had no answer left.
  const std::vector<ShownBox>& UnexpectedBoxes() const { return unexpected_; }
  int Unused() const { return static_cast<int>(answers_.size()); }  // answers that no box asked for

 private:
  // Sees the boxes; one for each build.
  class Responder;

  // Records a box and answers the button that ends it.
  int Answer(const ShownBox& box);

  std::deque<int> answers_;
  std::vector<ShownBox> boxes_;
  std::vector<ShownBox> unexpected_;
  std::vector<ShellStart> starts_;
  std::unique_ptr<Responder> responder_;
};
