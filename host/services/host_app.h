// The host as one extension sees it: implements IHostApp with the objects that all extensions share and the
// extension's own language table, settings and menu.
#pragma once

#include <atomic>
#include <list>
#include <mutex>

#include "frame/host/host_app.h"
#include "host/controls/controls.h"
#include "host/services/menus.h"
#include "host/services/settings.h"
#include "host/services/shared.h"
#include "host/services/view_refresh.h"

namespace QxHost {

using Velmora::SDK::s32;

class HostApp final : public Velmora::SDK::IHostApp {
 public:
  // `index` is the index of the extension, `module` its module name, which is the name of its section in the
  // language table and in the settings.
  HostApp(Shared& shared, u32 index, const std::string& module);
  HostApp(const HostApp&) = delete;
  HostApp& operator=(const HostApp&) = delete;

  void ExtensionClosed() override;
  HWND GetMainWindow() override { return nullptr; }  // the host has no window
  u32 FindModuleByGuid(const char* id) override;
  const WCHAR* GetLanguageString(TextId text) override;
  const WCHAR* GetModuleLanguageString(u32 moduleNumber, TextId text) override;
  const WCHAR* GetLanguageTitle(TextId text) override;
  const WCHAR* GetKeyText(WCHAR* buffer, u32 size, u32 key, u32 sixteen, u32 zero) override;
  void PostCommand(u32 number, std::intptr_t a, std::intptr_t b) override;
  int FileListRequest(u32 code, Velmora::SDK::IHostFileList* list, u32 mode, u32 zero) override;
  Velmora::SDK::IHostCommandFactory* GetCommandFactory() override { return &menus; }
  Velmora::SDK::IHostMenuBuilder* GetMenuBuilder() override { return &menus; }
  Velmora::SDK::IHostCustomCommandSet* GetCustomCommandSet(const char* name) override;
  Velmora::SDK::IHostPropertyManager* GetPropertyManager() override { return &shared_.properties; }
  Velmora::SDK::IHostXmlDocument* CreateXmlDocument() override;
  Velmora::SDK::IHostConfig* GetConfig() override { return &settings_; }
  void* GetService(u32 number, std::uintptr_t handle) override;
  void ReleaseService(void* service, u32 numberOrZero) override;
  bool IsProcessElevated() override { return shared_.answers.elevated; }
  bool IsVistaOrNewer() override { return shared_.answers.vistaOrNewer; }
  bool IsOsClassA() override { return shared_.answers.classA; }
  bool IsOsClassB() override { return shared_.answers.classB; }
  bool GetConfigPath(WCHAR* buffer, u32 size) override;
  bool GetTargetPanelPath(WCHAR* buffer, u32 size) override;
  Velmora::SDK::IHostFileList* CreateFileList() override;
  Velmora::SDK::IHostPropertyList* CreatePropertyList() override;
  Velmora::SDK::IHostStringList* CreateStringList() override;
  void LogMessage(u32 category, u32 level, const WCHAR* format, ...) override;
  void LogText(u32 category, u32 level, const WCHAR* text) override;
  void ShowTimedNote(HWND window, const WCHAR* text, u32 milliseconds, u32 two) override;
  int MessageBox(const WCHAR* title, const WCHAR* text, u32 style) override;
  int AskTextSimple(const WCHAR* title, const WCHAR* prompt, u32 zero, u32 alsoZero, WCHAR* buffer,
                    u32 size) override;
  bool AskChoice(Velmora::SDK::AskChoiceRecord* record) override;
  // The default is `defaultText`, or the contents of the buffer if that is null.
  bool AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
               WCHAR* buffer, u32 size, HWND parent, u32 zero) override;
  bool ReadTextFile(WCHAR* buffer, u32 size, const WCHAR* path) override;
  HWND CreateControl(u32 kind, HWND parent, u32 style) override {
    return controls_.Create(kind, parent, style);
  }

  // Sets the receiver of events of the host's controls; null discards them. Events are sent on the thread of
  // the control.
  void SetEventSink(Controls::EventSink sink);
  void SendEvent(std::intptr_t source, s32 code);

  // Returns whether the extension has reported since the last call that it has closed.
  bool TakeClosed() { return closed_.exchange(false); }

  Menus menus;

 private:
  // Returns the text of an id. Reports a missing text once.
  const LanguageText& TextOf(std::string_view section, TextId text);

  Shared& shared_;
  u32 index_;
  std::string module_;
  Settings settings_;
  Controls controls_;
  std::atomic<bool> closed_ = false;
  std::mutex mutex_;  // protects the members below
  Controls::EventSink eventSink_;
  std::list<ViewRefresh> refreshes_;
  std::list<PropertyDefiner> definers_;
};

}  // namespace QxHost
