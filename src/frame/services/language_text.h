// Texts of the host's language table, kept beyond the next call into the host. One that the host has not got
// is empty.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

inline WString LanguageText(IHostApp& host, TextId text) {
  return WString(ViewOf(host.GetLanguageString(text)));
}

// The second text of an id: tool tips, explanations.
inline WString LanguageTitle(IHostApp& host, TextId text) {
  return WString(ViewOf(host.GetLanguageTitle(text)));
}

// The text of an id in the table that all modules share.
inline WString CommonLanguageText(IHostApp& host, TextId text) {
  return WString(ViewOf(host.GetModuleLanguageString(0, text)));
}

}  // namespace Velmora::SDK
