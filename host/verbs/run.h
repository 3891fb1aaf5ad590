// One run of a verb: the host set up as the command line says, and the module loaded into it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/command_line/options.h"
#include "host/services/extensions.h"
#include "host/services/module_boxes.h"
#include "host/services/shared.h"

namespace QxHost {

// Whether the items of a run are selected in the view, or are given to the verb one after the other.
enum class ItemUse { kSelected, kInTurn };

class Run {
 public:
  // Throws BadCall for what cannot be: a missing item, an answer that is none, a language table that cannot
  // be read. `items` are the verb's, before those of --items.
  Run(const Options& options, const std::vector<std::string>& items, Output& output,
      ItemUse use = ItemUse::kSelected);
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run();

  // What all extensions share, for a verb that does without the module.
  Shared& Host() { return *shared_; }

  bool IsDry() const { return isDry_; }
  bool IsForProgram() const { return isJson_; }  // one JSON object a line, and no prose
  // Items come from --items, of which there may be none.
  bool HasItemList() const { return hasItemList_; }
  // `--config DIR ` as it was given, for a proposed call; empty if it was not.
  const std::string& ConfigOption() const { return configOption_; }

  // Loads the module and reads its records. Once.
  Extensions& LoadExtensions();

  // The items that the verb was given, and those of --items, each once; none if they are taken in turn.
  const std::vector<FileItem*>& SelectedItems() const { return shared_->view->Selected(); }

  // The items that are taken in turn, each as often as it was given. An item lives for the call alone, so
  // that any number of them need no memory. Throws BadCall at one of --items that is missing.
  void ForEachItem(const std::function<void(FileItem&)>& use);

  Reporter& GetReporter() { return *reporter_; }

  // Makes the configuration folder, which commands may write to.
  void MakeConfigFolder();

  void SaveSettings();

  // Writes settings, tells the result and what was left over, and returns the exit status. `noteOfZero` says
  // what a value of 0 means.
  int Finish(int value, const std::string& noteOfZero);

 private:
  void SetUpView(const Options& options);
  void FindListItems(std::vector<FileItem*>& found);

  Output& output_;
  bool isDry_;
  bool isJson_;
  bool hasItemList_;
  std::string configOption_;
  std::vector<std::string> items_;  // of the verb
  std::string itemList_;            // of --items; empty for none
  ItemUse itemUse_;
  std::unique_ptr<Reporter> reporter_;
  std::optional<Questions> questions_;
  std::optional<Shared> shared_;
  std::unique_ptr<ModuleBoxes> boxes_;
  WString modulePath_;
  std::optional<Extensions> extensions_;
};

}  // namespace QxHost
