// IHostApp, the host's main interface, through which all its other interfaces are reached. The host passes it
// to OnRegister and OnStart of each extension; it outlives the extension.
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
  virtual const WCHAR* GetModuleLanguageString(u32 moduleNumber, TextId text) = 0;  // 0 is the common table
  virtual const WCHAR* GetLanguageTitle(TextId text) = 0;  // the second text: tool tips, box captions
  virtual const WCHAR* GetKeyText(WCHAR* buffer, u32 size, u32 key, u32 sixteen, u32 zero) = 0;
  // Passes the command to OnCommand of the extension on the host's main thread. May be called from any
  // thread.
  virtual void PostCommand(u32 number, std::intptr_t a, std::intptr_t b) = 0;
  // Reads a list of items from the current view, or passes one to it; see FileListCode. Returns non-zero on
  // success.
  virtual int FileListRequest(u32 code, IHostFileList* list, u32 mode, u32 zero) = 0;
  virtual IHostCommandFactory* GetCommandFactory() = 0;
  virtual IHostMenuBuilder* GetMenuBuilder() = 0;
  virtual IHostCustomCommandSet* GetCustomCommandSet(const char* name) = 0;
  virtual IHostPropertyManager* GetPropertyManager() = 0;
  virtual IHostXmlDocument* CreateXmlDocument() = 0;
  virtual IHostConfig* GetConfig() = 0;
  // Returns the object of a service (ServiceNumber), or null. The caller returns it with ReleaseService.
  // `handle` is the window handle for the controls (500 and 1000, see host_controls.h) and 0 for all other
  // services.
  virtual void* GetService(u32 number, std::uintptr_t handle) = 0;
  virtual void ReleaseService(void* service, u32 numberOrZero) = 0;
  virtual bool IsProcessElevated() = 0;
  virtual bool IsVistaOrNewer() = 0;
  virtual bool IsOsClassA() = 0;
  virtual bool IsOsClassB() = 0;
  virtual bool GetConfigPath(WCHAR* buffer, u32 size) = 0;       // ends in a backslash
  virtual bool GetTargetPanelPath(WCHAR* buffer, u32 size) = 0;  // ends in a backslash; false without a panel
  virtual IHostFileList* CreateFileList() = 0;
  virtual IHostPropertyList* CreatePropertyList() = 0;
  virtual IHostStringList* CreateStringList() = 0;
  // Logs a text with a format as for wprintf on Windows: %s is a wide text. `category` is 0 or 1, `level` a
  // LogLevel.
  virtual void LogMessage(u32 category, u32 level, const WCHAR* format, ...) = 0;
  virtual void LogText(u32 category, u32 level, const WCHAR* text) = 0;
  virtual void ShowTimedNote(HWND window, const WCHAR* text, u32 milliseconds, u32 two) = 0;
  virtual int MessageBox(const WCHAR* title, const WCHAR* text, u32 style) = 0;  // as MessageBoxW
  // Asks the user for one line of text. Returns non-zero on OK and stores the text in the buffer.
  virtual int AskTextSimple(const WCHAR* title, const WCHAR* prompt, u32 zero, u32 alsoZero, WCHAR* buffer,
                            u32 size) = 0;
  virtual bool AskChoice(AskChoiceRecord* record) = 0;
  // Asks the user for one line of text with a default. `defaultText` may point to `buffer`.
  virtual bool AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
                       WCHAR* buffer, u32 size, HWND parent, u32 zero) = 0;
  virtual bool ReadTextFile(WCHAR* buffer, u32 size, const WCHAR* path) = 0;
  // Creates a control in a window and returns its handle, or null. `kind` is the control's service number
  // (1000).
  virtual HWND CreateControl(u32 kind, HWND parent, u32 style) = 0;

 protected:
  ~IHostApp() = default;
};

}  // namespace Velmora::SDK
