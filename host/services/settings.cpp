#include "host/services/settings.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <nlohmann/json.hpp>
#include <vector>

#include "host/output/json_text.h"
#include "host/services/lists.h"

namespace QxHost {
namespace {

using nlohmann::json;

bool IsValue(const json& value) {
  if (value.is_number_unsigned()) return value.get<std::uint64_t>() <= std::numeric_limits<u32>::max();
  return TextOfJson(value).has_value() || BlockOfJson(value).has_value();
}

bool IsHistory(const json& value) {
  return value.is_array() && std::all_of(value.begin(), value.end(),
                                         [](const json& text) { return TextOfJson(text).has_value(); });
}

// Returns whether `isRight` holds for all values that are `levels` objects deep.
bool AllBelow(const json& value, int levels, bool (*isRight)(const json&)) {
  if (levels == 0) return isRight(value);
  if (!value.is_object()) return false;
  return std::all_of(value.begin(), value.end(),
                     [&](const json& member) { return AllBelow(member, levels - 1, isRight); });
}

bool IsSettingsRoot(const json& root) { return AllBelow(root, 3, IsValue); }
bool IsHistoriesRoot(const json& root) { return AllBelow(root, 2, IsHistory); }

const json* Member(const json* object, const std::string& name) {
  if (!object) return nullptr;
  const auto member = object->find(name);
  return member == object->end() ? nullptr : &*member;
}

}  // namespace

SettingsFiles::SettingsFiles(const WString& folder, SettingsFile::Warn warn)
    : settings(folder, W("settings.json"), IsSettingsRoot, warn),
      histories(folder, W("histories.json"), IsHistoriesRoot, warn) {}

const json* Settings::Find(const WCHAR* section, const WCHAR* key) {
  const json* const sections = Member(&files_.settings.Read(), module_);
  return Member(Member(sections, ToUtf8(ViewOf(section))), ToUtf8(ViewOf(key)));
}

json& Settings::Place(const WCHAR* section, const WCHAR* key) {
  return files_.settings.Change()[module_][ToUtf8(ViewOf(section))][ToUtf8(ViewOf(key))];
}

bool Settings::GetBlock(u32, const WCHAR* section, const WCHAR* key, void* buffer, u32 size) {
  const std::lock_guard lock(files_.mutex);
  const json* const value = Find(section, key);
  const std::optional<Block> block = value ? BlockOfJson(*value) : std::nullopt;
  if (!block || block->size() != size || !buffer) return false;
  if (size != 0) std::memcpy(buffer, block->data(), size);
  return true;
}

bool Settings::GetString(u32, const WCHAR* section, const WCHAR* key, WCHAR* buffer, u32 size) {
  const std::lock_guard lock(files_.mutex);
  const json* const value = Find(section, key);
  const std::optional<WString> text = value ? TextOfJson(*value) : std::nullopt;
  if (!text || !buffer || size == 0) return false;
  CopyTerminated<WCHAR>(buffer, size, *text);
  return true;
}

bool Settings::GetInt(u32, const WCHAR* section, const WCHAR* key, u32* number) {
  const std::lock_guard lock(files_.mutex);
  const json* const value = Find(section, key);
  if (!value || !value->is_number_unsigned() || !number) return false;
  *number = value->get<u32>();
  return true;
}

void Settings::SetBlock(u32, const WCHAR* section, const WCHAR* key, const void* data, u32 size) {
  const std::lock_guard lock(files_.mutex);
  const unsigned char* const bytes = static_cast<const unsigned char*>(data);
  Place(section, key) = JsonOfBlock(bytes ? Block(bytes, bytes + size) : Block());
}

void Settings::SetString(u32, const WCHAR* section, const WCHAR* key, const WCHAR* text) {
  const std::lock_guard lock(files_.mutex);
  Place(section, key) = JsonOfText(ViewOf(text));
}

void Settings::SetInt(u32, const WCHAR* section, const WCHAR* key, u32 value) {
  const std::lock_guard lock(files_.mutex);
  Place(section, key) = value;
}

void Settings::LoadStringList(const WCHAR* key, Velmora::SDK::IHostStringList* list) {
  const std::lock_guard lock(files_.mutex);
  if (!list) return;
  list->Clear();
  const json* const history = Member(Member(&files_.histories.Read(), module_), ToUtf8(ViewOf(key)));
  if (!history) return;
  for (const json& text : *history) list->Add(TextOfJson(text).value_or(WString()).c_str());
}

void Settings::SaveStringList(const WCHAR* key, Velmora::SDK::IHostStringList* list, u32 maximum) {
  if (!list) return;
  json history = json::array();
  for (const WString& text : TextsOf(*list)) {
    if (history.size() == maximum) break;
    history.push_back(JsonOfText(text));
  }
  const std::lock_guard lock(files_.mutex);
  files_.histories.Change()[module_][ToUtf8(ViewOf(key))] = std::move(history);
}

}  // namespace QxHost
