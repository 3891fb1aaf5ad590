// Computes the texts of [?...] tags: a property of the file as the host returns it, or a date or a number in
// the tag's format.

#include "frame/host/host_files.h"
#include "frame/host/host_properties.h"
#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/date_text.h"
#include "multirename/rules/padded_number.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kPropertyTextSize = 256;
constexpr u32 kPropertyPathSize = 4096;
constexpr std::size_t kMaxPropertyFormatChars = 128;

// The formats of a date and of a time. An empty one adds no text.
struct DateFormats {
  WString date;
  WString time;
};

DateFormats FormatsOf(const WString& format) {
  const std::size_t bar = format.find(W('|'));
  DateFormats formats;
  formats.date = format.substr(0, std::min(bar, kMaxPropertyFormatChars));
  if (bar != WString::npos) formats.time = format.substr(bar + 1, kMaxPropertyFormatChars);
  if (!formats.date.empty() || !formats.time.empty()) return formats;
  return {LocaleFormat(LOCALE_SSHORTDATE), LocaleFormat(LOCALE_STIMEFORMAT)};
}

// Joins the date and the time without a separator (C-608).
WString DateText(u64 date, const WString& format) {
  const FILETIME fileTime{static_cast<DWORD>(date), static_cast<DWORD>(date >> 32)};
  SYSTEMTIME time{};
  if (!FileTimeToSystemTime(&fileTime, &time)) return {};
  const DateFormats formats = FormatsOf(format);
  WString text;
  if (!formats.date.empty()) text = FormatDate(time, formats.date);
  if (!formats.time.empty()) text += FormatTime(time, formats.time);
  return text;
}

WString NumberText(const WString& text, WStringView width) {
  WString padded;
  AppendPadded(padded, ParseDecimal(text), ParseDecimal(width));
  return padded;
}

WString TextFromHost(IHostPropertyManager& manager, MultiRenameEngine& engine, const RenameTag& tag) {
  WCHAR path[kPropertyPathSize];
  path[0] = WCHAR();
  engine.currentItem->hostItem->GetFullPath(path, kPropertyPathSize);
  WCHAR buffer[kPropertyTextSize];
  buffer[0] = WCHAR();
  FilePropertyValue value;
  const u32 count = manager.GetValue(buffer, kPropertyTextSize, tag.text.c_str(), &value, path);
  if (static_cast<s32>(count) <= 0) return {};
  buffer[kPropertyTextSize - 1] = WCHAR();
  const WString text = buffer;
  if (text.empty()) return value.date > 0 ? DateText(value.date, tag.format) : WString();
  const bool isNumber = tag.format.starts_with(W('n')) || tag.format.starts_with(W('N'));
  return isNumber ? NumberText(text, WStringView(tag.format).substr(1)) : text;
}

}  // namespace

std::optional<WString> PropertyText(MultiRenameEngine& engine, const RenameTag& tag) {
  IHostPropertyManager* const manager = engine.propertyManager;
  if (!manager || !engine.currentItem || !engine.currentItem->hostItem) return WString();
  try {
    return TextFromHost(*manager, engine, tag);
  } catch (...) {
    return std::nullopt;
  }
}

}  // namespace Velmora::SDK
