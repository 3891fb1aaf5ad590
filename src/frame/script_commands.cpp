#include "frame/script_commands.h"

#include "frame/host/command_numbers.h"

using namespace Velmora::SDK;

namespace {

constexpr const char* kSetName = "QX.Utils";

// The flags and the kind of all three commands. The host defines their bits; this module only passes them to
// the host.
constexpr u32 kScriptCommandFlags = 0x100000;
constexpr u32 kScriptCommandKind = 2048;

// clang-format off
constexpr ScriptParameter kCreateLinkParameters[] = {
  {"LNKTYPE", kScriptRequired | kScriptNumber, 0x00330063},
  {"LNKSRC", kScriptRequired | kScriptText, 0x00340063},
  {"LNKTRG", kScriptRequired | kScriptText, 0x00350063},
  {"ASADMIN", kScriptSwitch, 0x00360063},
};

// Scripts depend on the spelling of "NATRUALNUMORDER" (C-006).
constexpr ScriptParameter kSortLinesParameters[] = {
  {"FILE", kScriptRequired | kScriptText, 0x003D0063},
  {"TARGET", kScriptText, 0x003E0063},
  {"SORTBY", kScriptText, 0x003F0063},
  {"KEEPTOP", kScriptNumber, 0x00400063},
  {"KEEPBOTTOM", kScriptNumber, 0x00410063},
  {"LINEOFFSET", kScriptNumber, 0x00420063},
  {"SKIPLEADINGSPACE", kScriptSwitch, 0x00430063},
  {"IGNORECASE", kScriptSwitch, 0x00440063},
  {"LANGUAGEORDER", kScriptSwitch, 0x00450063},
  {"NATRUALNUMORDER", kScriptSwitch, 0x00460063},
  {"REVERSE", kScriptSwitch, 0x00470063},
  {"OVERWRITE", kScriptSwitch, 0x00480063},
  {"SORTAS", kScriptText, 0x00490063},
  {"DATEFORMAT", kScriptText, 0x004A0063},
  {"ITEMSEP", kScriptText, 0x004B0063},
  {"ITEM", kScriptText, 0x004C0063},
  {"SUBSTRLEN", kScriptText, 0x004D0063},
  {"ENDCHAR", kScriptText, 0x004E0063},
  {"ENDATWHITESPACE", kScriptSwitch, 0x004F0063},
  {"KEEPBACKUP", kScriptSwitch, 0x00500063},
  {"DELETE", kScriptSwitch, 0x00510063},
  {"SILENT", kScriptSwitch, 0x00520063},
};

// IGNORECASE and OVERWRITE are declared so that scripts may give them; they have no effect (C-242).
constexpr ScriptParameter kFindAndReplaceParameters[] = {
  {"FILE", kScriptRequired | kScriptText, 0x005B0063},
  {"TARGET", kScriptText, 0x003E0063},
  {"FIND", kScriptRequired | kScriptText, 0x005C0063},
  {"REPLACEWITH", kScriptRequired | kScriptText, 0x005D0063},
  {"MODE", kScriptText, 0x005F0063},
  {"REPLACEALL", kScriptSwitch, 0x005E0063},
  {"IGNORECASE", kScriptSwitch, 0x00440063},
  {"FORCEUTF8", kScriptSwitch, 0x00600063},
  {"WILDCARD", kScriptSwitch, 0x00610063},
  {"OVERWRITE", kScriptSwitch, 0x00480063},
  {"KEEPBACKUP", kScriptSwitch, 0x00500063},
  {"DELETE", kScriptSwitch, 0x00510063},
  {"SILENT", kScriptSwitch, 0x00520063},
};

constexpr ScriptCommand kScriptCommands[] = {
  {"CreateLink", kScriptCreateLink, 0x00320063, kCreateLinkParameters},
  {"SortLines", kScriptSortLines, 0x003C0063, kSortLinesParameters},
  {"FindAndReplace", kScriptFindAndReplace, 0x005A0063, kFindAndReplaceParameters},
};
// clang-format on

}  // namespace

std::span<const ScriptCommand> ScriptCommands() { return kScriptCommands; }

void RegisterScriptCommands(IHostApp& host) {
  IHostCustomCommandSet* const set = host.GetCustomCommandSet(kSetName);
  if (!set || set->IsRegistered()) return;
  for (const ScriptCommand& row : kScriptCommands) {
    IHostCustomCommand* const command =
        set->AddCommand(row.name, row.number, kScriptCommandFlags, kScriptCommandKind);
    if (!command) continue;
    command->SetDescription(host.GetLanguageString(row.description));
    for (const ScriptParameter& parameter : row.parameters) {
      command->AddParameter(parameter.name, parameter.flags, host.GetLanguageString(parameter.description));
    }
  }
  set->Commit(1);
}
