// Text ids of MultiRename's window and dialogs, in the host's language table; rename_texts.def lists them.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

enum RenameTextId : TextId {
#define RENAME_TEXT(name, id) name = id,
#define RENAME_TITLE(name, id) name = id,
#include "multirename/form/rename_texts.def"
};

// Texts of the table that all modules share.
enum RenameCommonText : TextId {
  kRenameCommonCancel = 0x00030067,
  kRenameCommonOk = 0x00080067,
  kRenameCommonAdd = 0x00150067,
};

// The ids whose first text is shown, for tests that check that each has a text. The second texts that are
// shown are those of kPanelTips (panel_controls.h).
inline constexpr RenameTextId kRenameTexts[] = {
#define RENAME_TEXT(name, id) name,
#define RENAME_TITLE(name, id)
#include "multirename/form/rename_texts.def"
};
inline constexpr RenameCommonText kRenameCommonTexts[] = {kRenameCommonCancel, kRenameCommonOk,
                                                          kRenameCommonAdd};

}  // namespace Velmora::SDK
