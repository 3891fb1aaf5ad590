// Formats from the host's language table: any text and any limit.
#include "frame/services/format_text.h"

#include <algorithm>

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const std::uint32_t value = input.TakeNumber();
  const std::size_t limit = input.TakeByte() * 8U;
  const WString format = input.TakeText();
  const WString cut = FormatCount(format, value, limit);
  const WString whole = FormatCount(format, value, 1 << 20);
  Require(cut.size() < std::max<std::size_t>(limit, 1));
  Require(whole.starts_with(cut));
  if (format.find(W('%')) == WString::npos) Require(whole == format);
  return 0;
}
