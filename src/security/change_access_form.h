// The fields of the Add File Access dialog, and the levels of access that it offers.
#pragma once

#include "frame/services/message_texts.h"
#include "platform/text.h"

struct ChangeAccessForm {
  WString userName;           // a user or group
  int accessMask = 0x1200A9;  // of one of the levels
};

struct AccessLevel {
  int mask;
  const WCHAR* word;  // what the form's field takes
  Velmora::SDK::TextId text;
};

// In the order in which they are offered; the first is selected at the beginning.
// clang-format off
inline constexpr AccessLevel kAccessLevels[] = {
  {0x1200A9, W("read"),   Velmora::SDK::kTextAccessDlgRead},    // read and execute
  {0x1201BF, W("write"),  Velmora::SDK::kTextAccessDlgWrite},   // read and write
  {0x1301BF, W("modify"), Velmora::SDK::kTextAccessDlgModify},
  {0x1F01FF, W("full"),   Velmora::SDK::kTextAccessDlgFull},
};
// clang-format on
