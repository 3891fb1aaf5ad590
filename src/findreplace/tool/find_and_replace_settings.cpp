#include "findreplace/tool/find_and_replace_settings.h"

#include <vector>

namespace QXFindAndReplace {

namespace {

using namespace Velmora::SDK;

constexpr const WCHAR* kSection = W("FindReplace");
constexpr const WCHAR* kOptionsKey = W("Options");
constexpr u32 kTextChars = 4096;  // including the terminator

constexpr std::uint32_t kDefaultFlags = ModeOne | IgnoreCase | KeepBackup;

struct TextRow {
  const WCHAR* key;
  WString FindAndReplaceOptions::*text;
};

constexpr TextRow kTexts[] = {
    {W("Find"), &FindAndReplaceOptions::find},
    {W("ReplaceWith"), &FindAndReplaceOptions::replace},
};

}  // namespace

FindAndReplaceOptions LoadFindAndReplaceOptions(IHostApp& host) {
  FindAndReplaceOptions options;
  options.flags = kDefaultFlags;
  IHostConfig* const config = host.GetConfig();
  if (!config) return options;
  for (const TextRow& row : kTexts) {
    std::vector<WCHAR> buffer(kTextChars);
    if (!config->GetString(1, kSection, row.key, buffer.data(), kTextChars)) continue;
    buffer.back() = WCHAR();
    options.*row.text = buffer.data();
  }
  u32 flags = 0;
  if (config->GetInt(1, kSection, kOptionsKey, &flags)) options.flags = flags;
  return options;
}

void StoreFindAndReplaceOptions(IHostApp& host, const FindAndReplaceOptions& options) {
  IHostConfig* const config = host.GetConfig();
  if (!config) return;
  for (const TextRow& row : kTexts) config->SetString(1, kSection, row.key, (options.*row.text).c_str());
  config->SetInt(1, kSection, kOptionsKey, options.flags);
}

}  // namespace QXFindAndReplace
