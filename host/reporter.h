// What happens in a run, told to whoever called qxhost: as prose, or as one JSON object a line.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/column_table.h"
#include "host/output.h"
#include "platform/text.h"

namespace QxHost {

// A question that was asked, and how it was answered.
struct QuestionEvent {
  enum Kind { kBox, kText, kChoice, kDialog };
  Kind kind = kBox;
  WString title;
  WString text;
  std::uint32_t style = 0;  // of a box, as MessageBoxW takes it
  std::string answer;       // in the form of --answer
  // A text question's default and hint; empty where there is none.
  WString defaultText;
  WString hint;
};

// One rename that the module asked for.
struct RenameEvent {
  WString from;  // full path
  WString to;    // new name
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
  std::string name;      // of a command, as qxhost takes it; empty if it has none
  std::uint32_t id = 0;  // text id; 0 for a separator and for a sub menu with a literal text
  std::uint32_t display = 0;
  WString text;
};

// A script command and its parameters, in the order of their declaration.
struct ScriptCommandEvent {
  struct Parameter {
    std::string name;
    std::string kind;  // what its value is called: TEXT or NUMBER; empty for a switch
    bool required = false;
    WString description;
  };
  std::string name;
  std::uint32_t number = 0;
  WString description;
  std::vector<Parameter> parameters;
};

// What ShellExecuteW was asked to start.
struct ShellEvent {
  WString verb;
  WString file;
  WString arguments;
};

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
  // What a script command has set; at least one of the two.
  virtual void ScriptResult(const std::optional<std::uint32_t>& code, const std::optional<WString>& text) = 0;
  // A block of rows of the module's columns, which are the same in each block.
  virtual void Columns(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows) = 0;
  virtual void Result(std::int32_t value) = 0;
};

std::unique_ptr<Reporter> MakeProseReporter(Output& output);
std::unique_ptr<Reporter> MakeJsonReporter(Output& output);

}  // namespace QxHost
