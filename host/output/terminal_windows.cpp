#include <algorithm>
#include <limits>

#include "host/output/terminal.h"
#include "platform/text.h"

namespace QxHost {
namespace {

bool IsConsole(HANDLE stream) {
  DWORD mode = 0;
  return GetConsoleMode(stream, &mode) != FALSE;
}

// Writes a text to a console, which needs UTF-16; all other streams get bytes.
bool WriteConsoleText(HANDLE stream, const WString& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const DWORD count = static_cast<DWORD>(std::min<std::size_t>(text.size() - done, 8192));
    DWORD written = 0;
    if (!WriteConsoleW(stream, text.data() + done, count, &written, nullptr) || written == 0) return false;
    done += written;
  }
  return true;
}

bool WriteAll(DWORD number, std::string_view bytes) {
  const HANDLE stream = GetStdHandle(number);
  if (IsConsole(stream)) return WriteConsoleText(stream, FromUtf8(bytes));
  while (!bytes.empty()) {
    const DWORD count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 20));
    DWORD written = 0;
    if (!WriteFile(stream, bytes.data(), count, &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

}  // namespace

bool WriteStandardOutput(std::string_view bytes) { return WriteAll(STD_OUTPUT_HANDLE, bytes); }
void WriteStandardError(std::string_view bytes) { WriteAll(STD_ERROR_HANDLE, bytes); }
bool StandardInputIsTerminal() { return IsConsole(GetStdHandle(STD_INPUT_HANDLE)); }

std::optional<std::string> ReadTerminalLine() {
  const HANDLE stream = GetStdHandle(STD_INPUT_HANDLE);
  WString line;
  WCHAR character = 0;
  DWORD done = 0;
  while (ReadConsoleW(stream, &character, 1, &done, nullptr) && done == 1) {
    if (character == L'\n') return ToUtf8(line);
    if (character != L'\r') line += character;
  }
  if (line.empty()) return std::nullopt;
  return ToUtf8(line);
}

std::optional<std::size_t> ReadStandardInputPart(char* buffer, std::size_t size) {
  const auto part = static_cast<DWORD>(std::min<std::size_t>(size, 1u << 20));
  DWORD done = 0;
  if (ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer, part, &done, nullptr)) return done;
  // The other end has closed the pipe: that is the end of the input.
  if (GetLastError() == ERROR_BROKEN_PIPE) return 0;
  return std::nullopt;
}

std::size_t ReadStandardInputBytes(char* buffer, std::size_t size) {
  const HANDLE stream = GetStdHandle(STD_INPUT_HANDLE);
  std::size_t total = 0;
  while (total < size) {
    const auto part = static_cast<DWORD>(std::min<std::size_t>(size - total, 1u << 20));
    DWORD done = 0;
    if (!ReadFile(stream, buffer + total, part, &done, nullptr) || done == 0) break;
    total += done;
  }
  return total;
}

}  // namespace QxHost
