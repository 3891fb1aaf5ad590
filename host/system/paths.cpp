#include "host/system/paths.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "platform/ascii_case.h"

namespace QxHost {
namespace {

constexpr WStringView kLongPrefix = W("\\\\?\\");
constexpr WStringView kLongServerPrefix = W("\\\\?\\UNC\\");
constexpr WStringView kDevicePrefix = W("\\\\.\\");

// Indexed by ASCII character.
constexpr std::array<bool, 128> kImpossible = [] {
  std::array<bool, 128> impossible{};
  for (std::size_t control = 0; control < ' '; ++control) impossible[control] = true;
  for (const char c : std::string_view("\\/:*?\"<>|")) impossible[static_cast<unsigned char>(c)] = true;
  return impossible;
}();

// The limit for folders, in which Windows reserves room for a short file name; the limit for files is higher.
constexpr std::size_t kMaxShortPathChars = MAX_PATH - 13;

bool IsSeparator(WCHAR character) { return character == W('\\') || character == W('/'); }

bool IsDrivePath(WStringView path) { return path.size() >= 2 && path[1] == W(':'); }

// Returns whether a path has the form `Z:` or `Z:a`.
bool IsRelativeToDrive(WStringView path) {
  return IsDrivePath(path) && (path.size() == 2 || !IsSeparator(path[2]));
}

bool IsCutAtEnd(WCHAR character) { return character == W('.') || character == W(' '); }

// Returns whether the system would remove dots or blanks at the end of this name in a path of the short form.
bool IsCutName(WStringView name) {
  return !name.empty() && name != W(".") && name != W("..") && IsCutAtEnd(name.back());
}

bool HasCutName(WStringView fullPath) {
  for (std::size_t at = 1; at <= fullPath.size(); ++at) {
    const bool endsName = at == fullPath.size() || fullPath[at] == W('\\');
    if (endsName && IsCutAtEnd(fullPath[at - 1])) return true;
  }
  return false;
}

// Removes the long prefix if a drive or a server follows it. Returns whether it did so.
bool TakeLongPrefixOff(WString& path) {
  if (path.starts_with(kLongServerPrefix)) {
    path.replace(0, kLongServerPrefix.size(), W("\\\\"));
    return true;
  }
  if (!path.starts_with(kLongPrefix) || !IsDrivePath(WStringView(path).substr(kLongPrefix.size()))) {
    return false;
  }
  path.erase(0, kLongPrefix.size());
  return true;
}

// Returns the position of the first name after the root.
std::size_t RootSize(WStringView path) { return path.size() - SplitRoot(path).rest.size(); }

// Returns the position of the first name that the system would shorten; npos if it would shorten no name.
std::size_t FirstKeptName(WStringView path) {
  for (std::size_t at = RootSize(path); at < path.size();) {
    const std::size_t end = std::min(path.find(W('\\'), at), path.size());
    if (IsCutName(path.substr(at, end - at))) return at;
    at = end + 1;
  }
  return WStringView::npos;
}

// Appends relative names to a full path and resolves ".." in them.
void AppendNames(WString& full, WStringView names) {
  while (!names.empty()) {
    const std::size_t end = std::min(names.find(W('\\')), names.size());
    const WStringView name = names.substr(0, end);
    names.remove_prefix(std::min(end + 1, names.size()));
    if (name.empty() || name == W(".")) continue;
    if (name != W("..")) {
      if (!full.ends_with(W('\\'))) full += W('\\');
      full += name;
    } else if (!SplitRoot(full).rest.empty()) {
      full.resize(std::max(full.rfind(W('\\')), RootSize(full)));
    }
  }
}

// Returns whether a name may be that of a device, which exists in every folder.
bool MayBeDevice(WStringView name) {
  static constexpr WStringView kDevices[] = {W("CON"), W("PRN"), W("AUX"), W("NUL"), W("COM"), W("LPT")};
  if (name.size() < 3) return false;
  const WCHAR begin[] = {AsciiUpper(name[0]), AsciiUpper(name[1]), AsciiUpper(name[2])};
  return std::ranges::find(kDevices, WStringView(begin, 3)) != std::end(kDevices);
}

// Returns whether the system would leave a full path unchanged: it begins with a drive in upper case, and has
// no name that is empty, ends in a dot or a blank, or may be a device.
bool IsPlainFullPath(WStringView path) {
  if (path.size() < 4 || path[0] < W('A') || path[0] > W('Z') || path[1] != W(':') || path[2] != W('\\'))
    return false;
  std::size_t nameAt = 3;
  for (std::size_t at = 3; at <= path.size(); ++at) {
    const WCHAR c = at < path.size() ? path[at] : W('\\');
    if (c == WCHAR() || c == W('/')) return false;
    if (c != W('\\')) continue;
    if (at == nameAt || IsCutAtEnd(path[at - 1])) return false;
    if (at < path.size()) nameAt = at + 1;
  }
  return !MayBeDevice(path.substr(nameAt));
}

// Returns the full path from GetFullPathNameW, for an empty path the current folder; std::nullopt for a
// device and for a failure.
std::optional<WString> SystemFullPath(const WString& path) {
  const WCHAR* const text = path.empty() ? W(".") : path.c_str();
  const DWORD needed = GetFullPathNameW(text, 0, nullptr, nullptr);
  if (needed == 0) return std::nullopt;
  WString full(needed, WCHAR());
  const DWORD size = GetFullPathNameW(text, needed, full.data(), nullptr);
  if (size == 0 || size >= needed) return std::nullopt;
  full.resize(size);
  if (full.starts_with(kDevicePrefix)) return std::nullopt;
  return full;
}

// Returns the size of the UTF-8 sequence at `at`; 0 if it is invalid.
std::size_t SequenceSize(std::string_view bytes, std::size_t at) {
  const auto byteAt = [&](std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); };
  const std::uint8_t first = byteAt(at);
  if (first < 0x80) return 1;
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || at + size > bytes.size()) return 0;
  for (std::size_t index = 1; index < size; ++index) {
    if ((byteAt(at + index) & 0xC0) != 0x80) return 0;
  }
  const std::uint8_t second = byteAt(at + 1);
  const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool surrogate = first == 0xED && second >= 0xA0;
  const bool tooHigh = first == 0xF4 && second >= 0x90;
  return overlong || surrogate || tooHigh ? 0 : size;
}

}  // namespace

WString PathFromUtf8(std::string_view bytes) {
  WString path;
  std::size_t done = 0;
  std::size_t at = 0;
  while (at < bytes.size()) {
    const std::size_t size = static_cast<std::uint8_t>(bytes[at]) < 0x80 ? 1 : SequenceSize(bytes, at);
    if (size != 0) {
      at += size;
      continue;
    }
    path += FromUtf8(bytes.substr(done, at - done));
    path += static_cast<WCHAR>(0xDC00 + static_cast<std::uint8_t>(bytes[at]));
    done = ++at;
  }
  if (done == 0) return FromUtf8(bytes);
  return path + FromUtf8(bytes.substr(done));
}

std::optional<WString> FullPathOf(const WString& path) {
  if (IsPlainFullPath(path)) return path;
  if (path.empty() || path.find(WCHAR()) != WString::npos) return std::nullopt;
  WString text = path;
  std::replace(text.begin(), text.end(), W('/'), W('\\'));
  // Keep names unchanged in a path of the long form, and from the first name on that the short form would
  // shorten.
  const bool isLongForm = TakeLongPrefixOff(text);
  if (IsRelativeToDrive(text)) return std::nullopt;
  const std::size_t kept = isLongForm ? RootSize(text) : FirstKeptName(text);
  std::optional<WString> full = SystemFullPath(text.substr(0, kept));
  if (!full) return std::nullopt;
  if (kept != WString::npos) AppendNames(*full, WStringView(text).substr(kept));
  const std::size_t shortest = IsDrivePath(*full) ? 3 : 2;
  while (full->size() > shortest && full->back() == W('\\')) full->pop_back();
  if (IsDrivePath(*full)) full->front() = AsciiUpper(full->front());
  return full;
}

bool IsFullPath(WStringView path) {
  if (IsDrivePath(path)) return !IsRelativeToDrive(path);
  return path.size() >= 2 && IsSeparator(path[0]);
}

bool IsSystemPath(const WString& fullPath) {
  const bool fitsShortForm = fullPath.size() < kMaxShortPathChars && !HasCutName(fullPath);
  return fitsShortForm || fullPath.starts_with(kLongPrefix);
}

WString SystemPath(const WString& fullPath) {
  if (IsSystemPath(fullPath)) return fullPath;
  if (fullPath.starts_with(W("\\\\"))) return WString(kLongServerPrefix) + fullPath.substr(2);
  return WString(kLongPrefix) + fullPath;
}

RootAndRest SplitRoot(WStringView fullPath) {
  std::size_t end = 0;
  if (IsDrivePath(fullPath)) {
    end = 2;
  } else if (fullPath.starts_with(W("\\\\"))) {
    end = fullPath.find(W('\\'), 2);
    if (end != WStringView::npos) end = fullPath.find(W('\\'), end + 1);
    if (end == WStringView::npos) end = fullPath.size();
  }
  WStringView rest = fullPath.substr(end);
  while (rest.starts_with(W('\\'))) rest.remove_prefix(1);
  return {fullPath.substr(0, end), rest};
}

NameParts SplitName(WStringView name, bool isFolder) {
  const std::size_t dot = isFolder ? WStringView::npos : name.rfind(W('.'));
  if (dot == WStringView::npos) return {name, {}};
  return {name.substr(0, dot), name.substr(dot)};
}

WStringView NameToMake(WStringView name) {
  while (!name.empty() && IsCutAtEnd(name.back())) name.remove_suffix(1);
  return name;
}

bool IsPossibleName(WStringView name) {
  if (name.empty() || name == W(".") || name == W("..")) return false;
  return std::none_of(name.begin(), name.end(), [](WCHAR character) {
    return character < kImpossible.size() && kImpossible[character];
  });
}

bool IsFolder(const WString& fullPath) {
  const DWORD attributes = GetFileAttributesW(SystemPath(fullPath).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

WString PathInFolder(const WString& folder, WStringView name) {
  WString path = folder;
  if (!path.ends_with(W('\\'))) path += W('\\');
  return path += name;
}

DWORD MakeFolder(const WString& fullPath) {
  if (IsFolder(fullPath)) return ERROR_SUCCESS;
  const std::size_t rootSize = SplitRoot(fullPath).root.size();
  // Create each folder from the root on. A folder that exists is not an error, even if another process has
  // just created it.
  for (std::size_t end = rootSize; end != WString::npos;) {
    end = fullPath.find(W('\\'), end + 1);
    const WString folder = fullPath.substr(0, end);
    if (folder.size() <= rootSize + 1 || IsFolder(folder)) continue;
    if (!CreateDirectoryW(SystemPath(folder).c_str(), nullptr)) {
      const DWORD error = GetLastError();
      if (!IsFolder(folder)) return error != ERROR_SUCCESS ? error : ERROR_PATH_NOT_FOUND;
    }
  }
  return ERROR_SUCCESS;
}

}  // namespace QxHost
