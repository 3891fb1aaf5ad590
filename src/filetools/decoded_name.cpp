#include "filetools/decoded_name.h"

#include <algorithm>

#include "platform/windows_api.h"

namespace {

constexpr WStringView kNoNameCharacters = W("\\/:*?<>|\"");

// The name of a device. If `hasNumber`, one digit follows it, which may be a superscript.
struct DeviceRow {
  WStringView name;
  bool hasNumber;
};

// clang-format off
constexpr DeviceRow kDevices[] = {
  {W("CON"), false},
  {W("CONIN$"), false},
  {W("CONOUT$"), false},
  {W("PRN"), false},
  {W("AUX"), false},
  {W("NUL"), false},
  {W("COM"), true},
  {W("LPT"), true},
};
// clang-format on

constexpr WStringView kDeviceNumbers = W("0123456789\u00B9\u00B2\u00B3");

bool IsSameWord(WStringView one, WStringView other) {
  return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(),
                              static_cast<int>(other.size()), TRUE) == CSTR_EQUAL;
}

WStringView WithoutBlanksAtEnd(WStringView text) { return text.substr(0, text.find_last_not_of(W(' ')) + 1); }

// Returns whether a name is that of a device. The system compares the part before the first dot, without
// trailing blanks.
bool IsDeviceName(WStringView name) {
  const WStringView base = WithoutBlanksAtEnd(name.substr(0, name.find(W('.'))));
  return std::ranges::any_of(kDevices, [base](const DeviceRow& row) {
    if (!row.hasNumber) return IsSameWord(base, row.name);
    return base.size() == row.name.size() + 1 && IsSameWord(base.substr(0, row.name.size()), row.name) &&
           kDeviceNumbers.find(base.back()) != WStringView::npos;
  });
}

bool IsNameCharacter(WCHAR character) {
  return character >= W(' ') && kNoNameCharacters.find(character) == WStringView::npos;
}

}  // namespace

bool IsFileNameToDecode(WStringView name) {
  return name.find_first_not_of(W(". ")) != WStringView::npos && std::ranges::all_of(name, IsNameCharacter) &&
         !IsDeviceName(name);
}
