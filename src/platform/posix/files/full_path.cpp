#include "platform/posix/files/full_path.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include "platform/ascii_case.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/name_encoding.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace Platform {

namespace {

struct FreeMemory {
  void operator()(char* memory) const { std::free(memory); }
};

// Returns the current folder as Z:\a\b; empty if it was removed.
std::u16string CurrentFolder() {
  const std::unique_ptr<char, FreeMemory> native(getcwd(nullptr, 0));
  if (!native || native.get()[0] != '/') return {};
  std::u16string result = u"Z:" + WideName(native.get());
  std::replace(result.begin(), result.end(), u'/', u'\\');
  return result;
}

// The size of `\\server\share\` at the beginning of `path`, or of all of it if it is shorter.
std::size_t ServerRootSize(std::u16string_view path) {
  std::size_t at = 2;
  for (int part = 0; part < 2; ++part) {
    while (at < path.size() && !IsSeparator(path[at])) ++at;
    while (at < path.size() && IsSeparator(path[at])) ++at;
  }
  return at;
}

std::size_t DeviceRootSize(std::u16string_view path) {
  const std::u16string_view rest = path.substr(4);
  return RootOf(rest) == PathRoot::kDrive ? 7 : 4;
}

// Resolves "." and ".." and removes repeated separators in the part of a path after its root.
std::u16string Collapse(std::u16string_view path) {
  std::vector<std::u16string_view> names;
  bool endsInSeparator = false;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(u'\\'), path.size());
    std::u16string_view name = path.substr(0, end);
    const bool isLast = end == path.size();
    path.remove_prefix(isLast ? end : end + 1);
    endsInSeparator = !isLast;
    if (name.empty() || name == u".") {
      continue;
    }
    if (name == u"..") {
      if (!names.empty()) names.pop_back();
      continue;
    }
    if (!isLast && name.ends_with(u'.')) name.remove_suffix(1);
    names.push_back(name);
  }
  std::u16string result;
  for (const std::u16string_view name : names) {
    if (!result.empty()) result += u'\\';
    result += name;
  }
  if (endsInSeparator && !names.empty()) result += u'\\';
  result.erase(result.find_last_not_of(u" .") + 1);
  return result;
}

bool IsBlank(std::u16string_view path) { return path.find_first_not_of(u' ') == path.npos; }

}  // namespace

PathRoot RootOf(std::u16string_view path) {
  if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) {
    const bool isDevice = path.size() >= 4 && (path[2] == u'?' || path[2] == u'.') && IsSeparator(path[3]);
    return isDevice ? PathRoot::kDevice : PathRoot::kServer;
  }
  if (!path.empty() && IsSeparator(path[0])) return PathRoot::kRooted;
  if (path.size() >= 2 && IsAsciiLetter(path[0]) && path[1] == u':') {
    return path.size() >= 3 && IsSeparator(path[2]) ? PathRoot::kDrive : PathRoot::kDriveRelative;
  }
  return PathRoot::kNone;
}

bool IsPlainFullPath(std::u16string_view path) {
  if (path.size() < 4 || !IsAsciiLetter(path[0]) || path[1] != u':' || path[2] != u'\\') return false;
  char16_t before = u'\\';
  for (const char16_t unit : path.substr(3)) {
    const bool endsName = unit == u'\\';
    if (unit == u'/' || (endsName && (before == u'\\' || before == u'.' || before == u' '))) return false;
    before = unit;
  }
  return before != u'\\' && before != u'.' && before != u' ';
}

std::u16string FullPath(std::u16string_view path) {
  if (IsPlainFullPath(path)) return std::u16string(path);
  if (IsBlank(path)) return {};
  std::u16string text;
  std::size_t rootSize = 3;
  const PathRoot root = RootOf(path);
  switch (root) {
    case PathRoot::kDevice:
      text = path;
      rootSize = DeviceRootSize(path);
      break;
    case PathRoot::kServer:
      text = path;
      rootSize = ServerRootSize(path);
      break;
    case PathRoot::kDrive:
      text = path;
      break;
    case PathRoot::kRooted:
      text = u"Z:";
      text += path;
      break;
    case PathRoot::kDriveRelative:
    case PathRoot::kNone: {
      const bool hasDrive = root == PathRoot::kDriveRelative;
      if (hasDrive && !IsOurDrive(path[0])) {
        text = path.substr(0, 2);
      } else {
        text = CurrentFolder();
        if (text.empty()) return {};
      }
      if (!text.ends_with(u'\\')) text += u'\\';
      text += path.substr(hasDrive ? 2 : 0);
      break;
    }
  }
  std::replace(text.begin(), text.end(), u'/', u'\\');
  return text.substr(0, rootSize) + Collapse(std::u16string_view(text).substr(rootSize));
}

}  // namespace Platform

DWORD GetFullPathNameW(const WCHAR* path, DWORD size, WCHAR* buffer, WCHAR** filePart) {
  if (Platform::FaultFires("GetFullPathNameW")) return 0;
  const std::u16string full = path ? Platform::FullPath(path) : std::u16string();
  if (full.empty()) {
    SetLastError(ERROR_INVALID_NAME);
    return 0;
  }
  if (!buffer || full.size() >= size) return static_cast<DWORD>(full.size() + 1);
  buffer[full.copy(buffer, full.size())] = u'\0';
  if (filePart) {
    const std::size_t name = full.find_last_of(u'\\') + 1;
    *filePart = name < full.size() ? buffer + name : nullptr;
  }
  return static_cast<DWORD>(full.size());
}
