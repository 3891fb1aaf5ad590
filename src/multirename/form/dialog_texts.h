// Sets the texts of controls from the language table.
#pragma once

#include "frame/host/host_app.h"
#include "multirename/form/control_view.h"

namespace Velmora::SDK {

// Sets the texts of the controls from the extension's table, and those of `common` from the table that all
// modules share.
void SetDialogTexts(ControlView& view, IHostApp& host, std::span<const ControlTextRow> own,
                    std::span<const ControlTextRow> common);

// Returns a text without the ampersand that marks its access key. Doubled ampersands are kept.
WString WithoutAccessKey(WStringView text);

}  // namespace Velmora::SDK
