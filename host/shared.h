// What all extensions of a run share: one host stands behind the host objects of each.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>

#include "host/controls/picture_request.h"
#include "host/file_properties.h"
#include "host/folder_names.h"
#include "host/helper_channel.h"
#include "host/language_table.h"
#include "host/module_registry.h"
#include "host/posted_commands.h"
#include "host/property_definer.h"
#include "host/questions.h"
#include "host/rename_batch.h"
#include "host/reporter.h"
#include "host/script_command_set.h"
#include "host/settings.h"
#include "host/view.h"

namespace QxHost {

// What the host answers about the system and the panels.
struct SystemAnswers {
  bool elevated = false;
  bool vistaOrNewer = true;
  bool classA = false;
  bool classB = false;
  WString configFolder;  // full path
  WString otherPanel;    // full path, empty if there is no other panel
};

struct Shared {
  Shared(Output& outputOfRun, Reporter& reporterOfRun, LanguageTable languageTable, SystemAnswers system,
         Questions& questionsOfRun, bool dryRun, bool inOrder = false)
      : output(outputOfRun),
        reporter(reporterOfRun),
        questions(questionsOfRun),
        language(std::move(languageTable)),
        answers(std::move(system)),
        fileOperation(items, reporter, output, dryRun, inOrder),
        settings(answers.configFolder, [this](const std::string& text) { output.Problem(text); }) {}
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  Output& output;
  Reporter& reporter;
  Questions& questions;
  const LanguageTable language;
  const SystemAnswers answers;
  FileItemTree items;
  FolderListings listings;   // of folders as they were when the items of the command line were found
  std::optional<View> view;  // none until the items of the command line are known to exist
  FileProperties properties;
  FileOperation fileOperation;
  std::optional<HelperChannel> helper;  // none on systems before it
  SettingsFiles settings;
  ModuleRegistry modules;
  ScriptCommandSet scriptCommands;
  std::vector<DeclaredColumn> columns;  // in the order of their declaration
  bool hasFailedFiles = false;          // the module has handed back files at which it failed
  std::map<u32, u32> commandOwners;     // command number to extension index, as declared in the menus
  PostedCommands posted;
  PictureRequest picture;  // none is taken without a path

  std::mutex mutex;  // guards what follows: it is used from the module's threads as well
  std::set<std::pair<std::string, u32>> missingTexts;  // those that were reported
};

}  // namespace QxHost
