#include "host/output/error_text.h"

#include <array>

namespace QxHost {

std::string ErrorText(DWORD error) {
  std::array<WCHAR, 1024> buffer{};
  const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                    error, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
  std::string text = ToUtf8(WStringView(buffer.data(), size));
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' ')) text.pop_back();
  if (text.empty()) text = "unknown error";
  return text + " (" + std::to_string(error) + ")";
}

}  // namespace QxHost
