// One JSON file of the configuration folder: read when it is first needed, written as a whole and only when
// something has changed.
//
// A file that cannot be understood is kept under a name that ends in `.damaged`, and the run begins with
// nothing stored. One that can be neither read nor kept is left alone, and nothing is saved over it.
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

  // `check` says whether the content has the shape that it must have. The folder is made when the file is
  // first written.
  SettingsFile(WString folder, WStringView name, Check check, Warn warn);
  ~SettingsFile();

  // An object; the content as it stands.
  const nlohmann::json& Read();

  // The content to be changed; the next Save writes it.
  nlohmann::json& Change();

  // Writes what was changed. A failure is warned of, and the file of before stays.
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
  bool locked_ = false;  // there is a file that must not be written over
};

}  // namespace QxHost
