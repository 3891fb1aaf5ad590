#include "host/services/file_properties.h"

#include <algorithm>
#include <string>

#include "host/services/file_facts.h"

namespace QxHost {
namespace {

using Velmora::SDK::FilePropertyValue;
using Velmora::SDK::IHostPropertyList;

struct AttributeLetter {
  DWORD bit;
  WCHAR letter;
};

constexpr AttributeLetter kAttributeLetters[] = {
    {FILE_ATTRIBUTE_READONLY, W('R')}, {FILE_ATTRIBUTE_HIDDEN, W('H')},
    {FILE_ATTRIBUTE_SYSTEM, W('S')},   {FILE_ATTRIBUTE_DIRECTORY, W('D')},
    {FILE_ATTRIBUTE_ARCHIVE, W('A')},  {FILE_ATTRIBUTE_REPARSE_POINT, W('L')},
};

std::optional<PropertyValue> SizeText(const FileFacts& facts) {
  if ((facts.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
  return FromUtf8(std::to_string(facts.size));
}

std::optional<PropertyValue> AttributesText(const FileFacts& facts) {
  WString letters;
  for (const auto& [bit, letter] : kAttributeLetters) {
    if ((facts.attributes & bit) != 0) letters += letter;
  }
  if (letters.empty()) return std::nullopt;
  return letters;
}

template <std::uint64_t FileFacts::*date>
std::optional<PropertyValue> DateOf(const FileFacts& facts) {
  return PropertyValue(std::in_place_type<u64>, facts.*date);
}

struct OwnPropertyRow {
  const WCHAR* name;
  const WCHAR* displayName;
  std::optional<PropertyValue> (*value)(const FileFacts& facts);
};

constexpr OwnPropertyRow kOwnProperties[] = {
    {W("size"), W("Size in bytes"), SizeText},
    {W("created"), W("Date created"), DateOf<&FileFacts::created>},
    {W("modified"), W("Date modified"), DateOf<&FileFacts::modified>},
    {W("accessed"), W("Date accessed"), DateOf<&FileFacts::accessed>},
    {W("attributes"), W("Attributes (R, H, S, D, A, L)"), AttributesText},
};

bool IsSamePropertyName(WStringView lhs, WStringView rhs) {
  return CompareStringOrdinal(lhs.data(), static_cast<int>(lhs.size()), rhs.data(),
                              static_cast<int>(rhs.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

bool PropertyList::At(u32 index, WCHAR* internalName, WCHAR* displayName, u32 size) {
  if (index >= rows_.size() || !internalName || !displayName || size == 0) return false;
  CopyTerminated<WCHAR>(internalName, size, rows_[index].first);
  CopyTerminated<WCHAR>(displayName, size, rows_[index].second);
  return true;
}

FileProperties::FileProperties() {
  for (const OwnPropertyRow& row : kOwnProperties) {
    Add({row.name, row.displayName, [value = row.value](const WString& fullPath) {
           const std::optional<FileFacts> facts = ReadFileFacts(fullPath);
           return facts ? value(*facts) : std::nullopt;
         }});
  }
}

u32 FileProperties::GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* valueRecord,
                             const WCHAR* fullPath) {
  if (!buffer || size == 0) return 0;
  buffer[0] = WCHAR();
  const auto found = std::ranges::find_if(properties_, [name](const FileProperty& property) {
    return IsSamePropertyName(property.name, ViewOf(name));
  });
  if (found == properties_.end()) return 0;
  const std::optional<PropertyValue> value = found->value(WString(ViewOf(fullPath)));
  if (!value) return 0;
  if (const u64* const date = std::get_if<u64>(&*value)) {
    if (!valueRecord || *date == 0) return 0;
    static_cast<FilePropertyValue*>(valueRecord)->date = *date;
  } else {
    CopyTerminated<WCHAR>(buffer, size, std::get<WString>(*value));
  }
  return 1;
}

bool FileProperties::Has(WStringView name) const {
  return std::ranges::any_of(
      properties_, [name](const FileProperty& property) { return IsSamePropertyName(property.name, name); });
}

void FileProperties::ListProperties(IHostPropertyList* list, u32) {
  if (!list) return;
  for (const FileProperty& property : properties_) static_cast<PropertyList*>(list)->Add(property);
}

}  // namespace QxHost
