// Text ids of the questions and dialogs that the commands show. The ids of the menu stand in the menu's own
// tables.
#pragma once

#include "frame/services/host_types.h"

namespace Velmora::SDK {

enum MessageText : TextId {
  kTextRenameCaption = 0x000A0063,   // caption of the rename confirmation, title of Set Extension
  kTextRenameQuestion = 0x000B0063,  // a format with the number of items
  kTextSameBaseTitle = 0x000C0063,   // Rename Files of the Same Base Name: title
  kTextSameBasePrompt = 0x000D0063,  //   and prompt
  kTextSetExtensionPrompt = 0x00780063,
  kTextReplaceTitle = 0x00640064,  // the Replace X with Y dialog
  kTextReplaceOk = 0x00650064,
  kTextReplaceCancel = 0x00660064,
  kTextReplaceTop = 0x00670064,
  kTextReplaceFindLabel = 0x00680064,
  kTextReplaceWithLabel = 0x00690064,
  kTextReplacePartLabel = 0x006A0064,
  kTextReplaceFindCue = 0x006B0064,
  kTextReplaceWithCue = 0x006C0064,
  kTextReplacePartBase = 0x006E0064,
  kTextReplacePartExtension = 0x006F0064,
  kTextReplacePartWhole = 0x00700064,
};

// All of them, for whoever must have a text for each.
inline constexpr MessageText kMessageTexts[] = {
    kTextRenameCaption,      kTextRenameQuestion,   kTextSameBaseTitle,    kTextSameBasePrompt,
    kTextSetExtensionPrompt, kTextReplaceTitle,     kTextReplaceOk,        kTextReplaceCancel,
    kTextReplaceTop,         kTextReplaceFindLabel, kTextReplaceWithLabel, kTextReplacePartLabel,
    kTextReplaceFindCue,     kTextReplaceWithCue,   kTextReplacePartBase,  kTextReplacePartExtension,
    kTextReplacePartWhole,
};

}  // namespace Velmora::SDK
