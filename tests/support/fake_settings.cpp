#include "support/fake_settings.h"

#include <algorithm>

using namespace Velmora::SDK;

void FakeStringList::CheckUse(const std::string& call) {
  if (released_) recorder_.Problem(name_ + "." + call + " after its release");
}

void FakeStringList::Add(const WCHAR* text) {
  if (!text) recorder_.Problem(name_ + " was given a null text");
  strings.emplace_back(ViewOf(text));
  recorder_.Record(name_ + ".Add(" + Quoted(text) + ")");
  CheckUse("Add");
}

bool FakeStringList::Contains(const WCHAR* text, u32 zero) {
  const bool found = std::find(strings.begin(), strings.end(), ViewOf(text)) != strings.end();
  recorder_.Record(name_ + ".Contains(" + Quoted(text) + ", " + std::to_string(zero) + ")");
  CheckUse("Contains");
  return found;
}

u32 FakeStringList::GetCount() {
  recorder_.Record(name_ + ".GetCount()");
  CheckUse("GetCount");
  return static_cast<u32>(strings.size());
}

bool FakeStringList::GetString(u32 index, WCHAR* buffer, u32 size) {
  const bool allowed =
      recorder_.Allow(name_ + ".GetString(" + std::to_string(index) + ", " + std::to_string(size) + ")");
  CheckUse("GetString");
  if (index >= strings.size()) {
    recorder_.Problem(name_ + " has no string " + std::to_string(index));
    return false;
  }
  if (allowed) CopyTerminated(buffer, size, WStringView(strings[index]));
  return allowed;
}

void FakeStringList::Finish(u32 one) {
  recorder_.Record(name_ + ".Finish(" + std::to_string(one) + ")");
  CheckUse("Finish");
}

void FakeStringList::Clear() {
  recorder_.Record(name_ + ".Clear()");
  CheckUse("Clear");
  strings.clear();
}

void FakeStringList::Release() {
  recorder_.Record(name_ + ".Release()");
  recorder_.Released(name_);
  released_ = true;
}

std::string FakeConfig::CallOf(const char* operation, u32 one, const WCHAR* section, const WCHAR* key,
                               const std::string& rest) {
  const std::string call = std::string("config.") + operation + "(" + std::to_string(one) + ", " +
                           Quoted(section) + ", " + Quoted(key) + ", " + rest + ")";
  if (one != 1) recorder_.Problem(call + ": the first argument is always 1");
  return call;
}

void FakeConfig::Record(const char* operation, u32 one, const WCHAR* section, const WCHAR* key,
                        const std::string& rest) {
  recorder_.Record(CallOf(operation, one, section, key, rest));
}

bool FakeConfig::Allow(const char* operation, u32 one, const WCHAR* section, const WCHAR* key,
                       const std::string& rest) {
  return recorder_.Allow(CallOf(operation, one, section, key, rest));
}

bool FakeConfig::GetBlock(u32 one, const WCHAR* section, const WCHAR* key, void* buffer, u32 size) {
  const bool allowed = Allow("GetBlock", one, section, key, std::to_string(size));
  const auto found = blocks.find({section, key});
  if (!allowed || found == blocks.end()) return false;
  std::copy_n(found->second.data(), std::min<std::size_t>(size, found->second.size()),
              static_cast<unsigned char*>(buffer));
  return true;
}

bool FakeConfig::GetString(u32 one, const WCHAR* section, const WCHAR* key, WCHAR* buffer, u32 size) {
  const bool allowed = Allow("GetString", one, section, key, std::to_string(size));
  const auto found = texts.find({section, key});
  if (!allowed || found == texts.end()) return false;
  CopyTerminated(buffer, size, WStringView(found->second));
  return true;
}

bool FakeConfig::GetInt(u32 one, const WCHAR* section, const WCHAR* key, u32* value) {
  const bool allowed = Allow("GetInt", one, section, key, "value");
  const auto found = numbers.find({section, key});
  if (!allowed || found == numbers.end()) return false;
  *value = found->second;
  return true;
}

void FakeConfig::SetBlock(u32 one, const WCHAR* section, const WCHAR* key, const void* data, u32 size) {
  Record("SetBlock", one, section, key, std::to_string(size));
  const auto* const bytes = static_cast<const unsigned char*>(data);
  blocks[{section, key}].assign(bytes, bytes + size);
}

void FakeConfig::SetString(u32 one, const WCHAR* section, const WCHAR* key, const WCHAR* text) {
  Record("SetString", one, section, key, Quoted(text));
  texts[{section, key}] = ViewOf(text);
}

void FakeConfig::SetInt(u32 one, const WCHAR* section, const WCHAR* key, u32 value) {
  Record("SetInt", one, section, key, std::to_string(value));
  numbers[{section, key}] = value;
}

void FakeConfig::LoadStringList(const WCHAR* key, IHostStringList* list) {
  const WString history(ViewOf(key));
  auto* fake = static_cast<FakeStringList*>(list);
  recorder_.Record("config.LoadStringList(" + Quoted(history.c_str()) + ", " +
                   (fake ? fake->Name() : std::string("null")) + ")");
  if (!fake) {
    recorder_.Problem("LoadStringList was given no list");
    return;
  }
  const std::vector<WString>& stored = histories[history];
  fake->strings.insert(fake->strings.end(), stored.begin(), stored.end());
}

void FakeConfig::SaveStringList(const WCHAR* key, IHostStringList* list, u32 maximum) {
  const WString history(ViewOf(key));
  const auto* fake = static_cast<FakeStringList*>(list);
  recorder_.Record("config.SaveStringList(" + Quoted(history.c_str()) + ", " +
                   (fake ? fake->Name() : std::string("null")) + ", " + std::to_string(maximum) + ")");
  if (!fake) {
    recorder_.Problem("SaveStringList was given no list");
    return;
  }
  std::vector<WString>& stored = histories[history];
  stored = fake->strings;
  if (stored.size() > maximum) stored.resize(maximum);
}
