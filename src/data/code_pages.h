// Converts texts to a code page and back (WideCharToMultiByte, MultiByteToWideChar), such as CP_THREAD_ACP or
// CP_UTF8. Characters that the code page lacks are replaced as Windows does by default. At most 2^31 - 1
// characters or bytes are converted. The result is empty if the system refuses.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace WQDR {

// Returns the text in the code page.
std::string ToCodePage(UINT codePage, WStringView text);
// Returns the text of bytes in the code page.
WString FromCodePage(UINT codePage, std::string_view bytes);

}  // namespace WQDR
