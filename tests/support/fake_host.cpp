#include "support/fake_host.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ostream>

using namespace Velmora::SDK;

namespace {

std::string Number(std::int64_t value) { return std::to_string(value); }

// In this format %s is a wide string; the conversions for numbers are %d, %u and %I64d.
WString FormatLogLine(const WCHAR* format, va_list arguments) {
  WString line;
  for (const WCHAR* at = format; *at; ++at) {
    if (*at != W('%') || !at[1]) {
      line += *at;
      continue;
    }
    if (WStringView(at).starts_with(W("%I64d"))) {
      line += FromUtf8(std::to_string(va_arg(arguments, long long)));
      at += 4;
      continue;
    }
    switch (*++at) {
      case W('s'):
        line += ViewOf(va_arg(arguments, const WCHAR*));
        break;
      case W('d'):
        line += FromUtf8(Number(va_arg(arguments, int)));
        break;
      case W('u'):
        line += FromUtf8(Number(va_arg(arguments, unsigned)));
        break;
      default:
        line += *at;
        break;
    }
  }
  return line;
}

}  // namespace

FakeFileItem* FakeHost::AddFile(const WString& name) {
  return &items_.emplace_back(recorder, W("C:\\view\\"), name, FILE_ATTRIBUTE_ARCHIVE);
}

FakeFileItem* FakeHost::AddFolder(const WString& name) {
  return &items_.emplace_back(recorder, W("C:\\view\\"), name, FILE_ATTRIBUTE_DIRECTORY);
}

FakeFileItem* FakeHost::AddFileIn(const WString& folder, const WString& name) {
  return &items_.emplace_back(recorder, folder, name, FILE_ATTRIBUTE_ARCHIVE);
}

void PrintTo(const ResultList& list, std::ostream* out) {
  *out << list.mode << ":";
  for (const WString& path : list.paths) *out << " " << ToUtf8(path);
}

void FakeHost::SelectFiles(const std::vector<WString>& names) {
  for (const WString& name : names) selection.push_back(AddFile(name));
}

WString FakeHost::NameOf(const char* kind, TextId text) { return FromUtf8(kind + Hex(text).substr(2)); }

void FakeHost::ExtensionClosed() { recorder.Record("ExtensionClosed()"); }

HWND FakeHost::GetMainWindow() {
  recorder.Record("GetMainWindow()");
  return mainWindow;
}

u32 FakeHost::FindModuleByGuid(const char* id) {
  recorder.Record(std::string("FindModuleByGuid(") + (id ? id : "null") + ")");
  return moduleNumber;
}

const WCHAR* FakeHost::GetLanguageString(TextId text) {
  if (!recorder.Allow("GetLanguageString(" + Hex(text) + ")")) return nullptr;
  const auto found = texts.find(text);
  return recorder.Lend(found != texts.end() ? found->second : NameOf("T", text));
}

const WCHAR* FakeHost::GetModuleLanguageString(u32 module, TextId text) {
  if (!recorder.Allow("GetModuleLanguageString(" + Number(module) + ", " + Hex(text) + ")")) return nullptr;
  const auto found = commonTexts.find(text);
  if (module == 0 && found != commonTexts.end()) return recorder.Lend(found->second);
  return recorder.Lend(NameOf(("M" + Number(module) + ":").c_str(), text));
}

const WCHAR* FakeHost::GetLanguageTitle(TextId text) {
  if (!recorder.Allow("GetLanguageTitle(" + Hex(text) + ")")) return nullptr;
  const auto found = titles.find(text);
  return recorder.Lend(found != titles.end() ? found->second : NameOf("L", text));
}

const WCHAR* FakeHost::GetKeyText(WCHAR* buffer, u32 size, u32 key, u32 sixteen, u32 zero) {
  recorder.Record("GetKeyText(" + Number(size) + ", " + Number(key) + ", " + Number(sixteen) + ", " +
                  Number(zero) + ")");
  CopyTerminated(buffer, size, WStringView(keyText));
  return buffer;
}

void FakeHost::PostCommand(u32 number, std::intptr_t a, std::intptr_t b) {
  recorder.Record("PostCommand(" + Number(number) + ", " + Number(a) + ", " + Number(b) + ")");
}

int FakeHost::FileListRequest(u32 code, IHostFileList* list, u32 mode, u32 zero) {
  auto* fake = static_cast<FakeFileList*>(list);
  const bool allowed =
      recorder.Allow("FileListRequest(" + Number(code) + ", " + (fake ? fake->Name() : std::string("null")) +
                     ", " + Number(mode) + ", " + Number(zero) + ")");
  if (!fake) {
    recorder.Problem("FileListRequest was given no list");
    return 0;
  }
  const int answer = allowed && code != refusedRequest ? 1 : 0;
  if (answer == 0 && !fillsRefusedLists) return answer;
  switch (code) {
    case kListSelectedItems:
      for (FakeFileItem* item : selection) fake->Append(item);
      return answer;
    case kListAllItems:
      for (FakeFileItem* item : view) fake->Append(item);
      return answer;
    case kListFocusedItem:
      if (focused) fake->Append(focused);
      return focused ? answer : 0;
    case kListResult:
      resultLists.push_back({mode, fake->Paths()});
      return answer;
    default:
      recorder.Problem("no such list request: " + Number(code));
      return 0;
  }
}

IHostCommandFactory* FakeHost::GetCommandFactory() {
  return recorder.Allow("GetCommandFactory()") ? &factory : nullptr;
}

IHostMenuBuilder* FakeHost::GetMenuBuilder() { return recorder.Allow("GetMenuBuilder()") ? &menus : nullptr; }

IHostCustomCommandSet* FakeHost::GetCustomCommandSet(const char* name) {
  const bool allowed = recorder.Allow(std::string("GetCustomCommandSet(") + (name ? name : "null") + ")");
  return allowed ? &scriptCommands : nullptr;
}

IHostPropertyManager* FakeHost::GetPropertyManager() {
  recorder.Record("GetPropertyManager()");
  return nullptr;
}

IHostXmlDocument* FakeHost::CreateXmlDocument() {
  if (!recorder.Allow("CreateXmlDocument()")) return nullptr;
  const std::string name = "document" + std::to_string(documents_.size() + 1);
  recorder.Taken(name);
  return &documents_.emplace_back(recorder, name, xmlFiles);
}

IHostConfig* FakeHost::GetConfig() { return recorder.Allow("GetConfig()") ? &config : nullptr; }

void* FakeHost::GetService(u32 number, std::uintptr_t handle) {
  const bool allowed = recorder.Allow("GetService(" + Number(number) + ", " + std::to_string(handle) + ")");
  if (allowed && number == kServiceHelperChannel && helper.exists) {
    return static_cast<IHostHelperChannel*>(&helper);
  }
  if (allowed && number == kServicePropertyDefiner) {
    recorder.Taken(kPropertyDefinerService);
    return static_cast<IHostPropertyDefiner*>(&definer);
  }
  if (allowed && number == kServiceViewRefresh) {
    recorder.Taken(kViewRefreshService);
    return static_cast<IHostViewRefresh*>(&refresh);
  }
  if (!allowed || number != kServiceFileOperation) return nullptr;
  recorder.Taken(kFileOperationService);
  return static_cast<IHostFileOperation*>(&fileOperation);
}

void FakeHost::ReleaseService(void* service, u32 numberOrZero) {
  std::string name = "unknown";
  std::string taken = "an unknown service";
  if (service == static_cast<IHostFileOperation*>(&fileOperation)) {
    name = "file operation";
    taken = kFileOperationService;
  } else if (service == static_cast<IHostPropertyDefiner*>(&definer)) {
    name = "definer";
    taken = kPropertyDefinerService;
  } else if (service == static_cast<IHostViewRefresh*>(&refresh)) {
    name = "refresh";
    taken = kViewRefreshService;
  }
  recorder.Record("ReleaseService(" + name + ", " + Number(numberOrZero) + ")");
  recorder.Released(taken);
}

bool FakeHost::IsProcessElevated() {
  recorder.Record("IsProcessElevated()");
  return isElevated;
}

bool FakeHost::IsVistaOrNewer() {
  recorder.Record("IsVistaOrNewer()");
  return isVista;
}

bool FakeHost::IsOsClassA() {
  recorder.Record("IsOsClassA()");
  return isClassA;
}

bool FakeHost::IsOsClassB() {
  recorder.Record("IsOsClassB()");
  return isClassB;
}

bool FakeHost::GetConfigPath(WCHAR*, u32 size) {
  recorder.Record("GetConfigPath(" + Number(size) + ")");
  return false;
}

bool FakeHost::GetTargetPanelPath(WCHAR* buffer, u32 size) {
  if (!recorder.Allow("GetTargetPanelPath(" + Number(size) + ")") || targetPanel.empty()) return false;
  CopyTerminated(buffer, size, WStringView(targetPanel));
  return true;
}

IHostFileList* FakeHost::CreateFileList() {
  if (!recorder.Allow("CreateFileList()")) return nullptr;
  const std::string name = "list" + std::to_string(lists_.size() + 1);
  recorder.Taken(name);
  return &lists_.emplace_back(recorder, name);
}

IHostPropertyList* FakeHost::CreatePropertyList() {
  recorder.Record("CreatePropertyList()");
  return nullptr;
}

IHostStringList* FakeHost::CreateStringList() {
  if (!recorder.Allow("CreateStringList()")) return nullptr;
  const std::string name = "strings" + std::to_string(stringLists_.size() + 1);
  recorder.Taken(name);
  return &stringLists_.emplace_back(recorder, name);
}

void FakeHost::LogMessage(u32 category, u32 level, const WCHAR* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const WString line = FormatLogLine(format, arguments);
  va_end(arguments);
  recorder.Record("LogMessage(" + Number(category) + ", " + Number(level) + ", " + Quoted(line.c_str()) +
                  ")");
}

void FakeHost::LogText(u32 category, u32 level, const WCHAR* text) {
  recorder.Record("LogText(" + Number(category) + ", " + Number(level) + ", " + Quoted(text) + ")");
}

void FakeHost::ShowTimedNote(HWND window, const WCHAR* text, u32 milliseconds, u32 two) {
  noteWindows.push_back(window);
  recorder.Record("ShowTimedNote(" + Quoted(text) + ", " + Number(milliseconds) + ", " + Number(two) + ")");
}

int FakeHost::MessageBox(const WCHAR* title, const WCHAR* text, u32 style) {
  recorder.Record("MessageBox(" + Quoted(title) + ", " + Quoted(text) + ", " + Hex(style) + ")");
  if (boxAnswers.empty()) {
    ++unexpectedQuestions;
    return IDCANCEL;
  }
  const int answer = boxAnswers.front();
  boxAnswers.pop_front();
  return answer;
}

bool FakeHost::AnswerText(WCHAR* buffer, u32 size) {
  if (textAnswers.empty()) {
    ++unexpectedQuestions;
    return false;
  }
  const TextAnswer answer = textAnswers.front();
  textAnswers.pop_front();
  if (answer.ok) CopyTerminated(buffer, size, WStringView(answer.text));
  return answer.ok;
}

int FakeHost::AskTextSimple(const WCHAR* title, const WCHAR* prompt, u32 zero, u32 alsoZero, WCHAR* buffer,
                            u32 size) {
  const bool allowed =
      recorder.Allow("AskTextSimple(" + Quoted(title) + ", " + Quoted(prompt) + ", " + Number(zero) + ", " +
                     Number(alsoZero) + ", buffer, " + Number(size) + ")");
  return allowed && AnswerText(buffer, size) ? 1 : 0;
}

bool FakeHost::AskChoice(AskChoiceRecord* record) {
  if (!recorder.Allow("AskChoice()")) return false;
  const auto field = [](const auto& text) { return WString(text, std::find(text, std::end(text), WCHAR())); };
  auto* const rows = static_cast<FakeStringList*>(record->choices);
  AskedChoice& asked = choices.emplace_back();
  asked.caption = field(record->caption);
  asked.prompt = field(record->prompt);
  asked.selected = record->selected;
  if (rows) asked.rows = rows->strings;
  AskChoiceRecord named;
  std::copy(std::begin(record->caption), std::end(record->caption), named.caption);
  std::copy(std::begin(record->prompt), std::end(record->prompt), named.prompt);
  named.selected = record->selected;
  named.choices = record->choices;
  asked.isRestZero = std::memcmp(&named, record, sizeof named) == 0;
  if (choiceAnswers.empty()) {
    ++unexpectedQuestions;
    return false;
  }
  const ChoiceAnswer answer = choiceAnswers.front();
  choiceAnswers.pop_front();
  CopyPadded(record->result, std::size(record->result), WStringView(answer.text));
  return answer.ok;
}

bool FakeHost::AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
                       WCHAR* buffer, u32 size, HWND parent, u32 zero) {
  // The default may be the buffer itself; it is then recorded as "buffer".
  const std::string shownDefault = defaultText == buffer ? "buffer" : Quoted(defaultText);
  const bool allowed =
      recorder.Allow("AskText(" + Quoted(title) + ", " + Quoted(prompt) + ", " + shownDefault + ", " +
                     Quoted(hint) + ", buffer " + Quoted(buffer) + ", " + Number(size) + ", " +
                     (parent ? "a window" : "0") + ", " + Number(zero) + ")");
  return allowed && AnswerText(buffer, size);
}

bool FakeHost::ReadTextFile(WCHAR*, u32 size, const WCHAR* path) {
  recorder.Record("ReadTextFile(" + Number(size) + ", " + Quoted(path) + ")");
  return false;
}

HWND FakeHost::CreateControl(u32 kind, HWND, u32 style) {
  recorder.Record("CreateControl(" + Number(kind) + ", " + Number(style) + ")");
  return nullptr;
}

void ExpectAllReleased(const FakeHost& host) {
  EXPECT_THAT(host.recorder.Open(), testing::IsEmpty());
  EXPECT_THAT(host.recorder.Problems(), testing::IsEmpty());
}
