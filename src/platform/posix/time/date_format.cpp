// GetDateFormatW, GetTimeFormatW and GetLocaleInfoW.

#include <unicode/udat.h>
#include <unicode/udatpg.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/user_locale.h"
#include "platform/posix/time/system_time.h"

namespace {

using Picture = std::u16string_view;

// Returns a name of a day, month, era or half of the day in the user's language; empty if ICU has none.
std::u16string DateSymbol(UDateFormatSymbolType type, int index) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UDateFormat, decltype(&udat_close)> format(
      udat_open(UDAT_DEFAULT, UDAT_DEFAULT, Platform::UserLocale(), nullptr, 0, nullptr, 0, &status),
      udat_close);
  if (U_FAILURE(status)) return {};
  UChar name[128];
  const int32_t size = udat_getSymbols(format.get(), type, index, name, 128, &status);
  return U_FAILURE(status) ? std::u16string() : std::u16string(name, static_cast<std::size_t>(size));
}

std::u16string DateNumber(unsigned number, std::size_t digits) {
  const std::string text = std::to_string(number);
  std::u16string padded(digits > text.size() ? digits - text.size() : 0, u'0');
  return padded.append(text.begin(), text.end());
}

// Formats one run of `count` equal letters of a picture, such as "MM".
std::u16string DatePart(const SYSTEMTIME& date, char16_t letter, std::size_t count, bool hasDay) {
  const std::size_t digits = std::min<std::size_t>(count, 2);
  switch (letter) {
    case u'd':
      if (count <= 2) return DateNumber(date.wDay, digits);
      return DateSymbol(count == 3 ? UDAT_SHORT_WEEKDAYS : UDAT_WEEKDAYS, Platform::DayOfWeek(date) + 1);
    case u'M':
      if (count <= 2) return DateNumber(date.wMonth, digits);
      if (count == 3) return DateSymbol(UDAT_SHORT_MONTHS, date.wMonth - 1);
      return DateSymbol(hasDay ? UDAT_MONTHS : UDAT_STANDALONE_MONTHS, date.wMonth - 1);
    case u'y':
      return count <= 2 ? DateNumber(date.wYear % 100, digits) : DateNumber(date.wYear, 4);
    default:
      return DateSymbol(UDAT_ERAS, 1);
  }
}

std::u16string TimePart(const SYSTEMTIME& time, char16_t letter, std::size_t count, bool) {
  const std::size_t digits = std::min<std::size_t>(count, 2);
  switch (letter) {
    case u'h':
      return DateNumber(time.wHour % 12 == 0 ? 12 : time.wHour % 12, digits);
    case u'H':
      return DateNumber(time.wHour, digits);
    case u'm':
      return DateNumber(time.wMinute, digits);
    case u's':
      return DateNumber(time.wSecond, digits);
    default: {
      const std::u16string marker = DateSymbol(UDAT_AM_PMS, time.wHour < 12 ? 0 : 1);
      return count == 1 ? marker.substr(0, 1) : marker;
    }
  }
}

// Removes a quoted text from the beginning of the picture and returns its value: two apostrophes within it
// mean one.
std::u16string TakeQuoted(Picture& picture) {
  std::u16string text;
  picture.remove_prefix(1);
  while (!picture.empty()) {
    const char16_t c = picture.front();
    picture.remove_prefix(1);
    if (c == u'\'') {
      if (!picture.starts_with(u'\'')) break;
      picture.remove_prefix(1);
    }
    text += c;
  }
  return text;
}

template <typename Part>
std::u16string FormatPicture(Picture picture, Picture letters, const SYSTEMTIME& time, Part part) {
  std::u16string text;
  const bool hasDay = picture.find(u'd') != Picture::npos;
  while (!picture.empty()) {
    const char16_t c = picture.front();
    if (c == u'\'') {
      text += TakeQuoted(picture);
    } else if (letters.find(c) != Picture::npos) {
      const std::size_t count = std::min(picture.find_first_not_of(c), picture.size());
      text += part(time, c, count, hasDay);
      picture.remove_prefix(count);
    } else {
      text += c;
      picture.remove_prefix(1);
    }
  }
  return text;
}

// Copies the text to the buffer. Returns the number of characters written, or for a size of 0 required,
// including the terminator; 0 for a failure.
int Deliver(const std::u16string& text, WCHAR* buffer, int size) {
  const int needed = static_cast<int>(text.size()) + 1;
  if (size == 0) return needed;
  if (!buffer || size < needed) return Platform::FailWith(ERROR_INSUFFICIENT_BUFFER);
  std::copy_n(text.c_str(), needed, buffer);
  return needed;
}

// Converts an ICU pattern to a Windows picture: "y" becomes "yyyy", "a" (AM or PM) becomes "tt", and no-break
// spaces become plain ones.
std::u16string WindowsPicture(std::u16string_view pattern) {
  std::u16string picture;
  for (const char16_t c : pattern) {
    if (c == u'y') {
      if (!picture.ends_with(u'y')) picture += u"yyyy";
    } else if (c == u'a') {
      picture += u"tt";
    } else {
      picture += c == 0x202F || c == 0xA0 ? u' ' : c;
    }
  }
  return picture;
}

std::u16string LocalePicture(std::u16string_view skeleton) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UDateTimePatternGenerator, decltype(&udatpg_close)> generator(
      udatpg_open(Platform::UserLocale(), &status), udatpg_close);
  if (U_FAILURE(status)) return {};
  UChar pattern[128];
  const int32_t size = udatpg_getBestPattern(generator.get(), skeleton.data(),
                                             static_cast<int32_t>(skeleton.size()), pattern, 128, &status);
  if (U_FAILURE(status)) return {};
  return WindowsPicture({pattern, static_cast<std::size_t>(size)});
}

std::u16string LocaleItem(DWORD item) {
  return item == LOCALE_SSHORTDATE ? LocalePicture(u"yMd") : LocalePicture(u"jmmss");
}

}  // namespace

int GetLocaleInfoW(LCID, DWORD item, WCHAR* buffer, int size) {
  if (Platform::FaultFires("GetLocaleInfoW", item)) return 0;
  if (item != LOCALE_SSHORTDATE && item != LOCALE_STIMEFORMAT) return Platform::FailWith(ERROR_INVALID_FLAGS);
  return Deliver(LocaleItem(item), buffer, size);
}

int GetDateFormatW(LCID, DWORD flags, const SYSTEMTIME* date, const WCHAR* format, WCHAR* buffer, int size) {
  if (Platform::FaultFires("GetDateFormatW", flags)) return 0;
  if (!date || !format || !Platform::IsDate(*date)) return Platform::FailWith(ERROR_INVALID_PARAMETER);
  return Deliver(FormatPicture(format, u"dMyg", *date, DatePart), buffer, size);
}

int GetTimeFormatW(LCID, DWORD flags, const SYSTEMTIME* time, const WCHAR* format, WCHAR* buffer, int size) {
  if (Platform::FaultFires("GetTimeFormatW", flags)) return 0;
  if (!time || !format || !Platform::IsTimeOfDay(*time)) return Platform::FailWith(ERROR_INVALID_PARAMETER);
  return Deliver(FormatPicture(format, u"hHmst", *time, TimePart), buffer, size);
}
