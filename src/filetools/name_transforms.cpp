#include "filetools/name_transforms.h"

#include <algorithm>
#include <array>

#include "filetools/replace_form.h"
#include "filetools/title_case.h"
#include "frame/host/command_numbers.h"

using namespace Velmora::SDK;

namespace {

constexpr u32 kNameChars = 4096;
constexpr u32 kExtensionChars = 2048;
constexpr std::size_t kTitleComparedChars = 4096;
constexpr std::size_t kReplaceComparedChars = 2048;

WString NameOf(IHostFileItem& item) {
  std::array<WCHAR, kNameChars> buffer = {};
  return WString(ViewOf(item.GetName(buffer.data(), kNameChars)));
}

WString BaseNameOf(IHostFileItem& item) {
  std::array<WCHAR, kNameChars> buffer = {};
  item.GetBaseName(buffer.data(), kNameChars);
  return buffer.data();
}

enum class Dot : u32 { kWith = 0, kWithout = 1 };

WString ExtensionOf(IHostFileItem& item, Dot dot) {
  std::array<WCHAR, kExtensionChars> buffer = {};
  item.GetExtension(buffer.data(), kExtensionChars, static_cast<u32>(dot));
  return buffer.data();
}

bool IsFolder(IHostFileItem& item) { return (item.GetAttributes() & FILE_ATTRIBUTE_DIRECTORY) != 0; }

// Sets the new name and returns true if it differs from the present one within the first `comparedChars`
// characters (C-304). Otherwise clears it and returns false.
bool SetNewName(FileItemEntry& entry, WString newName, std::size_t comparedChars = WString::npos) {
  const WString name = NameOf(*entry.item);
  if (WStringView(newName).substr(0, comparedChars) == WStringView(name).substr(0, comparedChars)) {
    entry.newName.clear();
    return false;
  }
  entry.newName = std::move(newName);
  return true;
}

using CaseMapping = WString (*)(WStringView);

template <CaseMapping mapping>
bool MapName(FileItemEntry& entry) {
  return SetNewName(entry, mapping(NameOf(*entry.item)));
}

template <CaseMapping mapping>
bool MapBaseName(FileItemEntry& entry) {
  return SetNewName(entry, mapping(BaseNameOf(*entry.item)) + ExtensionOf(*entry.item, Dot::kWith));
}

template <CaseMapping mapping>
bool MapExtension(FileItemEntry& entry) {
  return SetNewName(entry, BaseNameOf(*entry.item) + mapping(ExtensionOf(*entry.item, Dot::kWith)));
}

bool MapToTitleCase(FileItemEntry& entry) {
  WString newName = BaseNameOf(*entry.item);
  TitleCase(newName);
  newName += ToLowerCase(ExtensionOf(*entry.item, Dot::kWith));
  return SetNewName(entry, std::move(newName), kTitleComparedChars);
}

bool TidyName(FileItemEntry& entry) {
  WString base = ToLowerCase(BaseNameOf(*entry.item));
  WString extension = ToLowerCase(ExtensionOf(*entry.item, Dot::kWithout));
  for (WString* text : {&base, &extension}) {
    std::replace(text->begin(), text->end(), W('_'), W(' '));
    std::replace(text->begin(), text->end(), W('.'), W(' '));
  }
  TitleCase(base);
  // The dot is always there, so a name without an extension ends in a dot (C-302).
  return SetNewName(entry, base + W('.') + extension);
}

// Replaces one character by another: in a file's name before its last dot, in a folder's name everywhere
// (C-303).
template <WCHAR from, WCHAR to>
bool SwapCharacter(FileItemEntry& entry) {
  WString newName = NameOf(*entry.item);
  const std::size_t dot = IsFolder(*entry.item) ? WString::npos : newName.rfind(W('.'));
  const std::size_t size = std::min(dot, newName.size());
  std::replace(newName.begin(), newName.begin() + static_cast<std::ptrdiff_t>(size), from, to);
  return SetNewName(entry, std::move(newName));
}

struct TransformRow {
  s32 command;
  NameTransform transform;
};

constexpr TransformRow kTransforms[] = {
    {kCommandUpperCase, MapName<ToUpperCase>},
    {kCommandLowerCase, MapName<ToLowerCase>},
    {kCommandTitleCase, MapToTitleCase},
    {kCommandUnderscoresToBlanks, SwapCharacter<W('_'), W(' ')>},
    {kCommandUnderscoresToDots, SwapCharacter<W('_'), W('.')>},
    {kCommandBlanksToUnderscores, SwapCharacter<W(' '), W('_')>},
    {kCommandBlanksToDots, SwapCharacter<W(' '), W('.')>},
    {kCommandDotsToUnderscores, SwapCharacter<W('.'), W('_')>},
    {kCommandDotsToBlanks, SwapCharacter<W('.'), W(' ')>},
    {kCommandHyphensToBlanks, SwapCharacter<W('-'), W(' ')>},
    {kCommandBlanksToHyphens, SwapCharacter<W(' '), W('-')>},
    {kCommandUpperCaseBase, MapBaseName<ToUpperCase>},
    {kCommandUpperCaseExtension, MapExtension<ToUpperCase>},
    {kCommandLowerCaseBase, MapBaseName<ToLowerCase>},
    {kCommandLowerCaseExtension, MapExtension<ToLowerCase>},
    {kCommandTidyName, TidyName},
};

WString ReplaceAll(WStringView text, WStringView find, WStringView replace) {
  WString result;
  if (find.empty()) return WString(text);
  for (;;) {
    const std::size_t at = text.find(find);
    result += text.substr(0, at);
    if (at == WStringView::npos) return result;
    result += replace;
    text.remove_prefix(at + find.size());
  }
}

}  // namespace

NameTransform FindNameTransform(s32 commandNumber) {
  const auto* const row = std::ranges::find(kTransforms, commandNumber, &TransformRow::command);
  return row == std::end(kTransforms) ? nullptr : row->transform;
}

bool ReplaceInName(FileItemEntry& entry, WStringView find, WStringView replace, int part) {
  const WString name = NameOf(*entry.item);
  if (IsFolder(*entry.item)) {
    return SetNewName(entry, ReplaceAll(name, find, replace), kReplaceComparedChars);
  }
  const std::size_t dot = std::min(name.rfind(W('.')), name.size());
  WString base = name.substr(0, dot);
  WString extension = name.substr(dot);
  switch (part) {
    case ReplaceForm::kBaseName:
      base = ReplaceAll(base, find, replace);
      break;
    case ReplaceForm::kExtension:
      extension = ReplaceAll(extension, find, replace);
      break;
    case ReplaceForm::kWholeName:
      base = ReplaceAll(name, find, replace);
      extension.clear();
      break;
    default:
      break;
  }
  return SetNewName(entry, base + extension, kReplaceComparedChars);
}
