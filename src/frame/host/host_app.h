// IHostApp, the entry object of the host: handed to each extension at OnRegister and OnStart, alive as long
// as the extension. Everything else of the host is reached from here.
#pragma once

#include "frame/host/ask_choice_record.h"
#include "frame/host/host_files.h"
#include "frame/host/host_menus.h"
#include "frame/host/host_properties.h"
#include "frame/host/host_script_commands.h"
#include "frame/host/host_settings.h"
#include "frame/host/host_types.h"
#include "frame/host/host_xml.h"

namespace Velmora::SDK {

class IHostApp {
 public:
  virtual void ExtensionClosed() = 0;
  virtual HWND GetMainWindow() = 0;
  virtual u32 FindModuleByGuid(const char* id) = 0;  // 32 hexadecimal digits
  virtual const WCHAR* GetLanguageString(TextId text) = 0;
  virtual const WCHAR* GetModuleLanguageString(u32 moduleNumber, TextId text) = 0;  // 0: the common table
  virtual const WCHAR* GetLanguageTitle(TextId text) = 0;  // the second text: tool tips, box captions
  virtual const WCHAR* GetKeyText(WCHAR* buffer, u32 size, u32 key, u32 sixteen, u32 zero) = 0;
  // Hands the command to OnCommand of the extension on the host's main thread. From any thread.
  virtual void PostCommand(u32 number, std::intptr_t a, std::intptr_t b) = 0;
  // All list traffic with the current view; see FileListCode. Non-zero on success.
  virtual int FileListRequest(u32 code, IHostFileList* list, u32 mode, u32 zero) = 0;
  virtual IHostCommandFactory* GetCommandFactory() = 0;
  virtual IHostMenuBuilder* GetMenuBuilder() = 0;
  virtual IHostCustomCommandSet* GetCustomCommandSet(const char* name) = 0;
  virtual IHostPropertyManager* GetPropertyManager() = 0;
  virtual IHostXmlDocument* CreateXmlDocument() = 0;
  virtual IHostConfig* GetConfig() = 0;
  // The second argument is 0, for the controls (500, 1000) their handle: see host_controls.h. Given back with
  // ReleaseService.
  virtual void* GetService(u32 number, std::uintptr_t handle) = 0;
  virtual void ReleaseService(void* service, u32 numberOrZero) = 0;
  virtual bool IsProcessElevated() = 0;
  virtual bool IsVistaOrNewer() = 0;
  virtual bool IsOsClassA() = 0;
  virtual bool IsOsClassB() = 0;
  virtual bool GetConfigPath(WCHAR* buffer, u32 size) = 0;       // ends in a backslash
  virtual bool GetTargetPanelPath(WCHAR* buffer, u32 size) = 0;  // ends in a backslash; false: no panel
  virtual IHostFileList* CreateFileList() = 0;
  virtual IHostPropertyList* CreatePropertyList() = 0;
  virtual IHostStringList* CreateStringList() = 0;
  // A format as of wprintf: %s is a wide text. The category is 0 or 1, the level of LogLevel.
  virtual void LogMessage(u32 category, u32 level, const WCHAR* format, ...) = 0;
  virtual void LogText(u32 category, u32 level, const WCHAR* text) = 0;
  virtual void ShowTimedNote(HWND window, const WCHAR* text, u32 milliseconds, u32 two) = 0;
  virtual int MessageBox(const WCHAR* title, const WCHAR* text, u32 style) = 0;  // as MessageBoxW
  // Asks for one line of text. Non-zero on OK; the text is in the buffer.
  virtual int AskTextSimple(const WCHAR* title, const WCHAR* prompt, u32 zero, u32 alsoZero, WCHAR* buffer,
                            u32 size) = 0;
  virtual bool AskChoice(AskChoiceRecord* record) = 0;
  // Asks for one line of text with a default. The default may stand in the buffer itself.
  virtual bool AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
                       WCHAR* buffer, u32 size, HWND parent, u32 zero) = 0;
  virtual bool ReadTextFile(WCHAR* buffer, u32 size, const WCHAR* path) = 0;
  // Makes a control of a kind that is its service number (1000) in a window. Null if it cannot be had.
  virtual HWND CreateControl(u32 kind, HWND parent, u32 style) = 0;

 protected:
  ~IHostApp() = default;
};

}  // namespace Velmora::SDK
