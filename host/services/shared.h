// What all extensions of a run share: one host stands behind the host objects of each.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>

#include "host/controls/picture_request.h"
#include "host/helper/helper_channel.h"
#include "host/output/reporter.h"
#include "host/rename/rename_batch.h"
#include "host/services/file_properties.h"
#include "host/services/language_table.h"
#include "host/services/module_registry.h"
#include "host/services/posted_commands.h"
#include "host/services/property_definer.h"
#include "host/services/questions.h"
#include "host/services/script_command_set.h"
#include "host/services/settings.h"
#include "host/services/view.h"
#include "host/system/folder_names.h"

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
