#include "host/services/extensions.h"

#include <algorithm>
#include <array>
#include <exception>

#include "host/output/failures.h"
#include "host/output/nearest_name.h"

namespace QxHost {
namespace {

using Velmora::SDK::ExtensionInfo;
using Velmora::SDK::IFileProperties;
using Velmora::SDK::IPluginInterface;

// The most extensions that are read, in case a module never reports the end.
constexpr u32 kMaxExtensions = 64;

// The indices of the extensions: the one with the properties provides columns, all others handle commands.
constexpr u32 kPropertiesIndex = 1;
constexpr u32 kFileUtilsIndex = 0;
constexpr u32 kMultiRenameIndex = 2;
constexpr s32 kFirstMultiRenameNumber = Velmora::SDK::kCommandMultiRename;
constexpr s32 kLastMultiRenameNumber = 32999;

template <typename CharT, std::size_t size>
std::basic_string<CharT> FieldText(const CharT (&field)[size]) {
  return std::basic_string<CharT>(field, std::find(field, field + size, CharT()));
}

// Calls the module, and turns its exceptions into ModuleFailure.
template <typename Call>
auto Guarded(const char* operation, Call call) {
  try {
    return call();
  } catch (const std::exception& error) {
    throw ModuleFailure(std::string("the module threw out of ") + operation + ": " + error.what());
  } catch (...) {
    throw ModuleFailure(std::string("the module threw out of ") + operation + ": an unknown exception");
  }
}

ExtensionEvent RecordOf(u32 index, const ExtensionInfo& info) {
  ExtensionEvent record;
  record.index = index;
  record.name = FieldText(info.name);
  record.module = ToUtf8(FieldText(info.moduleName));
  record.version = FieldText(info.version);
  record.id = FieldText(info.id);
  record.kind = info.kindFlags;
  record.build = info.hostBuild;
  record.order = info.orderValue;
  record.description = FieldText(info.description);
  return record;
}

void Report(Reporter& reporter, const DeclaredScriptCommand& command) {
  ScriptCommandEvent event{command.name, command.number, command.description, {}};
  for (const DeclaredScriptCommand::Parameter& parameter : command.parameters) {
    event.parameters.push_back(
        {parameter.name, parameter.KindName(), parameter.IsRequired(), parameter.description});
  }
  reporter.ScriptCommand(event);
}

}  // namespace

Extensions::Extensions(Shared& shared, const ModuleExports& exports) : shared_(shared), exports_(exports) {
  for (u32 index = 0; index < kMaxExtensions; ++index) {
    const auto info = std::make_unique<ExtensionInfo>();
    if (!Guarded("GetExtensionInfo", [&] { return exports_.getExtensionInfo(index, info.get()); })) break;
    Extension& extension = extensions_.emplace_back();
    extension.index = index;
    extension.record = RecordOf(index, *info);
    extension.host = std::make_unique<HostApp>(shared_, index, extension.record.module);
    shared_.modules.Add(extension.record.id, extension.record.module);
  }
  if (extensions_.empty()) throw ModuleFailure("the module has no extensions");
}

Extensions::~Extensions() {
  for (Extension& extension : extensions_) {
    try {
      StopOne(extension);
    } catch (const ModuleFailure&) {
    }
  }
}

void Extensions::ReportRecords() const {
  for (const Extension& extension : extensions_) shared_.reporter.Extension(extension.record);
}

void Extensions::Create(Extension& extension) {
  const s32 index = static_cast<s32>(extension.index);
  extension.object = Guarded("Create", [&] { return exports_.create(index); });
  if (!extension.object)
    throw ModuleFailure("the module did not create its extension " + std::to_string(index));
  if (extension.index == kPropertiesIndex) {
    extension.properties = static_cast<IFileProperties*>(extension.object);
  } else {
    extension.plugin = static_cast<IPluginInterface*>(extension.object);
    extension.host->SetEventSink([this, plugin = extension.plugin](std::intptr_t source, s32 code) {
      SendEvent(*plugin, source, code);
    });
  }
}

// Called by window procedures, through which exceptions must not propagate.
void Extensions::SendEvent(IPluginInterface& plugin, std::intptr_t source, s32 code) {
  try {
    Guarded("OnHostEvent", [&] { return plugin.OnHostEvent(source, code); });
  } catch (const ModuleFailure& failure) {
    shared_.output.Problem(failure.what());
  }
}

bool Extensions::StartOne(Extension& extension) {
  HostApp* const host = extension.host.get();
  if (extension.properties) {
    Guarded("RegisterProperties", [&] { return extension.properties->RegisterProperties(host); });
    Guarded("Attach", [&] { return extension.properties->Attach(1); });
    return true;  // the results of these calls have no meaning
  }
  const s32 registered = Guarded("OnRegister", [&] { return extension.plugin->OnRegister(host); });
  const s32 started = Guarded("OnStart", [&] { return extension.plugin->OnStart(host); });
  return registered == 1 && started == 1;
}

bool Extensions::Start() {
  for (Extension& extension : extensions_) Create(extension);
  bool allSaidYes = true;
  for (Extension& extension : extensions_) allSaidYes = StartOne(extension) && allSaidYes;
  return allSaidYes;
}

void Extensions::ReportMenus() const {
  for (const Extension& extension : extensions_) extension.host->menus.Report(shared_.reporter);
}

Extensions::Extension* Extensions::PluginAt(u32 index) {
  const auto found = std::find_if(
      extensions_.begin(), extensions_.end(),
      [index](const Extension& extension) { return extension.index == index && extension.plugin; });
  return found == extensions_.end() ? nullptr : &*found;
}

Extensions::Extension* Extensions::OwnerOf(s32 number) {
  const auto declared = shared_.commandOwners.find(static_cast<u32>(number));
  u32 index = kFileUtilsIndex;
  if (declared != shared_.commandOwners.end()) {
    index = declared->second;
  } else if (number >= kFirstMultiRenameNumber && number <= kLastMultiRenameNumber) {
    index = kMultiRenameIndex;
  }
  return PluginAt(index);
}

s32 Extensions::RunCommand(s32 number) {
  Extension* const owner = OwnerOf(number);
  const s32 answer = owner ? Guarded("OnCommand", [&] { return owner->plugin->OnCommand(number, 0, 0); }) : 0;
  RunPosted();
  return answer;
}

const DeclaredScriptCommand& Extensions::ScriptCommand(const std::string& name) const {
  if (const DeclaredScriptCommand* const command = shared_.scriptCommands.Find(name)) return *command;
  std::string list;
  std::vector<std::string_view> names;
  for (const DeclaredScriptCommand& command : shared_.scriptCommands.commands) {
    list += (list.empty() ? "" : ", ") + command.name;
    names.push_back(command.name);
  }
  throw BadCall("\"" + name + "\" is not a script command; the script commands are: " + list +
                DidYouMean(name, names));
}

void Extensions::ReportScriptCommand(const std::string& name) const {
  Report(shared_.reporter, ScriptCommand(name));
}

void Extensions::ReportAllScriptCommands() const {
  for (const DeclaredScriptCommand& command : shared_.scriptCommands.commands) {
    Report(shared_.reporter, command);
  }
}

s32 Extensions::RunScriptCommand(ScriptCall& call) {
  Extension* const owner = PluginAt(shared_.scriptCommands.owner);
  const s32 answer =
      owner ? Guarded("OnCustomCommand", [&] { return owner->plugin->OnCustomCommand(&call); }) : 0;
  RunPosted();
  if (call.resultCode || call.resultText) shared_.reporter.ScriptResult(call.resultCode, call.resultText);
  return answer;
}

std::vector<ColumnHead> Extensions::ColumnHeads() const {
  std::vector<ColumnHead> heads;
  for (const DeclaredColumn& column : shared_.columns) {
    heads.push_back({column.name, column.heading, column.isNumber});
  }
  return heads;
}

std::vector<std::optional<WString>> Extensions::ColumnValues(FileItem& item) {
  std::vector<std::optional<WString>> values;
  for (const DeclaredColumn& column : shared_.columns) values.push_back(ColumnValue(item, column));
  return values;
}

std::optional<WString> Extensions::ColumnValueAt(FileItem& item, std::size_t index) {
  return ColumnValue(item, shared_.columns.at(index));
}

std::optional<WString> Extensions::ColumnValue(FileItem& item, const DeclaredColumn& column) {
  constexpr std::size_t kCellChars = Velmora::SDK::StoredProperty::kTextCharacters;
  std::array<WCHAR, kCellChars + 1> text = {};  // terminated even if the module fills the cell
  const auto owner = std::ranges::find(extensions_, column.owner, &Extension::index);
  const bool hasValue = owner != extensions_.end() && owner->properties && Guarded("GetPropertyValue", [&] {
                          return owner->properties->GetPropertyValue(
                              &item, text.data(), kCellChars, static_cast<std::uint16_t>(column.number));
                        });
  std::optional<WString> value;
  if (hasValue) value = text.data();
  item.properties.Store(column.module, column.number, value);
  return value;
}

void Extensions::RunPosted() {
  while (const std::optional<PostedCommand> command = shared_.posted.Take()) {
    for (const Extension& extension : extensions_) {
      if (extension.host.get() != command->extension || !extension.plugin) continue;
      Guarded("OnCommand", [&] {
        return extension.plugin->OnCommand(static_cast<s32>(command->number), command->a, command->b);
      });
    }
  }
}

s32 Extensions::RunWindow(s32 number) {
  Extension* const owner = OwnerOf(number);
  if (!owner) return 0;
  owner->host->TakeClosed();
  const s32 answer = RunCommand(number);
  if (answer != 1) return answer;
  while (!owner->host->TakeClosed()) {
    if (!shared_.posted.Wait()) throw ModuleFailure("cannot wait for the window of the module");
    RunPosted();
  }
  return answer;
}

void Extensions::Renew(s32 number) {
  Extension* const owner = OwnerOf(number);
  if (!owner) return;
  Delete(*owner, std::exchange(owner->object, nullptr));
  // Such as a second shutdown, if the window closed while the host shut it down: it would close the next one.
  shared_.posted.Drop(owner->host.get());
  Create(*owner);
  StartOne(*owner);
}

void Extensions::StopOne(Extension& extension) {
  void* const object = std::exchange(extension.object, nullptr);
  if (!object) return;
  if (extension.plugin) {
    Guarded("OnCommand", [&] { return extension.plugin->OnCommand(Velmora::SDK::kCommandShutdown, 0, 0); });
  } else {
    Guarded("Detach", [&] { return extension.properties->Detach(); });
  }
  Delete(extension, object);
}

void Extensions::Delete(Extension& extension, void* object) {
  extension.host->SetEventSink(nullptr);
  extension.plugin = nullptr;
  extension.properties = nullptr;
  const s32 index = static_cast<s32>(extension.index);
  if (!Guarded("Delete", [&] { return exports_.destroy(object, index); })) {
    throw ModuleFailure("the module did not delete its extension " + std::to_string(index));
  }
}

void Extensions::Stop() {
  for (Extension& extension : extensions_) StopOne(extension);
}

}  // namespace QxHost
