#include "host/command_line/name_pattern.h"

#include <algorithm>

#include "host/output/failures.h"
#include "host/system/paths.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

bool IsSameLetter(WCHAR left, WCHAR right) {
  return left == right || CompareStringOrdinal(&left, 1, &right, 1, TRUE) == CSTR_EQUAL;
}

bool ComesBefore(const WString& left, const WString& right) {
  return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                              static_cast<int>(right.size()), TRUE) == CSTR_LESS_THAN;
}

bool IsSelfOrParent(WStringView name) { return name == W(".") || name == W(".."); }

// Returns the names in a folder that match the pattern. `folder` ends in a separator, or is empty for the
// current folder.
std::vector<WString> NamesOfPattern(const WString& folder, const WString& pattern) {
  const std::optional<WString> path = FullPathOf(folder.empty() ? WString(W(".")) : folder);
  std::vector<WString> names;
  if (!path) return names;
  const WString mask = *path + (path->ends_with(W('\\')) ? W("*") : W("\\*"));
  WIN32_FIND_DATAW data;
  const FindHandle search(
      FindFirstFileExW(SystemPath(mask).c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
  if (!search.IsOpen()) return names;
  do {
    const bool isHidden = (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    if (isHidden || IsSelfOrParent(data.cFileName)) continue;
    if (MatchesPattern(data.cFileName, pattern)) names.emplace_back(data.cFileName);
  } while (FindNextFileW(search.Get(), &data));
  std::ranges::sort(names, ComesBefore);
  return names;
}

}  // namespace

bool MatchesPattern(WStringView name, WStringView pattern) {
  if (pattern == W("*.*")) return true;
  std::size_t at = 0;
  std::size_t inPattern = 0;
  // The position of the last star, and the end of the text that it matches so far.
  std::size_t star = WStringView::npos;
  std::size_t taken = 0;
  while (at < name.size()) {
    const bool hasMore = inPattern < pattern.size();
    if (hasMore && pattern[inPattern] == W('*')) {
      star = inPattern++;
      taken = at;
    } else if (hasMore && (pattern[inPattern] == W('?') || IsSameLetter(pattern[inPattern], name[at]))) {
      ++inPattern;
      ++at;
    } else if (star != WStringView::npos) {
      inPattern = star + 1;
      at = ++taken;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(W('*'), inPattern) == WStringView::npos;
}

std::vector<std::string> WithPatternsFound(const std::vector<std::string>& items) {
  std::vector<std::string> found;
  for (const std::string& item : items) {
    const WString text = PathFromUtf8(item);
    // The prefix \\?\ of a long path is not a pattern.
    const std::size_t from = text.starts_with(W("\\\\?\\")) ? 4 : 0;
    const std::size_t nameAt = text.find_last_of(W("\\/")) + 1;  // npos + 1 is 0
    const std::size_t first = text.find_first_of(W("*?"), from);
    if (first == WString::npos) {
      found.push_back(item);
      continue;
    }
    if (first < nameAt) throw BadCall("ITEM: " + item + ": only the last name can have * and ?");
    const WString folder = text.substr(0, nameAt);
    const std::vector<WString> names = NamesOfPattern(folder, text.substr(nameAt));
    if (names.empty()) throw BadCall("ITEM: no file or folder is named " + item);
    for (const WString& name : names) found.push_back(ToUtf8(folder + name));
  }
  return found;
}

}  // namespace QxHost
