#include "host/verbs/run.h"

#include "host/command_line/item_finder.h"
#include "host/command_line/item_lines.h"
#include "host/command_line/name_pattern.h"
#include "host/output/error_text.h"
#include "host/output/failures.h"
#include "host/output/terminal.h"
#include "host/system/missing_rights.h"
#include "host/system/paths.h"
#include "host/system/system_places.h"
#include "host/system/whole_file.h"

namespace QxHost {
namespace {

constexpr const WCHAR* kLanguageFile = W("\\english.language");

// The sources of items, as named in messages.
constexpr const char* kVerbItems = "ITEM";
constexpr const char* kListItems = "--items";

WString FullPathOrThrow(const std::string& option, const std::string& text) {
  const std::optional<WString> fullPath = FullPathOf(PathFromUtf8(text));
  if (!fullPath) throw BadCall(option + ": \"" + text + "\" is not a path");
  return *fullPath;
}

WString InProgramFolder(const WCHAR* name) {
  const WString folder = ProgramFolder();
  if (folder.empty()) throw BadCall("cannot find the folder of this program; give --module and --language");
  return folder + name;
}

WString ConfigFolder(const Options& options) {
  if (!options.config.empty()) return FullPathOrThrow("--config", options.config);
  const WString folder = UserConfigFolder();
  if (folder.empty()) throw BadCall("cannot find the user's configuration folder; give --config");
  return folder + W("\\qxhost");
}

WString FolderOption(const std::string& option, const std::string& text) {
  if (text.empty()) return {};
  const WString folder = FullPathOrThrow(option, text);
  if (!IsFolder(folder)) throw BadCall(option + ": " + text + " is not a folder");
  return folder;
}

SystemAnswers AnswersOf(const Options& options) {
  SystemAnswers answers;
  answers.elevated = options.elevated;
  answers.vistaOrNewer = !options.beforeVista;
  answers.classA = options.classA;
  answers.classB = options.classB;
  answers.configFolder = ConfigFolder(options);
  answers.otherPanel = FolderOption("--panel", options.panel);
  return answers;
}

Answers ParseAnswers(const std::vector<std::string>& texts) {
  Answers answers;
  for (const std::string& text : texts) {
    const std::optional<Answer> answer = ParseAnswer(text);
    if (!answer)
      throw BadCall("--answer: \"" + text + "\" is not one of " + kAnswerForms + NearestAnswer(text));
    answers.push_back(*answer);
  }
  return answers;
}

std::vector<FormValue> ParseForm(const std::vector<std::string>& texts) {
  if (!texts.empty() && !kDialogsHaveForms) {
    throw BadCall(
        "--form: this build shows real dialogs, which are filled by hand; the native build has forms");
  }
  std::vector<FormValue> values;
  for (const std::string& text : texts) {
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos) {
      throw BadCall("--form: \"" + text + "\" is not of the form FIELD=VALUE");
    }
    values.push_back({text.substr(0, equals), PathFromUtf8(text.substr(equals + 1))});
  }
  return values;
}

LanguageTable ReadLanguageTable(const Options& options, Output& output) {
  const WString path = options.language.empty() ? InProgramFolder(kLanguageFile)
                                                : FullPathOrThrow("--language", options.language);
  std::string bytes;
  const DWORD error = ReadWholeFile(path, bytes);
  if (error != ERROR_SUCCESS) {
    throw BadCall("cannot read the language table " + ToUtf8(path) + ": " + ErrorText(error));
  }
  std::vector<std::string> warnings;
  LanguageTable table = LanguageTable::Parse(bytes, warnings);
  for (const std::string& warning : warnings) output.Problem(ToUtf8(path) + ":" + warning);
  return table;
}

// Returns the --config option as it was given, quoted if a shell would split it.
std::string ConfigOptionOf(const Options& options) {
  if (options.config.empty()) return {};
  const bool isQuoted = options.config.find_first_of(" \t'()&;") != std::string::npos;
  return "--config " + (isQuoted ? "\"" + options.config + "\"" : options.config) + " ";
}

}  // namespace

Run::Run(const Options& options, const std::vector<std::string>& items, Output& output, ItemUse use)
    : output_(output),
      isDry_(options.dryRun),
      isJson_(options.json),
      hasItemList_(!options.items.empty()),
      configOption_(ConfigOptionOf(options)),
      items_(kItemsArePatterns ? WithPatternsFound(items) : items),
      itemList_(options.items),
      itemUse_(use),
      reporter_(options.json ? MakeJsonReporter(output) : MakeProseReporter(output)) {
  Questions::ReadLine readLine;
  if (options.items != "-" && StandardInputIsTerminal()) readLine = ReadTerminalLine;
  questions_.emplace(*reporter_, output_, ParseAnswers(options.answers), ParseForm(options.form),
                     std::move(readLine));
  shared_.emplace(output_, *reporter_, ReadLanguageTable(options, output_), AnswersOf(options), *questions_,
                  options.dryRun, options.inOrder);
  modulePath_ = options.module.empty() ? InProgramFolder(W("\\")) + ModuleFileName()
                                       : FullPathOrThrow("--module", options.module);
  if (options.withoutRights) {
    if (!kRightsCanBeTaken) throw BadCall("--without-rights: in this build the rights are the system's own");
    TakeRightToLink();
  }
  if (shared_->answers.vistaOrNewer) shared_->helper.emplace(OwnHelper(modulePath_));
  SetUpView(options);
  boxes_ = InstallModuleBoxes(*questions_, *reporter_);
}

Run::~Run() = default;

void Run::SetUpView(const Options& options) {
  std::vector<FileItem*> selected;
  if (itemUse_ == ItemUse::kInTurn) {
    // Find missing items before any output.
    FileItemTree looked;
    for (const std::string& text : items_) FindItem(looked, kVerbItems, text);
  } else {
    ItemFinder(shared_->items, shared_->listings, kVerbItems).FindAll(items_, selected);
    if (hasItemList_) FindListItems(selected);
  }
  FileItem* const focused =
      options.focus.empty() ? nullptr : FindItem(shared_->items, "--focus", options.focus);
  shared_->view.emplace(shared_->items, std::move(selected), focused, FolderOption("--view", options.view));
}

void Run::FindListItems(std::vector<FileItem*>& found) {
  constexpr std::size_t kLinesAtOnce = 4096;
  ItemFinder finder(shared_->items, shared_->listings, kListItems);
  ItemLines lines = OpenItemLines(itemList_);
  std::vector<std::string> texts;
  while (std::optional<std::string> line = lines.Next()) {
    texts.push_back(std::move(*line));
    if (texts.size() < kLinesAtOnce) continue;
    finder.FindAll(texts, found);
    texts.clear();
  }
  finder.FindAll(texts, found);
}

void Run::ForEachItem(const std::function<void(FileItem&)>& use) {
  // A new tree now and then limits the memory, while neighbouring items share the objects of their folders.
  constexpr std::size_t kItemsOfTree = 512;
  std::optional<FileItemTree> tree;
  std::size_t count = 0;
  const auto give = [&](const char* option, const std::string& text) {
    if (count++ % kItemsOfTree == 0) tree.emplace();
    use(*FindItem(*tree, option, text));
  };
  for (const std::string& text : items_) give(kVerbItems, text);
  if (!hasItemList_) return;
  ItemLines lines = OpenItemLines(itemList_);
  while (const std::optional<std::string> line = lines.Next()) give(kListItems, *line);
}

Extensions& Run::LoadExtensions() { return extensions_.emplace(*shared_, LoadModule(modulePath_)); }

void Run::MakeConfigFolder() {
  const WString& folder = shared_->answers.configFolder;
  const DWORD error = MakeFolder(folder);
  if (error != ERROR_SUCCESS) {
    throw BadCall("cannot create the configuration folder " + ToUtf8(folder) + ": " + ErrorText(error));
  }
}

void Run::SaveSettings() { shared_->settings.Save(); }

int Run::Finish(int value, const std::string& noteOfZero) {
  SaveSettings();
  reporter_->Result(value);
  output_.Flush();
  if (const std::size_t left = questions_->AnswersLeft(); left != 0) {
    output_.Problem("note: answers that were not used: " + std::to_string(left));
  }
  if (questions_->FormValuesLeft() != 0) {
    output_.Problem("note: there was no dialog for --form: " + questions_->FormFieldsLeft());
    questions_->RefuseMistypedDialogs();
  }
  if (questions_->HasRefused()) return kExitBadCall;
  if (value == 0) {
    output_.Problem("note: " + noteOfZero);
    return kExitNotHandled;
  }
  return shared_->hasFailedFiles || shared_->fileOperation.HasFailed() ? kExitFilesFailed : kExitHandled;
}

}  // namespace QxHost
