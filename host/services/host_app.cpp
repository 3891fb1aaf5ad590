#include "host/services/host_app.h"

#include <algorithm>
#include <cstdarg>

#include "host/output/wide_format.h"
#include "host/services/key_names.h"
#include "host/services/lists.h"
#include "host/system/paths.h"
#include "host/system/whole_file.h"
#include "host/xml/xml_document.h"

namespace QxHost {
namespace {

using namespace Velmora::SDK;

constexpr std::string_view kScriptCommandSet = "QX.Utils";
constexpr u32 kFailedItems = 1;  // a mode of kListResult

// Stores the path of a folder with a backslash at its end. Returns false and stores the empty text if it is
// empty or does not fit.
bool GiveFolder(const WString& folder, WCHAR* buffer, u32 size) {
  if (!buffer || size == 0) return false;
  WString path = folder;
  if (!path.empty() && !path.ends_with(W('\\'))) path += W('\\');
  const bool fits = !path.empty() && path.size() < size;
  CopyTerminated<WCHAR>(buffer, size, fits ? WStringView(path) : WStringView());
  return fits;
}

WString Utf16FromBytes(std::string_view bytes) {
  WString text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const unsigned low = static_cast<unsigned char>(bytes[at]);
    const unsigned high = static_cast<unsigned char>(bytes[at + 1]);
    text += static_cast<WCHAR>(high * 256 + low);
  }
  return text;
}

// Returns the text of a field that is not terminated if the text fills it.
template <std::size_t size>
WString FieldText(const WCHAR (&field)[size]) {
  return WString(field, std::find(field, field + size, WCHAR()));
}

}  // namespace

HostApp::HostApp(Shared& shared, u32 index, const std::string& module)
    : menus([this](TextId id) { return id == 0 ? WString() : TextOf(module_, id).first; },
            [&shared, index](u32 number) { shared.commandOwners.emplace(number, index); }),
      shared_(shared),
      index_(index),
      module_(module),
      settings_(shared.settings, module),
      controls_(
          shared.settings, module, [this](std::intptr_t source, s32 code) { SendEvent(source, code); },
          &shared.picture) {}

void HostApp::SendEvent(std::intptr_t source, s32 code) {
  Controls::EventSink sink;
  {
    const std::lock_guard lock(mutex_);
    sink = eventSink_;
  }
  if (sink) sink(source, code);
}

void HostApp::SetEventSink(Controls::EventSink sink) {
  const std::lock_guard lock(mutex_);
  eventSink_ = std::move(sink);
}

void HostApp::ExtensionClosed() {
  closed_ = true;
  shared_.posted.Wake();
}

const LanguageText& HostApp::TextOf(std::string_view section, TextId text) {
  static const LanguageText kNoText;
  if (const LanguageText* const found = shared_.language.Find(section, text)) return *found;
  bool isNew = false;
  {
    const std::lock_guard lock(shared_.mutex);
    isNew = shared_.missingTexts.emplace(section, text).second;
  }
  if (isNew) shared_.reporter.MissingText(text);
  return kNoText;
}

u32 HostApp::FindModuleByGuid(const char* id) { return id ? shared_.modules.NumberOf(id) : 0; }
const WCHAR* HostApp::GetLanguageString(TextId text) { return TextOf(module_, text).first.c_str(); }
const WCHAR* HostApp::GetLanguageTitle(TextId text) { return TextOf(module_, text).second.c_str(); }

const WCHAR* HostApp::GetModuleLanguageString(u32 moduleNumber, TextId text) {
  return TextOf(shared_.modules.SectionOf(moduleNumber), text).first.c_str();
}

const WCHAR* HostApp::GetKeyText(WCHAR* buffer, u32 size, u32 key, u32 with, u32) {
  if (!buffer || size == 0) return W("");
  CopyTerminated<WCHAR>(buffer, size, KeyName(key, with));
  return buffer;
}

void HostApp::PostCommand(u32 number, std::intptr_t a, std::intptr_t b) {
  shared_.posted.Post({this, number, a, b});
}

int HostApp::FileListRequest(u32 code, IHostFileList* list, u32 mode, u32) {
  if (!list) return 0;
  if (code != kListResult) return shared_.view ? shared_.view->Fill(code, *list, mode) : 0;
  std::vector<WString> paths;
  for (u32 index = 0; index < list->GetCount(); ++index) {
    paths.push_back(static_cast<FileItem*>(list->GetItem(index))->FullPath());
  }
  if (mode == kFailedItems && !paths.empty()) shared_.hasFailedFiles = true;
  shared_.reporter.List(code, mode, paths);
  return 1;
}

IHostCustomCommandSet* HostApp::GetCustomCommandSet(const char* name) {
  if (!name || name != kScriptCommandSet) return nullptr;
  if (!shared_.scriptCommands.IsRegistered()) shared_.scriptCommands.owner = index_;
  return &shared_.scriptCommands;
}

void* HostApp::GetService(u32 number, std::uintptr_t handle) {
  // The caller casts the void pointer to the interface, so it must point to the interface's subobject.
  if (number == kServiceFileOperation) return static_cast<IHostFileOperation*>(&shared_.fileOperation);
  if (number == kServiceHelperChannel && shared_.helper) {
    return static_cast<IHostHelperChannel*>(&*shared_.helper);
  }
  if (number == kServiceContainerControl || number == kServiceListControl) {
    return controls_.Find(number, reinterpret_cast<HWND>(handle));
  }
  const std::lock_guard lock(mutex_);
  if (number == kServiceViewRefresh) return static_cast<IHostViewRefresh*>(&refreshes_.emplace_back());
  if (number == kServicePropertyDefiner) {
    const auto textOf = [this](TextId id) { return TextOf(module_, id).first; };
    return static_cast<IHostPropertyDefiner*>(
        &definers_.emplace_back(index_, shared_.modules, textOf, shared_.columns));
  }
  return nullptr;
}

void HostApp::ReleaseService(void* service, u32) {
  if (controls_.Release(service)) return;
  std::unique_lock lock(mutex_);
  definers_.remove_if([service](PropertyDefiner& definer) {
    return static_cast<IHostPropertyDefiner*>(&definer) == service;
  });
  const auto refresh = std::find_if(refreshes_.begin(), refreshes_.end(), [service](ViewRefresh& candidate) {
    return static_cast<IHostViewRefresh*>(&candidate) == service;
  });
  if (refresh == refreshes_.end()) return;
  const std::vector<WString> folders = std::move(refresh->folders);
  refreshes_.erase(refresh);
  lock.unlock();
  for (const WString& folder : folders) shared_.reporter.Refresh(folder);
}

bool HostApp::GetConfigPath(WCHAR* buffer, u32 size) {
  return GiveFolder(shared_.answers.configFolder, buffer, size);
}

bool HostApp::GetTargetPanelPath(WCHAR* buffer, u32 size) {
  return GiveFolder(shared_.answers.otherPanel, buffer, size);
}

IHostXmlDocument* HostApp::CreateXmlDocument() { return XmlDocument::Lend(); }
IHostFileList* HostApp::CreateFileList() { return FileList::Lend(); }
IHostPropertyList* HostApp::CreatePropertyList() { return PropertyList::Lend(); }
IHostStringList* HostApp::CreateStringList() { return StringList::Lend(); }

void HostApp::LogMessage(u32 category, u32 level, const WCHAR* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const WString text = FormatWide(format, arguments);
  va_end(arguments);
  shared_.reporter.Log(category, level, text);
}

void HostApp::LogText(u32 category, u32 level, const WCHAR* text) {
  shared_.reporter.Log(category, level, ViewOf(text));
}

void HostApp::ShowTimedNote(HWND, const WCHAR* text, u32, u32) {
  shared_.reporter.Log(0, kLogInformation, ViewOf(text));
}

int HostApp::MessageBox(const WCHAR* title, const WCHAR* text, u32 style) {
  return shared_.questions.AskBox(WString(ViewOf(title)), WString(ViewOf(text)), style);
}

// Unlike AskText without a default, does not use the contents of the buffer as the default: the caller need
// not have initialised it.
int HostApp::AskTextSimple(const WCHAR* title, const WCHAR* prompt, u32, u32, WCHAR* buffer, u32 size) {
  return AskText(title, prompt, W(""), nullptr, buffer, size, nullptr, 0) ? 1 : 0;
}

bool HostApp::AskText(const WCHAR* title, const WCHAR* prompt, const WCHAR* defaultText, const WCHAR* hint,
                      WCHAR* buffer, u32 size, HWND, u32) {
  if (!buffer || size == 0) return false;
  const std::optional<WString> text =
      shared_.questions.AskText(WString(ViewOf(title)), WString(ViewOf(prompt)),
                                WString(ViewOf(defaultText ? defaultText : buffer)), WString(ViewOf(hint)));
  if (!text) return false;
  if (text->size() >= size) {
    // Refuses the answer instead of truncating it.
    shared_.questions.Refuse("\"" + ToUtf8(ViewOf(title)) + "\" takes at most " + std::to_string(size - 1) +
                             " characters");
    return false;
  }
  CopyTerminated<WCHAR>(buffer, size, *text);
  return true;
}

bool HostApp::AskChoice(AskChoiceRecord* record) {
  if (!record || !record->choices) return false;
  const std::vector<WString> rows = TextsOf(*record->choices);
  const std::optional<std::size_t> row = shared_.questions.AskChoice(
      FieldText(record->caption), FieldText(record->prompt), rows, record->selected);
  if (!row) return false;
  CopyTerminated<WCHAR>(record->result, std::size(record->result), rows[*row]);
  return true;
}

bool HostApp::ReadTextFile(WCHAR* buffer, u32 size, const WCHAR* path) {
  const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
  std::string bytes;
  if (!buffer || size == 0 || !fullPath || ReadWholeFile(*fullPath, bytes) != ERROR_SUCCESS) return false;
  const std::string_view view = bytes;
  if (view.starts_with("\xFF\xFE")) {
    CopyTerminated<WCHAR>(buffer, size, Utf16FromBytes(view.substr(2)));
  } else {
    CopyTerminated<WCHAR>(buffer, size, FromUtf8(view.substr(view.starts_with("\xEF\xBB\xBF") ? 3 : 0)));
  }
  return true;
}

}  // namespace QxHost
