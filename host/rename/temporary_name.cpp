#include "host/rename/temporary_name.h"

namespace QxHost {
namespace {

// In bytes of UTF-8, which the system of the native build counts. Windows counts characters, which are no
// more.
constexpr std::size_t kMaxNameBytes = 255;

bool IsLowSurrogate(WCHAR character) { return character >= 0xDC00 && character <= 0xDFFF; }

}  // namespace

WString TemporaryName(WStringView name, unsigned number) {
  WString ending = W(".qxhost-tmp");
  if (number > 1) {
    for (const char digit : std::to_string(number)) ending += static_cast<WCHAR>(digit);
  }
  const std::size_t most = kMaxNameBytes - ending.size();
  while (ToUtf8(name).size() > most) {
    const bool isPair = name.size() > 1 && IsLowSurrogate(name.back());
    name.remove_suffix(isPair ? 2 : 1);
  }
  return WString(name) + ending;
}

}  // namespace QxHost
