#include "linesorter/engine/stoi.h"

#include <stdexcept>

#include "linesorter/engine/number_parser.h"

namespace WQLineSorter {

std::int32_t Stoi(const WString& text) {
  const WCHAR* end = nullptr;
  const auto value = ParseNumber<std::int64_t>(text.c_str(), &end);
  if (end == text.c_str()) throw std::invalid_argument("invalid stoi argument");
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min() || value > Limits::max()) throw std::out_of_range("stoi argument out of range");
  return static_cast<std::int32_t>(value);
}

}  // namespace WQLineSorter
