// The process behind the helper channel, and the bytes that go to and fro.
#pragma once

#include <chrono>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace QxHost {

// How the helper is started. No text has a quotation mark.
struct HelperCommand {
  WString program;  // full path
  std::vector<WString> arguments;
};

using Deadline = std::chrono::steady_clock::time_point;

// A running process that reads its standard input from us and writes its standard output to us; standard
// error is ours. One thread uses it.
class HelperProcess {
 public:
  virtual ~HelperProcess() = default;

  // All of `bytes`. 0, or an error: ERROR_TIMEOUT (1460) past the deadline, ERROR_BROKEN_PIPE (109) if the
  // process does not listen any more.
  virtual DWORD Write(std::string_view bytes, Deadline deadline) = 0;
  // As many bytes as asked for. Errors as for Write.
  virtual DWORD Read(char* buffer, std::size_t size, Deadline deadline) = 0;

  // Lets the process see the end of its input, and waits until it has ended, or ends it at the deadline.
  virtual void End(Deadline deadline) = 0;
};

// Null if the process cannot be started. Whoever lets go of it without End ends it at once.
std::unique_ptr<HelperProcess> StartHelper(const HelperCommand& command);

// The program that is running.
WString OwnProgram();

}  // namespace QxHost
