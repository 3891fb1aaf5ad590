// The output of a run: results go to standard output, problems to standard error.
//
// Lines are buffered and written in blocks, so that many lines are cheap. Call Flush before waiting for user
// input. May be used from any thread.
#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace QxHost {

class Output {
 public:
  // Writes bytes; returns false if that fails.
  using Sink = std::function<bool(std::string_view bytes)>;

  Output(Sink standardOutput, Sink standardError)
      : standardOutput_(std::move(standardOutput)), standardError_(std::move(standardError)) {}

  // Writes one line, and a line end after it.
  void Line(std::string_view text);
  // Writes a line to standard error, after all earlier output.
  void Problem(std::string_view text);
  // Writes a prompt to standard error, without a line end.
  void Prompt(std::string_view text);
  void Flush();

  // From Hold to Release, lines and problems are stored and not written, so that a slow reader does not block
  // the run. A prompt also ends the hold.
  void Hold();
  void Release();

  // Returns whether a write to standard output has failed.
  bool HasFailed();

 private:
  void FlushLocked();
  void ReleaseLocked();

  Sink standardOutput_;
  Sink standardError_;
  std::mutex mutex_;
  std::string pending_;
  struct Held {
    std::string output;
    std::string problem;  // written after the output
  };
  std::vector<Held> held_;
  bool isHeld_ = false;
  bool failed_ = false;
};

// Holds back the lines of an output while the object exists.
class HeldOutput {
 public:
  explicit HeldOutput(Output& output) : output_(output) { output_.Hold(); }
  HeldOutput(const HeldOutput&) = delete;
  HeldOutput& operator=(const HeldOutput&) = delete;
  ~HeldOutput() { output_.Release(); }

 private:
  Output& output_;
};

}  // namespace QxHost
