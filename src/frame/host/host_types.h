// Numbers and handles that cross between the module and its host.
//
// All interfaces here are classes of pure virtual operations without a virtual destructor: the order of the
// operations is the contract, and nobody deletes an object through them. An object that a Create operation
// makes is given back through its own Release or the operation that its comment names. Texts are
// zero-terminated UTF-16 unless they are `char`, which is ASCII; a text that the host returns is the host's
// and stays valid until the next call into the host. A buffer's size is in characters, and the host writes a
// terminated text.
//
// File Utils calls its host on the thread of the host's own call. MultiRename also does from its window's
// thread and its worker.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace Velmora::SDK {

using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;
using s32 = std::int32_t;
using s64 = std::int64_t;

// The number of a text in the host's language table: text number in the high 16 bits, section in the low 16.
using TextId = u32;

// Opaque handles of the host.
struct MenuHandleTag;
using MenuHandle = MenuHandleTag*;
struct CommandHandleTag;
using CommandHandle = CommandHandleTag*;
struct XmlNodeTag;
using XmlNode = XmlNodeTag*;

// Numbers of IHostApp::GetService.
enum ServiceNumber : u32 {
  kServiceListControl = 500,
  kServiceContainerControl = 1000,
  kServiceFileOperation = 3000,
  kServiceViewRefresh = 3010,
  kServicePropertyDefiner = 3100,
  kServiceHelperChannel = 3250,
};

// Codes of IHostApp::FileListRequest.
enum FileListCode : u32 {
  kListAllItems = 21110,     // appends all items of the view
  kListFocusedItem = 21111,  // fills with the focused item
  kListResult = 21120,       // hands a result list back; mode 0 for good items, 1 for failed ones
  kListSelectedItems = 21215,
};

// Modes of IHostApp::FileListRequest. All return items in the order of the view; those that say so can return
// folders.
enum FileListMode : u32 {
  kModePlain = 0,
  kModeRename = 16,  // with folders
  kModeContent = 18,
  kModeWithFolders = 19,
};

// Levels of IHostApp::LogMessage and LogText.
enum LogLevel : u32 { kLogInformation = 10, kLogError = 30 };

}  // namespace Velmora::SDK
