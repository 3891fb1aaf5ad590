#include "platform/shell_link.h"

#include <array>

#include "platform/handles.h"

bool IsShellLink(const WString& path) {
  const std::string_view signature = ShellLinkSignature();
  const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
  if (!file.IsOpen()) return false;
  std::array<char, 64> bytes;
  DWORD count = 0;
  return ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(signature.size()), &count, nullptr) &&
         std::string_view(bytes.data(), count) == signature;
}
