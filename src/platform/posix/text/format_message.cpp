// FormatMessageW for the texts of error numbers, and LocalFree for what it allocates.

#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/error_texts.h"
#include "platform/posix/windows_functions.h"

namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

// Returns the Windows error that an HRESULT wraps, whose text it shares; any other number unchanged.
DWORD ErrorInResult(DWORD messageId) {
  constexpr DWORD kWrapped = 0x80070000;
  return (messageId & 0xFFFF0000) == kWrapped ? messageId & 0xFFFF : messageId;
}

// Handles FORMAT_MESSAGE_ALLOCATE_BUFFER: `buffer` then points to a pointer, in which this stores an
// allocated copy of the text. LocalFree frees it. Returns false if there is no memory.
bool Allocate(std::u16string_view text, WCHAR* buffer) {
  void* memory = std::malloc((text.size() + 1) * sizeof(WCHAR));
  std::memcpy(buffer, &memory, sizeof memory);
  if (!memory) return false;
  auto* units = static_cast<WCHAR*>(memory);
  units[text.copy(units, text.size())] = u'\0';
  return true;
}

}  // namespace

DWORD FormatMessageW(DWORD flags, const void* source, DWORD messageId, DWORD language, WCHAR* buffer,
                     DWORD size, void*) {
  const auto fail = [](DWORD error) {
    Platform::FailWith(error);
    return DWORD{0};
  };
  if (Platform::FaultFires("FormatMessageW", {.flags = flags, .source = source, .language = language}))
    return 0;
  if (!buffer || (flags & (FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_FROM_HMODULE)) == 0) {
    return fail(ERROR_INVALID_PARAMETER);
  }
  const bool allocates = (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) != 0;
  const void* none = nullptr;
  if (allocates) std::memcpy(buffer, &none, sizeof none);
  std::u16string text;
  if ((flags & FORMAT_MESSAGE_FROM_SYSTEM) != 0) text = Platform::ErrorText(ErrorInResult(messageId));
  if (text.empty()) return fail(ERROR_MR_MID_NOT_FOUND);
  text += kLineEnd;
  if (allocates) {
    if (!Allocate(text, buffer)) return fail(ERROR_NOT_ENOUGH_MEMORY);
  } else {
    if (text.size() >= size) return fail(ERROR_INSUFFICIENT_BUFFER);
    buffer[text.copy(buffer, text.size())] = u'\0';
  }
  return static_cast<DWORD>(text.size());
}

HLOCAL LocalFree(HLOCAL memory) {
  if (Platform::FaultFires("LocalFree")) return memory;
  std::free(memory);
  return nullptr;
}
