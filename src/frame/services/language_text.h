// Return copies of texts of the host's language table, because the host's own texts are valid only until the
// next call into the host. A text that the host does not have is empty.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Returns the text of an id in the extension's table.
inline WString LanguageText(IHostApp& host, TextId text) {
  return WString(ViewOf(host.GetLanguageString(text)));
}

// Returns the second text of an id, such as a tool tip or an explanation.
inline WString LanguageTitle(IHostApp& host, TextId text) {
  return WString(ViewOf(host.GetLanguageTitle(text)));
}

// Returns the text of an id in the table that all modules share.
inline WString CommonLanguageText(IHostApp& host, TextId text) {
  return WString(ViewOf(host.GetModuleLanguageString(0, text)));
}

}  // namespace Velmora::SDK
