// The extensions of the loaded module, from GetExtensionInfo to Delete.
//
// Calls of the module are made here and nowhere else, and whatever it throws leaves as a ModuleFailure.
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
  // Asks for the records of all extensions, and makes the modules known.
  Extensions(Shared& shared, const ModuleExports& exports);
  Extensions(const Extensions&) = delete;
  Extensions& operator=(const Extensions&) = delete;
  // Ends what Start began, in silence: whoever wants to hear of failures calls Stop.
  ~Extensions();

  // The records, in the order of their indices.
  void ReportRecords() const;

  // Creates and registers all extensions, and starts them. Answers whether each said yes.
  bool Start();

  void ReportMenus() const;

  // One command, by the extension that declared its number; then what it has posted. The answer is the
  // command's own.
  s32 RunCommand(s32 number);

  // Opens the window of an extension with this command, then serves what is posted until the extension says
  // that it is closed. Returns the command's own answer, at once if that is not 1. Throws ModuleFailure if
  // the system cannot wait.
  s32 RunWindow(s32 number);

  // Deletes the object of the extension with this command, which has closed, and makes and starts a new one.
  void Renew(s32 number);

  // The declared script command of this name. Throws BadCall for a name that is none.
  const DeclaredScriptCommand& ScriptCommand(const std::string& name) const;

  void ReportScriptCommand(const std::string& name) const;
  void ReportAllScriptCommands() const;

  // One script command, by the extension that declared it; then what it has posted. Tells the results that
  // the command sets, and answers the command's own.
  s32 RunScriptCommand(ScriptCall& call);

  // The columns that the extensions have declared, and their values for an item, in the same order. A value
  // is kept with the item.
  std::vector<ColumnHead> ColumnHeads() const;
  std::vector<std::optional<WString>> ColumnValues(FileItem& item);
  // The value of the column at this place of ColumnHeads, asked for anew.
  std::optional<WString> ColumnValueAt(FileItem& item, std::size_t index);

  // Shuts all extensions down and deletes them.
  void Stop();

 private:
  struct Extension {
    u32 index;
    ExtensionEvent record;
    std::unique_ptr<HostApp> host;
    void* object = nullptr;
    // What the object is, by the extension's index; the other one is null.
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
