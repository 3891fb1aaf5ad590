// One run of a verb: sets up the host according to the command line and loads the module.
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

// Whether the items of a run are selected in the view or passed to the verb one after the other.
enum class ItemUse { kSelected, kInTurn };

class Run {
 public:
  // Throws BadCall for invalid options, such as a missing item, an invalid answer or a language table that
  // cannot be read. `items` are the items of the verb, which precede those of --items.
  Run(const Options& options, const std::vector<std::string>& items, Output& output,
      ItemUse use = ItemUse::kSelected);
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run();

  // Returns the objects that all extensions share, also for verbs that do not use the module.
  Shared& Host() { return *shared_; }

  bool IsDry() const { return isDry_; }
  bool IsForProgram() const { return isJson_; }  // one JSON object per line instead of prose
  // Returns whether --items was given; the list may be empty.
  bool HasItemList() const { return hasItemList_; }
  // Returns `--config DIR ` as it was given, for proposed calls; empty if it was not given.
  const std::string& ConfigOption() const { return configOption_; }

  // Loads the module and reads its records. Called once.
  Extensions& LoadExtensions();

  // Returns the items of the verb and those of --items, without duplicates; none if the items are passed one
  // after the other.
  const std::vector<FileItem*>& SelectedItems() const { return shared_->view->Selected(); }

  // Calls `use` for each item, as often as it was given. An item lives only during its call, so memory does
  // not grow with their number. Throws BadCall at an item of --items that does not exist.
  void ForEachItem(const std::function<void(FileItem&)>& use);

  Reporter& GetReporter() { return *reporter_; }

  // Creates the configuration folder, to which commands may write.
  void MakeConfigFolder();

  void SaveSettings();

  // Writes the settings, reports the result and unused answers and form values, and returns the exit status.
  // `noteOfZero` explains a result of 0.
  int Finish(int value, const std::string& noteOfZero);

 private:
  void SetUpView(const Options& options);
  void FindListItems(std::vector<FileItem*>& found);

  Output& output_;
  bool isDry_;
  bool isJson_;
  bool hasItemList_;
  std::string configOption_;
  std::vector<std::string> items_;  // the items of the verb
  std::string itemList_;            // the value of --items; empty if not given
  ItemUse itemUse_;
  std::unique_ptr<Reporter> reporter_;
  std::optional<Questions> questions_;
  std::optional<Shared> shared_;
  std::unique_ptr<ModuleBoxes> boxes_;
  WString modulePath_;
  std::optional<Extensions> extensions_;
};

}  // namespace QxHost
