#include "linesorter/tool/sort_lines_settings.h"

#include <array>

#include "linesorter/engine/code_page_text.h"

namespace WQLineSorter {

namespace {

using namespace Velmora::SDK;

constexpr const WCHAR* kSection = W("SortLines");
constexpr const WCHAR* kMatchKey = W("CharMatch");
constexpr const WCHAR* kFormatKey = W("MatchFilter");
constexpr std::size_t kMaxTextChars = 128;

constexpr std::uint32_t kDefaultOptions = SortByLine | SortAsText | SortSkipLeadingSpace;

struct StoredNumberRow {
  const WCHAR* key;
  std::uint32_t SortLinesOptions::*number;
};

constexpr StoredNumberRow kStoredNumbers[] = {
    {W("KeepLinesTop"), &SortLinesOptions::keepLinesTop},
    {W("KeepLinesBottom"), &SortLinesOptions::keepLinesBottom},
    {W("LineOffset"), &SortLinesOptions::lineOffset},
    {W("SubStringLen"), &SortLinesOptions::subStringLen},
    {W("LineItem"), &SortLinesOptions::lineItem},
    {W("Options"), &SortLinesOptions::options},
};

// Returns the stored text, or an empty text if nothing is stored.
WString ReadText(IHostConfig& config, const WCHAR* key) {
  std::array<WCHAR, kMaxTextChars + 1> buffer = {};
  if (!config.GetString(1, kSection, key, buffer.data(), static_cast<u32>(buffer.size()))) return {};
  buffer.back() = WCHAR();
  return buffer.data();
}

}  // namespace

SortLinesOptions LoadSortLinesOptions(IHostApp& host) {
  SortLinesOptions options;
  options.options = kDefaultOptions;
  IHostConfig* const config = host.GetConfig();
  if (!config) return options;
  for (const StoredNumberRow& row : kStoredNumbers) {
    u32 number = 0;
    if (config->GetInt(1, kSection, row.key, &number)) options.*row.number = number;
  }
  const WString match = ReadText(*config, kMatchKey);
  if (!match.empty()) SetMatchChar(options, match.front());
  const WString format = ReadText(*config, kFormatKey);
  if (!format.empty()) SetDateFormat(options, format, kMaxTextChars);
  return options;
}

void StoreSortLinesOptions(IHostApp& host, const SortLinesOptions& options) {
  IHostConfig* const config = host.GetConfig();
  if (!config) return;
  for (const StoredNumberRow& row : kStoredNumbers) config->SetInt(1, kSection, row.key, options.*row.number);
  const WCHAR match[] = {static_cast<WCHAR>(options.matchChar), WCHAR()};
  config->SetString(1, kSection, kMatchKey, match);
  config->SetString(1, kSection, kFormatKey, DateFormatText(options).c_str());
}

}  // namespace WQLineSorter
