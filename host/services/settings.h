// The settings store that the host provides to each extension. It uses two readable files: settings.json
// (module, section, key) and histories.json (module, key, texts).
#pragma once

#include <mutex>
#include <string>

#include "frame/host/host_settings.h"
#include "host/services/settings_file.h"

namespace QxHost {

using Velmora::SDK::u32;

// The two files, shared by all extensions and their threads.
class SettingsFiles {
 public:
  SettingsFiles(const WString& folder, SettingsFile::Warn warn);

  std::mutex mutex;  // protects the contents of the files
  SettingsFile settings;
  SettingsFile histories;

  void Save() {
    const std::lock_guard lock(mutex);
    settings.Save();
    histories.Save();
  }
};

class Settings final : public Velmora::SDK::IHostConfig {
 public:
  Settings(SettingsFiles& files, std::string module) : files_(files), module_(std::move(module)) {}

  // Returns false if the stored block has another size: it comes from another version of the record.
  bool GetBlock(u32 one, const WCHAR* section, const WCHAR* key, void* buffer, u32 size) override;
  bool GetString(u32 one, const WCHAR* section, const WCHAR* key, WCHAR* buffer, u32 size) override;
  bool GetInt(u32 one, const WCHAR* section, const WCHAR* key, u32* value) override;
  void SetBlock(u32 one, const WCHAR* section, const WCHAR* key, const void* data, u32 size) override;
  void SetString(u32 one, const WCHAR* section, const WCHAR* key, const WCHAR* text) override;
  void SetInt(u32 one, const WCHAR* section, const WCHAR* key, u32 value) override;
  // Replaces the contents of the list.
  void LoadStringList(const WCHAR* key, Velmora::SDK::IHostStringList* list) override;
  // Stores the first `maximum` texts, which are the newest.
  void SaveStringList(const WCHAR* key, Velmora::SDK::IHostStringList* list, u32 maximum) override;

 private:
  const nlohmann::json* Find(const WCHAR* section, const WCHAR* key);
  nlohmann::json& Place(const WCHAR* section, const WCHAR* key);

  SettingsFiles& files_;
  std::string module_;
};

}  // namespace QxHost
