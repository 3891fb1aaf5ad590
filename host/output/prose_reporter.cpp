#include <array>
#include <cstdio>

#include "frame/host/host_types.h"
#include "host/output/reporter.h"

namespace QxHost {
namespace {

constexpr std::size_t kMenuTextWidth = 52;
constexpr std::size_t kMenuNumberWidth = 5;
constexpr std::size_t kParameterWidth = 24;
constexpr std::size_t kPropertyWidth = 14;
constexpr std::size_t kRowMarkWidth = 2;
constexpr std::size_t kRowGap = 3;  // between the columns of old and new names

std::string Hex(std::uint32_t number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%08X", number);
  return text.data();
}

std::string LevelName(std::uint32_t level) {
  if (level == Velmora::SDK::kLogInformation) return "info";
  if (level == Velmora::SDK::kLogError) return "error";
  return std::to_string(level);
}

std::string WithoutLineEnd(std::string text) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  return text;
}

class ProseReporter final : public Reporter {
 public:
  explicit ProseReporter(Output& output) : output_(output) {}

  void Log(std::uint32_t, std::uint32_t level, WStringView text) override {
    output_.Line("[" + LevelName(level) + "] " + WithoutLineEnd(ToUtf8(text)));
    output_.Flush();
  }

  void Question(const QuestionEvent& event) override {
    std::string line = "[question] " + ToUtf8(event.title);
    if (!event.text.empty()) line += ": " + WithoutLineEnd(ToUtf8(event.text));
    if (!event.hint.empty()) line += " (" + ToUtf8(event.hint) + ")";
    if (!event.defaultText.empty()) line += " [" + ToUtf8(event.defaultText) + "]";
    output_.Line(line + " -> " + event.answer);
  }

  void Rename(const RenameEvent& event) override {
    constexpr std::uint32_t kDone = 0;
    if (event.result != kDone) return;  // failures are reported on standard error
    std::string line = event.dryRun ? "would rename " : "renamed ";
    AppendAsUtf8(line, event.from);
    line += " to ";
    AppendAsUtf8(line, event.to);
    output_.Line(line);
  }

  void List(std::uint32_t, std::uint32_t marker, const std::vector<WString>& items) override {
    if (items.empty()) return;
    output_.Line(marker == 0 ? "done:" : "failed:");
    for (const WString& item : items) output_.Line("  " + ToUtf8(item));
  }

  void Refresh(WStringView folder) override { output_.Line("refreshed " + ToUtf8(folder)); }
  void MissingText(std::uint32_t id) override { output_.Line("[missing text] " + Hex(id)); }

  void Extension(const ExtensionEvent& event) override {
    if (event.index != 0) output_.Line("");
    output_.Line(ToUtf8(event.name) + " " + event.version);
    output_.Line("  " + ToUtf8(event.description));
    output_.Line("  index  " + std::to_string(event.index));
    output_.Line("  module " + event.module);
    output_.Line("  id     " + event.id);
    output_.Line("  kind   " + Hex(event.kind));
    output_.Line("  build  " + std::to_string(event.build));
    output_.Line("  order  " + std::to_string(event.order));
  }

  void Menu(const MenuEvent& event) override {
    std::string line(event.menus.size() * 2, ' ');
    line += event.kind == MenuEvent::kSeparator ? "----" : ToUtf8(event.text);
    if (event.kind == MenuEvent::kCommand) {
      const std::size_t width = CharactersOf(line);
      line.append(width < kMenuTextWidth ? kMenuTextWidth - width : 1, ' ');
      std::string number = std::to_string(event.number);
      if (!event.name.empty() && number.size() < kMenuNumberWidth) number.resize(kMenuNumberWidth, ' ');
      line += " " + number + (event.name.empty() ? "" : "  " + event.name);
    }
    output_.Line(line);
  }

  void Shell(const ShellEvent& event) override {
    output_.Line("would start " + ToUtf8(event.file) + " " + ToUtf8(event.arguments) + " (" +
                 ToUtf8(event.verb) + ")");
  }

  void ScriptCommand(const ScriptCommandEvent& event) override {
    output_.Line(event.name + " - " + ToUtf8(event.description));
    for (const ScriptCommandEvent::Parameter& parameter : event.parameters) {
      std::string line = "  " + parameter.name;
      if (!parameter.kind.empty()) line += "=" + parameter.kind;
      line.append(line.size() < kParameterWidth ? kParameterWidth - line.size() : 1, ' ');
      line += ToUtf8(parameter.description);
      output_.Line(parameter.required ? line + " (required)" : line);
    }
  }

  void ScriptResult(const std::optional<std::uint32_t>& code, const std::optional<WString>& text) override {
    std::string line = "script result";
    if (code) line += " " + std::to_string(*code);
    output_.Line(text ? line + ": " + WithoutLineEnd(ToUtf8(*text)) : line);
  }

  void Columns(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows) override {
    table_.Write(heads, rows, [this](const std::string& line) { output_.Line(line); });
  }

  // Does not write rows of a run: its renames have been reported already.
  void Row(const RowEvent& event) override {
    if (event.isOutcome) return;
    if (event.folder != rowFolder_) {
      rowFolder_ = event.folder;
      output_.Line(ToUtf8(event.folder));
    }
    line_ = event.stays ? "= " : event.blocks ? "! " : event.objection.empty() ? "  " : "? ";
    AppendAsUtf8(line_, event.oldName);
    const std::size_t width = CharactersOf(line_);
    const std::size_t column = event.nameWidth + kRowGap + kRowMarkWidth;
    line_.append(width < column ? column - width : 1, ' ');
    AppendAsUtf8(line_, event.newName);
    if (!event.objection.empty()) (line_ += "   <- ") += event.objection;
    output_.Line(line_);
  }

  void Undo(const UndoEvent& event) override {
    if (!event.undoCall.empty()) {
      output_.Line("Undo file: " + ToUtf8(event.file));
      output_.Line("Undo it: " + event.undoCall);
      return;
    }
    output_.Line(ToUtf8(WStringView(event.file).substr(event.file.rfind(W('\\')) + 1)) + "  " +
                 ToUtf8(event.dateText) + "  " + std::to_string(event.items) +
                 (event.items == 1 ? " rename" : " renames") +
                 (event.isPlan ? ", cut off or not at its end" : "") + (event.restored ? ", undone" : ""));
  }

  void UndoDeleted(WStringView file) override {
    output_.Line("deleted " + ToUtf8(file.substr(file.rfind(W('\\')) + 1)));
  }

  void Pairs(std::int32_t number, const std::vector<std::pair<WString, WString>>& pairs) override {
    output_.Line("list " + std::to_string(number));
    for (const auto& [find, replace] : pairs) PairLine(find, replace);
  }

  void RenameProfile(const RenameProfileEvent& event) override {
    output_.Line(ToUtf8(event.name));
    output_.Line("  --name \"" + ToUtf8(event.filename) + "\" --extension \"" + ToUtf8(event.extension) +
                 "\" --case " + event.caseRule + " --start " + std::to_string(event.start) + " --step " +
                 std::to_string(event.step) + " --digits " + std::to_string(event.digits));
    if (event.pairs.empty()) return;
    output_.Line(std::string("  --parts ") + event.parts + (event.regex ? " --regex" : "") +
                 (event.replaceAll ? " --replace-all" : "") +
                 (event.caseSensitive ? " --case-sensitive" : ""));
    for (const auto& [find, replace] : event.pairs) PairLine(find, replace);
  }

  void Property(WStringView name, WStringView displayName) override {
    std::string line = "  " + ToUtf8(name);
    line.append(line.size() < kPropertyWidth ? kPropertyWidth - line.size() : 1, ' ');
    output_.Line(line + ToUtf8(displayName));
  }

  void Say(std::string_view text) override { output_.Line(text); }

  // Writes nothing: the exit status is the result.
  void Result(std::int32_t) override {}

 private:
  void PairLine(const WString& find, const WString& replace) {
    output_.Line("  --find \"" + ToUtf8(find) + "\" --replace \"" + ToUtf8(replace) + "\"");
  }

  Output& output_;
  ColumnTable table_;
  WString rowFolder_;  // the folder of the previous row
  std::string line_;   // a member so that its memory is reused
};

}  // namespace

std::unique_ptr<Reporter> MakeProseReporter(Output& output) {
  return std::make_unique<ProseReporter>(output);
}

}  // namespace QxHost
