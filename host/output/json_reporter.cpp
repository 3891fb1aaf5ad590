#include <iterator>
#include <nlohmann/json.hpp>

#include "host/output/json_text.h"
#include "host/output/reporter.h"

namespace QxHost {
namespace {

// Keeps members in the order of their insertion.
using Json = nlohmann::ordered_json;

constexpr const char* kQuestionKinds[] = {"box", "text", "choice", "dialog"};

Json PairsAsJson(const std::vector<std::pair<WString, WString>>& pairs) {
  Json list = Json::array();
  for (const auto& [find, replace] : pairs) {
    list.push_back({{"find", ToUtf8(find)}, {"replace", ToUtf8(replace)}});
  }
  return list;
}

class JsonReporter final : public Reporter {
 public:
  explicit JsonReporter(Output& output) : output_(output) {}

  void Log(std::uint32_t category, std::uint32_t level, WStringView text) override {
    Write({{"event", "log"}, {"category", category}, {"level", level}, {"text", ToUtf8(text)}});
    output_.Flush();
  }

  void Question(const QuestionEvent& event) override {
    Json line = {{"event", "question"},
                 {"kind", kQuestionKinds[event.kind]},
                 {"title", ToUtf8(event.title)},
                 {"text", ToUtf8(event.text)},
                 {"style", event.style}};
    if (!event.defaultText.empty()) line["default"] = ToUtf8(event.defaultText);
    if (!event.hint.empty()) line["hint"] = ToUtf8(event.hint);
    line["answer"] = event.answer;
    Write(line);
  }

  void Rename(const RenameEvent& event) override {
    std::string line = R"({"event":"rename","from":)";
    AppendJsonString(line, event.from);
    line += R"(,"to":)";
    AppendJsonString(line, event.to);
    ((line += R"(,"result":)") += std::to_string(event.result)) += '}';
    output_.Line(line);
  }

  void List(std::uint32_t request, std::uint32_t marker, const std::vector<WString>& items) override {
    Json paths = Json::array();
    for (const WString& item : items) paths.push_back(ToUtf8(item));
    Write({{"event", "list"}, {"request", request}, {"marker", marker}, {"items", paths}});
  }

  void Refresh(WStringView folder) override { Write({{"event", "refresh"}, {"folder", ToUtf8(folder)}}); }
  void MissingText(std::uint32_t id) override { Write({{"event", "missing-text"}, {"id", id}}); }

  void Extension(const ExtensionEvent& event) override {
    Write({{"event", "extension"},
           {"index", event.index},
           {"name", ToUtf8(event.name)},
           {"module", event.module},
           {"version", event.version},
           {"id", event.id},
           {"kind", event.kind},
           {"build", event.build},
           {"order", event.order},
           {"description", ToUtf8(event.description)}});
  }

  void Menu(const MenuEvent& event) override {
    std::string path;
    for (const WString& menu : event.menus) path += ToUtf8(menu) + "/";
    Json line = {{"event", "menu"}, {"path", path + ToUtf8(event.text)}};
    line["number"] = event.kind == MenuEvent::kSubMenu ? Json(nullptr) : Json(event.number);
    line["name"] = event.name.empty() ? Json(nullptr) : Json(event.name);
    line["id"] = event.id;
    line["display"] = event.display;
    line["text"] = ToUtf8(event.text);
    Write(line);
  }

  void Shell(const ShellEvent& event) override {
    Write({{"event", "shell"},
           {"verb", ToUtf8(event.verb)},
           {"file", ToUtf8(event.file)},
           {"arguments", ToUtf8(event.arguments)}});
  }

  void ScriptCommand(const ScriptCommandEvent& event) override {
    Json parameters = Json::array();
    for (const ScriptCommandEvent::Parameter& parameter : event.parameters) {
      parameters.push_back({{"name", parameter.name},
                            {"kind", parameter.kind.empty() ? "SWITCH" : parameter.kind},
                            {"required", parameter.required},
                            {"description", ToUtf8(parameter.description)}});
    }
    Write({{"event", "script"},
           {"name", event.name},
           {"number", event.number},
           {"description", ToUtf8(event.description)},
           {"parameters", parameters}});
  }

  void ScriptResult(const std::optional<std::uint32_t>& code, const std::optional<WString>& text) override {
    Write({{"event", "script-result"},
           {"code", code ? Json(*code) : Json(nullptr)},
           {"text", text ? Json(ToUtf8(*text)) : Json(nullptr)}});
  }

  void Columns(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows) override {
    for (const ColumnRow& row : rows) {
      const std::string item = ToUtf8(row.item);
      for (std::size_t index = 0; index < heads.size() && index < row.cells.size(); ++index) {
        const std::optional<WString>& cell = row.cells[index];
        Write({{"event", "column"},
               {"item", item},
               {"name", ToUtf8(heads[index].name)},
               {"value", cell ? Json(ToUtf8(*cell)) : Json(nullptr)}});
      }
    }
  }

  // There may be a million rows, so this writes their JSON directly, without a JSON object.
  void Row(const RowEvent& event) override {
    line_ = R"({"event":"row","folder":)";
    AppendJsonString(line_, event.folder);
    line_ += R"(,"old":)";
    AppendJsonString(line_, event.oldName);
    line_ += R"(,"new":)";
    AppendJsonString(line_, event.newName);
    ((line_ += R"(,"state":)") += std::to_string(event.state)) += '}';
    output_.Line(line_);
  }

  void Undo(const UndoEvent& event) override {
    Write({{"event", "undo"},
           {"file", ToUtf8(event.file)},
           {"date", event.date},
           {"items", event.items},
           {"restored", event.restored},
           {"cutOff", event.isPlan}});
  }

  void UndoDeleted(WStringView file) override { Write({{"event", "deleted"}, {"file", ToUtf8(file)}}); }

  void Pairs(std::int32_t number, const std::vector<std::pair<WString, WString>>& pairs) override {
    Write({{"event", "pairs"}, {"number", number}, {"pairs", PairsAsJson(pairs)}});
  }

  void RenameProfile(const RenameProfileEvent& event) override {
    Write({{"event", "profile"},
           {"name", ToUtf8(event.name)},
           {"filename", ToUtf8(event.filename)},
           {"extension", ToUtf8(event.extension)},
           {"case", event.caseRule},
           {"start", event.start},
           {"step", event.step},
           {"digits", event.digits},
           {"regex", event.regex},
           {"replace-all", event.replaceAll},
           {"case-sensitive", event.caseSensitive},
           {"parts", event.parts},
           {"pairs", PairsAsJson(event.pairs)}});
  }

  void Property(WStringView name, WStringView displayName) override {
    Write({{"event", "property"}, {"name", ToUtf8(name)}, {"display", ToUtf8(displayName)}});
  }

  void Say(std::string_view) override {}
  void Result(std::int32_t value) override { Write({{"event", "result"}, {"value", value}}); }

 private:
  void Write(const Json& line) { output_.Line(line.dump(-1, ' ', false, Json::error_handler_t::replace)); }

  Output& output_;
  std::string line_;  // a member so that its memory is reused
};

}  // namespace

std::unique_ptr<Reporter> MakeJsonReporter(Output& output) { return std::make_unique<JsonReporter>(output); }

}  // namespace QxHost
