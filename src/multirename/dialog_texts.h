// What the forms of the dialogs do with texts.
#pragma once

#include "frame/services/host_app.h"
#include "multirename/control_view.h"

namespace Velmora::SDK {

// Sets the texts of the controls from the extension's table, and those of `common` from the table that all
// modules share.
void SetDialogTexts(ControlView& view, IHostApp& host, std::span<const ControlTextRow> own,
                    std::span<const ControlTextRow> common);

// The text without these characters at both ends.
WString TrimmedText(WStringView text, WStringView characters);

}  // namespace Velmora::SDK
