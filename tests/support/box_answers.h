// Answers the message boxes of the module (MessageBoxW) on the thread of the test, and records them.
//
// For its lifetime the boxes get the given buttons, in order. A box without an answer left gets Cancel and
// counts as unexpected. One at a time.
#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "platform/text.h"

struct ShownBox {
  WString title;
  WString text;
  std::vector<int> buttons;  // their ids, in rising order
  bool hasIcon;
  UINT style;  // as given natively; on Windows a box does not tell it, and it is 0
};

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

  const std::vector<ShownBox>& Boxes() const;
  const std::vector<ShellStart>& Starts() const;
  int Unexpected() const;
  int Unused() const;  // answers that no box asked for

 private:
  class Responder;
  std::unique_ptr<Responder> responder_;
};
