// Numbers and handles that are passed between the module and its host.
//
// All interfaces of the host are classes of pure virtual functions without a virtual destructor. The order of
// the functions is the binary contract; objects are never deleted through the interfaces. The caller releases
// an object that a Create operation returns with the object's Release, or with the operation that its comment
// names. Texts are zero-terminated UTF-16, or ASCII if they are `char`. A text that the host returns is owned
// by the host and valid until the next call into the host. The size of a buffer is in characters; the host
// writes a terminated text.
//
// File Utils calls the host only on the thread on which the host calls it. MultiRename also calls the host on
// the threads of its window and its worker.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace Velmora::SDK {

using u16 = std::uint16_t;
using u32 = std::uint32_t;
using u64 = std::uint64_t;
using s32 = std::int32_t;
using s64 = std::int64_t;

// The number of a text in the host's language table: the text number in the high 16 bits, the section in the
// low 16 bits.
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
  kListFocusedItem = 21111,  // adds the focused item
  kListResult = 21120,       // passes a list of results to the view; mode 0: succeeded, 1: failed
  kListSelectedItems = 21215,
};

// Modes of IHostApp::FileListRequest. All return items in the order of the view; the modes marked below also
// return folders.
enum FileListMode : u32 {
  kModePlain = 0,
  kModeRename = 16,  // with folders
  kModeContent = 18,
  kModeWithFolders = 19,
};

// Levels of IHostApp::LogMessage and LogText.
enum LogLevel : u32 { kLogInformation = 10, kLogError = 30 };

}  // namespace Velmora::SDK
