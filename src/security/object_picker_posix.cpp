#include "security/object_picker.h"

std::optional<WString> PickAccount(HWND) { return std::nullopt; }
