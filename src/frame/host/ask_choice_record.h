// The record of IHostApp::AskChoice. It is passed to the host, so its layout is fixed to the byte; unnamed
// bytes are zero.
#pragma once

#include <cstddef>

#include "frame/host/host_settings.h"

namespace Velmora::SDK {

struct AskChoiceRecord {
  std::uint8_t reserved0[8] = {};
  WCHAR caption[64] = {};  // not terminated if the text fills it
  WCHAR prompt[256] = {};  // likewise
  std::uint8_t reserved1[1536] = {};
  WCHAR result[256] = {};  // written by the host: the text of the chosen row
  s32 selected = 0;        // the row selected at the start
  std::uint8_t reserved2[516] = {};
  IHostStringList* choices = nullptr;  // the rows; owned by the caller
  std::uint8_t reserved3[8] = {};
};

static_assert(offsetof(AskChoiceRecord, caption) == 8);
static_assert(offsetof(AskChoiceRecord, prompt) == 136);
static_assert(offsetof(AskChoiceRecord, result) == 2184);
static_assert(offsetof(AskChoiceRecord, selected) == 2696);
static_assert(offsetof(AskChoiceRecord, choices) == 3216);
static_assert(sizeof(AskChoiceRecord) == 3232);

}  // namespace Velmora::SDK
