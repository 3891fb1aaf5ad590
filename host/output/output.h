// Where a run's lines go: standard output for what happened, standard error for what went wrong.
//
// Lines are gathered and written in blocks, so that a hundred thousand of them are cheap; whoever is about to
// wait for a person flushes first. May be used from any thread.
#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace QxHost {

class Output {
 public:
  // Takes bytes; false if they could not be written.
  using Sink = std::function<bool(std::string_view bytes)>;

  Output(Sink standardOutput, Sink standardError)
      : standardOutput_(std::move(standardOutput)), standardError_(std::move(standardError)) {}

  // One line, to which the line end is added.
  void Line(std::string_view text);
  // A line on standard error, after all that was written before it.
  void Problem(std::string_view text);
  // A prompt on standard error, without a line end.
  void Prompt(std::string_view text);
  void Flush();

  // From Hold to LetGo lines and problems are kept, so that no reader who is slow is waited for. A prompt
  // lets go as well.
  void Hold();
  void LetGo();

  // Whether a write to standard output has failed.
  bool HasFailed();

 private:
  void FlushLocked();
  void LetGoLocked();

  Sink standardOutput_;
  Sink standardError_;
  std::mutex mutex_;
  std::string pending_;
  struct Held {
    std::string output;
    std::string problem;  // after the output
  };
  std::vector<Held> held_;
  bool isHeld_ = false;
  bool failed_ = false;
};

// Holds the lines of an output back while it exists.
class HeldOutput {
 public:
  explicit HeldOutput(Output& output) : output_(output) { output_.Hold(); }
  HeldOutput(const HeldOutput&) = delete;
  HeldOutput& operator=(const HeldOutput&) = delete;
  ~HeldOutput() { output_.LetGo(); }

 private:
  Output& output_;
};

}  // namespace QxHost
