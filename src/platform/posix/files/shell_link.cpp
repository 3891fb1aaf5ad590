// Shortcuts as UTF-8 text files: the line `[Shortcut]`, then one line each for `Target=`, `WorkingFolder=`
// and `Description=` with their values. Values are not escaped, as paths contain no line ends.

#include "platform/shell_link.h"

#include "platform/handles.h"
#include "platform/posix/files/fault_gate.h"

namespace {

constexpr std::string_view kSignature = "[Shortcut]\n";

bool HasLineEnd(const WString& text) { return text.find_first_of(W("\r\n")) != WString::npos; }

}  // namespace

bool SaveShellLink(const ShellLink& link, const WString& path) {
  if (Platform::FaultFires("SaveShellLink", {.path = path.c_str()})) return false;
  if (HasLineEnd(link.target) || HasLineEnd(link.workingFolder)) return false;
  const std::string text = std::string(kSignature) + "Target=" + ToUtf8(link.target) +
                           "\nWorkingFolder=" + ToUtf8(link.workingFolder) +
                           "\nDescription=" + ToUtf8(link.description) + "\n";
  FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  if (!file.IsOpen()) return false;
  DWORD done = 0;
  const bool written = WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &done, nullptr) &&
                       done == text.size();
  file.Reset();
  if (!written) DeleteFileW(path.c_str());
  return written;
}

std::string_view ShellLinkSignature() { return kSignature; }
