// The extensions of the loaded module, from GetExtensionInfo to Delete.
//
// All calls of the module are made here. Exceptions that it throws are rethrown as ModuleFailure.
#pragma once

#include <list>
#include <string>
#include <vector>

#include "frame/host/file_properties.h"
#include "frame/host/plugin_interface.h"
#include "host/services/host_app.h"
#include "host/services/script_call.h"
#include "host/system/module_loader.h"

namespace QxHost {

using Velmora::SDK::s32;

class Extensions {
 public:
  // Reads the records of all extensions and registers their modules.
  Extensions(Shared& shared, const ModuleExports& exports);
  Extensions(const Extensions&) = delete;
  Extensions& operator=(const Extensions&) = delete;
  // Shuts the extensions down and ignores failures. Call Stop before to get them.
  ~Extensions();

  // Reports the records in the order of their indices.
  void ReportRecords() const;

  // Creates, registers and starts all extensions. Returns whether all calls succeeded.
  bool Start();

  void ReportMenus() const;

  // Runs a command of the extension that declared its number, then the commands that it has posted. Returns
  // the result of the first command.
  s32 RunCommand(s32 number);

  // Opens the window of an extension with this command, then runs posted commands until the extension reports
  // that it has closed. Returns the result of the command, at once if it is not 1. Throws ModuleFailure if
  // waiting fails.
  s32 RunWindow(s32 number);

  // Replaces the extension with this command, which has closed: deletes its object and creates and starts a
  // new one.
  void Renew(s32 number);

  // Returns the declared script command of this name. Throws BadCall for an unknown name.
  const DeclaredScriptCommand& ScriptCommand(const std::string& name) const;

  void ReportScriptCommand(const std::string& name) const;
  void ReportAllScriptCommands() const;

  // Runs a script command of the extension that declared it, then the commands that it has posted. Reports
  // the results that the command sets, and returns the command's return value.
  s32 RunScriptCommand(ScriptCall& call);

  // Return the columns that the extensions have declared, and their values for an item, in the same order.
  // The values are stored with the item.
  std::vector<ColumnHead> ColumnHeads() const;
  std::vector<std::optional<WString>> ColumnValues(FileItem& item);
  // Queries the module again for the value of the column at this index of ColumnHeads, and returns it.
  std::optional<WString> ColumnValueAt(FileItem& item, std::size_t index);

  // Shuts all extensions down and deletes them.
  void Stop();

 private:
  struct Extension {
    u32 index;
    ExtensionEvent record;
    std::unique_ptr<HostApp> host;
    void* object = nullptr;
    // The object, as the interface that the extension's index determines; the other pointer is null.
    Velmora::SDK::IPluginInterface* plugin = nullptr;
    Velmora::SDK::IFileProperties* properties = nullptr;
  };

  void Create(Extension& extension);
  bool StartOne(Extension& extension);
  void StopOne(Extension& extension);
  void Delete(Extension& extension, void* object);
  void SendEvent(Velmora::SDK::IPluginInterface& plugin, std::intptr_t source, s32 code);
  std::optional<WString> ColumnValue(FileItem& item, const DeclaredColumn& column);
  Extension* PluginAt(u32 index);
  Extension* OwnerOf(s32 number);
  void RunPosted();

  Shared& shared_;
  ModuleExports exports_;
  std::list<Extension> extensions_;
};

}  // namespace QxHost
