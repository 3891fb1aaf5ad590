// One JSON file of the configuration folder: read when it is first needed, written as a whole and only if
// something has changed.
//
// A damaged file is renamed by appending `.damaged`, or `.damaged.2` and so on, and the run starts without
// stored values. A file that cannot be read, or is damaged and cannot be renamed, is not overwritten: nothing
// is saved then.
#pragma once

#include <functional>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "platform/text.h"

namespace QxHost {

class SettingsFile {
 public:
  using Check = bool (*)(const nlohmann::json& root);
  using Warn = std::function<void(const std::string& text)>;

  // `check` returns whether the contents have the required structure. The folder is created when the file is
  // first written.
  SettingsFile(WString folder, WStringView name, Check check, Warn warn);
  ~SettingsFile();

  // Returns the contents, which are a JSON object.
  const nlohmann::json& Read();

  // Returns the contents for changes, which the next Save writes.
  nlohmann::json& Change();

  // Writes changed contents. After a failure, warns and leaves the file unchanged.
  void Save();

 private:
  void Load();
  bool KeepDamaged();

  WString folder_;
  WString path_;
  Check check_;
  Warn warn_;
  std::unique_ptr<nlohmann::json> root_;  // never null
  bool loaded_ = false;
  bool changed_ = false;
  bool locked_ = false;  // the existing file must not be overwritten
};

}  // namespace QxHost
