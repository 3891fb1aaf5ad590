// The process of the helper channel, and the transfer of bytes to and from it.
#pragma once

#include <chrono>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace QxHost {

// The command line of the helper. No text may contain a quotation mark.
struct HelperCommand {
  WString program;  // full path
  std::vector<WString> arguments;
};

using Deadline = std::chrono::steady_clock::time_point;

// A running process whose standard input and output are connected to this process; it shares our standard
// error. Not thread-safe.
class HelperProcess {
 public:
  virtual ~HelperProcess() = default;

  // Writes all bytes. Returns 0 or an error: ERROR_TIMEOUT (1460) after the deadline, ERROR_BROKEN_PIPE (109)
  // if the process has closed its input.
  virtual DWORD Write(std::string_view bytes, Deadline deadline) = 0;
  // Reads exactly `size` bytes. Returns 0 or an error as Write does.
  virtual DWORD Read(char* buffer, std::size_t size, Deadline deadline) = 0;

  // Closes the input of the process and waits until it ends; terminates it at the deadline.
  virtual void End(Deadline deadline) = 0;
};

// Starts the helper. Returns null if that fails. Destroying the object without a call of End terminates the
// process at once.
std::unique_ptr<HelperProcess> StartHelper(const HelperCommand& command);

// Returns the full path of the running program.
WString OwnProgram();

}  // namespace QxHost
