// The objects that all extensions of a run share.
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

// The properties of the system and the panels that the host reports.
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
  FolderListings listings;   // the folders, as they were when the items of the command line were found
  std::optional<View> view;  // std::nullopt until the items of the command line have been found
  FileProperties properties;
  FileOperation fileOperation;
  std::optional<HelperChannel> helper;  // std::nullopt if the system has no helper
  SettingsFiles settings;
  ModuleRegistry modules;
  ScriptCommandSet scriptCommands;
  std::vector<DeclaredColumn> columns;  // in the order of declaration
  bool hasFailedFiles = false;          // the module has reported files that it could not process
  std::map<u32, u32> commandOwners;     // maps command numbers to extension indices, as declared in the menus
  PostedCommands posted;
  PictureRequest picture;  // no picture is taken if its path is empty

  std::mutex mutex;  // protects the members below, which the module's threads use as well
  std::set<std::pair<std::string, u32>> missingTexts;  // already reported
};

}  // namespace QxHost
