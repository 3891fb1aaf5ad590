#include "linesorter/tool/scrolled_ruler.h"

#include <algorithm>

namespace WQLineSorter {

ScrolledRuler ScrollRuler(const WString& ruler, int scrolled, int characterWidth) {
  if (scrolled <= 0 || characterWidth <= 0) return {ruler, 0};
  const int cut = scrolled % characterWidth;
  const int scrolledOut = scrolled / characterWidth + (cut > 0 ? 1 : 0);
  const std::size_t first = std::min(static_cast<std::size_t>(scrolledOut), ruler.size());
  return {ruler.substr(first), cut > 0 ? characterWidth - cut : 0};
}

}  // namespace WQLineSorter
