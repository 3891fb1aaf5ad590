// A callback that records the calls of a run over a file, and answers its questions.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "findreplace/engine/find_and_replace_callback.h"
#include "platform/text.h"

class RecordingCallback final : public QXFindAndReplace::IFindAndReplaceCallback {
  using Result = QXFindAndReplace::ConfirmResult;
  using Format = WQDR::TextFormat;

 public:
  // "begin PATH", "end", "error TEXT (CODE)", "wide error TEXT (CODE)", "ask FORMAT", in order.
  std::vector<std::string> calls;
  // The answers to the questions, in order; Replace if none is left. After Cancel, IsCancelled returns true.
  std::deque<Result> answers;
  // Called at the beginning of a file, at each question, and at each report of an error.
  std::function<void()> onBegin = [] {};
  std::function<void()> onQuestion = [] {};
  std::function<void()> onError = [] {};

  void BeginFile(const WCHAR* path) override {
    calls.push_back("begin " + ToUtf8(path));
    onBegin();
  }
  void EndFile() override { calls.push_back("end"); }
  void ReportError(const WCHAR* message, std::uint32_t code) override {
    calls.push_back("wide error " + ToUtf8(message) + " (" + std::to_string(code) + ")");
    onError();
  }
  void ReportError(const char* message, std::uint32_t code) override {
    calls.push_back("error " + std::string(message) + " (" + std::to_string(code) + ")");
    onError();
  }
  Result ConfirmReplace(const WCHAR*, Format format, const QXFindAndReplace::TextRange&,
                        const QXFindAndReplace::Highlight&, const WCHAR*, std::uint32_t) override {
    return Answer(format);
  }
  Result ConfirmReplace(const char*, Format format, const QXFindAndReplace::TextRange&,
                        const QXFindAndReplace::Highlight&, const char*, std::uint32_t) override {
    return Answer(format);
  }
  bool IsCancelled() override { return isCancelled_; }

 private:
  Result Answer(Format format) {
    calls.push_back("ask " + std::to_string(static_cast<int>(format)));
    onQuestion();
    if (answers.empty()) return Result::Replace;
    const Result answer = answers.front();
    answers.pop_front();
    isCancelled_ = isCancelled_ || answer == Result::Cancel;
    return answer;
  }

  bool isCancelled_ = false;
};
