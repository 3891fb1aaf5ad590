// Text ids of the questions and dialogs that the commands show. The ids of the menu are in the tables of the
// menu.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// The ids of the extension's table.
enum MessageText : TextId {
#define MESSAGE_TEXT(name, id) name = id,
#define MESSAGE_TEXT_AND_TITLE(name, id) name = id,
#include "frame/services/message_texts.def"
};

// Texts of the table that all modules share.
enum CommonTextId : TextId { kCommonTextCancel = 0x00030067, kCommonTextDescription = 0x00A50064 };

// The ids whose second texts are used as well.
inline constexpr MessageText kMessageTitles[] = {
#define MESSAGE_TEXT(name, id)
#define MESSAGE_TEXT_AND_TITLE(name, id) name,
#include "frame/services/message_texts.def"
};

// All ids, for language tables and the tests that check them.
inline constexpr MessageText kMessageTexts[] = {
#define MESSAGE_TEXT(name, id) name,
#define MESSAGE_TEXT_AND_TITLE(name, id) name,
#include "frame/services/message_texts.def"
};

}  // namespace Velmora::SDK
