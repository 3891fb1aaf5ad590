// The fake host's settings in memory: values by section and key, and histories by key.
#pragma once

#include <map>
#include <utility>

#include "frame/host/host_settings.h"
#include "support/host_recorder.h"

class FakeStringList final : public Velmora::SDK::IHostStringList {
 public:
  FakeStringList(HostRecorder& recorder, std::string name) : recorder_(recorder), name_(std::move(name)) {}

  const std::string& Name() const { return name_; }
  // The strings; public for the settings, which load and save them.
  std::vector<WString> strings;

  void Add(const WCHAR* text) override;
  bool Contains(const WCHAR* text, Velmora::SDK::u32 zero) override;
  Velmora::SDK::u32 GetCount() override;
  bool GetString(Velmora::SDK::u32 index, WCHAR* buffer, Velmora::SDK::u32 size) override;
  void Finish(Velmora::SDK::u32 one) override;
  void Clear() override;
  void Release() override;

 private:
  void CheckUse(const std::string& call);

  HostRecorder& recorder_;
  std::string name_;
  bool released_ = false;
};

class FakeConfig final : public Velmora::SDK::IHostConfig {
 public:
  explicit FakeConfig(HostRecorder& recorder) : recorder_(recorder) {}

  // The stored histories, newest first.
  std::map<WString, std::vector<WString>> histories;

  // The stored values, by section and key; none at first. A Get of a missing value, of one of another type,
  // or one that is refused returns false and leaves the buffer unchanged.
  using Place = std::pair<WString, WString>;
  std::map<Place, Velmora::SDK::u32> numbers;
  std::map<Place, WString> texts;
  std::map<Place, std::vector<unsigned char>> blocks;

  bool GetBlock(Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key, void* buffer,
                Velmora::SDK::u32 size) override;
  bool GetString(Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key, WCHAR* buffer,
                 Velmora::SDK::u32 size) override;
  bool GetInt(Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key,
              Velmora::SDK::u32* value) override;
  void SetBlock(Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key, const void* data,
                Velmora::SDK::u32 size) override;
  void SetString(Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key, const WCHAR* text) override;
  void SetInt(Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key,
              Velmora::SDK::u32 value) override;
  // Appends to the list: a caller that wants only the history passes an empty list.
  void LoadStringList(const WCHAR* key, Velmora::SDK::IHostStringList* list) override;
  // Stores the first `maximum` strings at most.
  void SaveStringList(const WCHAR* key, Velmora::SDK::IHostStringList* list,
                      Velmora::SDK::u32 maximum) override;

 private:
  void Record(const char* operation, Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key,
              const std::string& rest);
  // Like Record, for an operation that can be refused. Returns false if this call is refused.
  bool Allow(const char* operation, Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key,
             const std::string& rest);
  std::string CallOf(const char* operation, Velmora::SDK::u32 one, const WCHAR* section, const WCHAR* key,
                     const std::string& rest);

  HostRecorder& recorder_;
};
