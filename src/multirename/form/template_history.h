// The templates of earlier runs, which the two template boxes offer. Used on the window's thread.
#pragma once

#include <vector>

#include "frame/host/host_app.h"

namespace Velmora::SDK {

inline constexpr const WCHAR* kNameHistory = W("RuleFilename");
inline constexpr const WCHAR* kExtensionHistory = W("RuleFileextension");

// Returns the strings of a history in its order; none if the host has no settings.
std::vector<WString> LoadTemplateHistory(IHostApp& host, const WCHAR* key);

// Stores the current text, followed by those that the box offers, each once and without the default. The host
// stores at most 20 of them.
void SaveTemplateHistory(IHostApp& host, const WCHAR* key, const WString& current, const WString& standard,
                         const std::vector<WString>& offered);

}  // namespace Velmora::SDK
