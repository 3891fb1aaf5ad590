#include <unistd.h>

#include <cerrno>

#include "host/output/terminal.h"

namespace QxHost {
namespace {

bool WriteAll(int stream, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t done = write(stream, bytes.data(), bytes.size());
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  return true;
}

// Returns the number of bytes read, 0 at the end, -1 for a failure.
ssize_t ReadSome(char* buffer, std::size_t size) {
  ssize_t done = 0;
  do {
    done = read(STDIN_FILENO, buffer, size);
  } while (done < 0 && errno == EINTR);
  return done;
}

}  // namespace

bool WriteStandardOutput(std::string_view bytes) { return WriteAll(STDOUT_FILENO, bytes); }
void WriteStandardError(std::string_view bytes) { WriteAll(STDERR_FILENO, bytes); }
bool StandardInputIsTerminal() { return isatty(STDIN_FILENO) == 1; }

std::optional<std::string> ReadTerminalLine() {
  std::string line;
  char character = 0;
  while (ReadSome(&character, 1) == 1) {
    if (character == '\n') return line;
    line += character;
  }
  if (line.empty()) return std::nullopt;
  return line;
}

std::optional<std::size_t> ReadStandardInputPart(char* buffer, std::size_t size) {
  const ssize_t done = ReadSome(buffer, size);
  if (done < 0) return std::nullopt;
  return static_cast<std::size_t>(done);
}

std::size_t ReadStandardInputBytes(char* buffer, std::size_t size) {
  std::size_t total = 0;
  while (total < size) {
    const ssize_t done = ReadSome(buffer + total, size - total);
    if (done <= 0) break;
    total += static_cast<std::size_t>(done);
  }
  return total;
}

}  // namespace QxHost
