// Dates and times in the user's language (GetDateFormatW, GetTimeFormatW, GetLocaleInfoW).
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Returns a format of the user's language: LOCALE_SSHORTDATE or LOCALE_STIMEFORMAT. Empty if the system has
// none.
WString LocaleFormat(DWORD item);

// Return the date or the time in a format of Windows ("yyyy-MM-dd", "HH:mm"), at most 255 characters. Empty
// if the system rejects the format or the time, or if the text does not fit.
WString FormatDate(const SYSTEMTIME& time, const WString& format);
WString FormatTime(const SYSTEMTIME& time, const WString& format);

}  // namespace Velmora::SDK
