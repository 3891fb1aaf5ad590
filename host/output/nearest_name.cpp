#include "host/output/nearest_name.h"

#include <algorithm>
#include <vector>

#include "platform/ascii_case.h"

namespace QxHost {
namespace {

constexpr std::size_t kTypedPerMistake = 3;
constexpr std::size_t kShortestPrefix = 2;

// Returns the least number of mistakes that turn `name` into `typed` (the restricted Damerau-Levenshtein
// distance). A row contains the distances of one prefix of `typed`, indexed by the length of the prefix of
// `name`.
std::size_t CountMistakes(std::string_view typed, std::string_view name) {
  std::vector<std::size_t> beforeLast(name.size() + 1);
  std::vector<std::size_t> last(name.size() + 1);
  std::vector<std::size_t> row(name.size() + 1);
  for (std::size_t at = 0; at <= name.size(); ++at) last[at] = at;
  for (std::size_t line = 1; line <= typed.size(); ++line) {
    row[0] = line;
    for (std::size_t at = 1; at <= name.size(); ++at) {
      const bool isSame = typed[line - 1] == name[at - 1];
      row[at] = std::min({last[at] + 1, row[at - 1] + 1, last[at - 1] + (isSame ? 0 : 1)});
      const bool isExchange =
          line > 1 && at > 1 && typed[line - 1] == name[at - 2] && typed[line - 2] == name[at - 1];
      if (isExchange) row[at] = std::min(row[at], beforeLast[at - 2] + 1);
    }
    beforeLast.swap(last);
    last.swap(row);
  }
  return last[name.size()];
}

}  // namespace

std::string_view NearestName(std::string_view typed, std::span<const std::string_view> names,
                             std::size_t maxMistakes) {
  const std::string loweredTyped = AsciiLower(typed);
  maxMistakes = std::min(maxMistakes, (typed.size() + kTypedPerMistake - 1) / kTypedPerMistake);
  std::string_view nearest;
  std::size_t fewest = maxMistakes + 1;
  for (const std::string_view name : names) {
    const std::string loweredName = AsciiLower(name);
    std::size_t mistakes = fewest;
    // The difference of the lengths is a lower bound, so texts of very different lengths are not compared.
    if (typed.size() < name.size() + fewest && name.size() < typed.size() + fewest) {
      mistakes = CountMistakes(loweredTyped, loweredName);
    }
    const bool isPrefix = typed.size() >= kShortestPrefix && loweredName.starts_with(loweredTyped);
    if (isPrefix) mistakes = std::min<std::size_t>(mistakes, 1);
    if (mistakes >= fewest) continue;
    fewest = mistakes;
    nearest = name;
  }
  return nearest;
}

std::string DidYouMean(std::string_view typed, std::span<const std::string_view> names) {
  const std::string_view nearest = NearestName(typed, names);
  return nearest.empty() ? std::string() : ". Did you mean " + std::string(nearest) + "?";
}

}  // namespace QxHost
