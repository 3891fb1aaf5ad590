// Reports the events of a run to the caller of qxhost, as prose or as one JSON object per line.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/output/column_table.h"
#include "host/output/output.h"
#include "platform/text.h"

namespace QxHost {

// A question and its answer.
struct QuestionEvent {
  enum Kind { kBox, kText, kChoice, kDialog };
  Kind kind = kBox;
  WString title;
  WString text;
  std::uint32_t style = 0;  // the style of a box, as for MessageBoxW
  std::string answer;       // in the form of --answer
  // The default and the hint of a question for a text; may be empty.
  WString defaultText;
  WString hint;
};

// One rename that the module has requested. The texts are owned by the caller.
struct RenameEvent {
  WStringView from;  // full path
  WStringView to;    // new name
  std::uint32_t result = 0;
  bool dryRun = false;
};

// A record of GetExtensionInfo.
struct ExtensionEvent {
  std::uint32_t index = 0;
  WString name;
  std::string module;
  std::string version;
  std::string id;
  std::uint32_t kind = 0;
  std::uint32_t build = 0;
  std::uint32_t order = 0;
  WString description;
};

// A sub menu, an entry or a separator.
struct MenuEvent {
  enum Kind { kSubMenu, kCommand, kSeparator };
  Kind kind = kCommand;
  std::vector<WString> menus;  // the texts of the menus that it is in, the outermost first
  std::uint32_t number = 0;
  std::string name;      // the command's name in qxhost; may be empty
  std::uint32_t id = 0;  // text id; 0 for a separator and for a sub menu with a literal text
  std::uint32_t display = 0;
  WString text;
};

// A script command and its parameters, in the order of their declaration.
struct ScriptCommandEvent {
  struct Parameter {
    std::string name;
    std::string kind;  // the name of its value: TEXT or NUMBER; empty for a switch
    bool required = false;
    WString description;
  };
  std::string name;
  std::uint32_t number = 0;
  WString description;
  std::vector<Parameter> parameters;
};

// The arguments of a call of ShellExecuteW.
struct ShellEvent {
  WString verb;
  WString file;
  WString arguments;
};

// A row of a rename by rules. The texts are owned by the caller.
struct RowEvent {
  WStringView folder;  // ends in a separator
  WStringView oldName;
  WStringView newName;
  std::uint32_t state = 0;    // an ItemState
  bool isOutcome = false;     // the state is the result of a run, whose renames have been reported
  bool stays = false;         // the host would ignore its rename
  bool blocks = false;        // prevents a run
  std::string objection;      // why it cannot be renamed; empty if it can
  std::size_t nameWidth = 0;  // width of the column of old names, in characters
};

// A file with which renames can be undone.
struct UndoEvent {
  WString file;      // full path
  std::string date;  // local time of the run: 2026-03-05T14:07:09
  WString dateText;  // the same in the format of the user's language
  std::size_t items = 0;
  bool restored = false;
  bool isPlan = false;   // of a run that was cut off or is still in progress
  std::string undoCall;  // after a run that has written the file, the call that undoes it; otherwise empty
};

// A saved profile of rename rules.
struct RenameProfileEvent {
  WString name;
  WString filename;  // templates
  WString extension;
  std::string caseRule;  // a value of --case
  std::int32_t start = 0;
  std::int32_t step = 0;
  std::int32_t digits = 0;
  bool regex = false;
  bool replaceAll = false;
  bool caseSensitive = false;
  std::string parts;  // a value of --parts
  std::vector<std::pair<WString, WString>> pairs;
};

// The interface of reporters.
class Reporter {
 public:
  virtual ~Reporter() = default;
  virtual void Log(std::uint32_t category, std::uint32_t level, WStringView text) = 0;
  virtual void Question(const QuestionEvent& event) = 0;
  virtual void Rename(const RenameEvent& event) = 0;
  virtual void List(std::uint32_t request, std::uint32_t marker, const std::vector<WString>& items) = 0;
  virtual void Refresh(WStringView folder) = 0;
  virtual void MissingText(std::uint32_t id) = 0;
  virtual void Extension(const ExtensionEvent& event) = 0;
  virtual void Menu(const MenuEvent& event) = 0;
  virtual void Shell(const ShellEvent& event) = 0;
  virtual void ScriptCommand(const ScriptCommandEvent& event) = 0;
  // Reports the results that a script command has set; at least one of the two has a value.
  virtual void ScriptResult(const std::optional<std::uint32_t>& code, const std::optional<WString>& text) = 0;
  // Reports a block of rows of the module's columns. The columns are the same in all blocks.
  virtual void Columns(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows) = 0;
  virtual void Row(const RowEvent& event) = 0;
  virtual void Undo(const UndoEvent& event) = 0;
  // Reports that an undo file was deleted, by its full path.
  virtual void UndoDeleted(WStringView file) = 0;
  // Reports a numbered list of pairs for renames.
  virtual void Pairs(std::int32_t number, const std::vector<std::pair<WString, WString>>& pairs) = 0;
  virtual void RenameProfile(const RenameProfileEvent& event) = 0;
  // Reports a property of files: its name in templates and its display name.
  virtual void Property(WStringView name, WStringView displayName) = 0;
  // Reports a sentence for a person. Programs get the same information from the other events.
  virtual void Say(std::string_view text) = 0;
  virtual void Result(std::int32_t value) = 0;
};

// Return reporters that write prose or JSON to `output`, which must outlive them.
std::unique_ptr<Reporter> MakeProseReporter(Output& output);
std::unique_ptr<Reporter> MakeJsonReporter(Output& output);

}  // namespace QxHost
