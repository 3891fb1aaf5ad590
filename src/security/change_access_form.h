// The fields of the Add File Access dialog, and the levels of access that it offers.
#pragma once

#include "frame/services/message_texts.h"
#include "platform/text.h"

struct ChangeAccessForm {
  WString userName;           // a user or group
  int accessMask = 0x1200A9;  // that of one of kAccessLevels
};

// One level of access: its mask, its value in the form's field, and its text.
struct AccessLevel {
  int mask;
  const WCHAR* word;  // the value of the form's field
  Velmora::SDK::TextId text;
};

// The levels in the order of the dialog's list; the first is the default.
// clang-format off
inline constexpr AccessLevel kAccessLevels[] = {
  {0x1200A9, W("read"),   Velmora::SDK::kTextAccessDlgRead},    // read and execute
  {0x1201BF, W("write"),  Velmora::SDK::kTextAccessDlgWrite},   // read and write
  {0x1301BF, W("modify"), Velmora::SDK::kTextAccessDlgModify},
  {0x1F01FF, W("full"),   Velmora::SDK::kTextAccessDlgFull},
};
// clang-format on
