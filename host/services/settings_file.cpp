#include "host/services/settings_file.h"

#include <nlohmann/json.hpp>

#include "host/output/error_text.h"
#include "host/system/paths.h"
#include "host/system/whole_file.h"

namespace QxHost {
namespace {

constexpr int kMaxDamagedFiles = 1000;
constexpr int kIndent = 2;

}  // namespace

SettingsFile::SettingsFile(WString folder, WStringView name, Check check, Warn warn)
    : folder_(std::move(folder)),
      path_(folder_ + W("\\") + WString(name)),
      check_(check),
      warn_(std::move(warn)),
      root_(std::make_unique<nlohmann::json>(nlohmann::json::object())) {}

SettingsFile::~SettingsFile() = default;

const nlohmann::json& SettingsFile::Read() {
  if (!loaded_) Load();
  return *root_;
}

nlohmann::json& SettingsFile::Change() {
  if (!loaded_) Load();
  changed_ = true;
  return *root_;
}

void SettingsFile::Load() {
  loaded_ = true;
  std::string bytes;
  const DWORD error = ReadWholeFile(path_, bytes);
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return;
  if (error != ERROR_SUCCESS) {
    locked_ = true;
    warn_("cannot read " + ToUtf8(path_) + ": " + ErrorText(error) + "; nothing will be saved there");
    return;
  }
  nlohmann::json root = nlohmann::json::parse(bytes, nullptr, false);
  if (root.is_object() && check_(root)) {
    *root_ = std::move(root);
  } else if (!KeepDamaged()) {
    locked_ = true;
    warn_(ToUtf8(path_) + " is damaged and cannot be set aside; nothing will be saved there");
  }
}

bool SettingsFile::KeepDamaged() {
  for (int number = 1; number <= kMaxDamagedFiles; ++number) {
    const WString name =
        path_ + W(".damaged") + (number == 1 ? WString() : FromUtf8("." + std::to_string(number)));
    if (MoveFileW(SystemPath(path_).c_str(), SystemPath(name).c_str())) {
      warn_(ToUtf8(path_) + " is damaged; it was kept as " + ToUtf8(name) +
            ", and nothing is stored any more");
      return true;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) return false;
  }
  return false;
}

void SettingsFile::Save() {
  if (!changed_ || locked_) return;
  changed_ = false;
  DWORD error = MakeFolder(folder_);
  if (error == ERROR_SUCCESS) {
    error = WriteWholeFile(path_,
                           root_->dump(kIndent, ' ', false, nlohmann::json::error_handler_t::replace) + "\n");
  }
  if (error != ERROR_SUCCESS) warn_("cannot save " + ToUtf8(path_) + ": " + ErrorText(error));
}

}  // namespace QxHost
