// Whole texts into the bytes of a code page and back (WideCharToMultiByte, MultiByteToWideChar):
// CP_THREAD_ACP for the thread's, CP_UTF8. Characters that a code page lacks become others there, as Windows
// has it. Of a text beyond 2^31 - 1 characters or bytes that much is taken. Both are empty where the system
// refuses.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace WQDR {

std::string ToCodePage(UINT codePage, WStringView text);
WString FromCodePage(UINT codePage, std::string_view bytes);

}  // namespace WQDR
