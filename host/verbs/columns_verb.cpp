#include "host/verbs/columns_verb.h"

#include "host/output/failures.h"
#include "host/verbs/run.h"

namespace QxHost {
namespace {

// The number of rows that are collected before they are written, so that their columns are aligned.
constexpr std::size_t kRowsOfBlock = 512;

class ColumnsVerb final : public Verb {
 public:
  const char* Name() const override { return "columns"; }
  const char* Help() const override {
    return "Show the columns of the module for items: owner, access, streams";
  }
  void Declare(CLI::App& app) override {
    AddRest(app, "ITEM", items_, "The files and folders to show, in this order: /a/b, Z:\\a\\b or relative");
  }
  const std::vector<std::string>& Items() const override { return items_; }
  bool TakesItemsInTurn() const override { return true; }
  std::string NoteOfZero() const override { return "the module declares no columns"; }

  const char* HelpFooter() const override {
    return "Examples:\n"
           "  qxhost columns *           a table\n"
           "  qxhost --json columns *    one JSON object for each cell, null for no value\n"
           "The access is that of the user who runs qxhost: R for read, W for write, X for execute, each a\n"
           "blank where the right is missing. Streams are alternate data streams, of which the count and\n"
           "the bytes together are shown; natively they are extended attributes of the namespace user.\n"
           "Any number of items can come from --items: they are shown in order, up to one that is "
           "missing.\n\n";
  }

  int Execute(Run& run) override {
    Extensions& extensions = run.LoadExtensions();
    extensions.Start();
    const std::vector<ColumnHead> heads = extensions.ColumnHeads();
    if (!heads.empty()) Show(run, extensions, heads);
    extensions.Stop();
    return heads.empty() ? 0 : 1;
  }

 private:
  static void Show(Run& run, Extensions& extensions, const std::vector<ColumnHead>& heads) {
    std::vector<ColumnRow> rows;
    const auto showRows = [&] {
      if (!rows.empty()) run.GetReporter().Columns(heads, rows);
      rows.clear();
    };
    try {
      run.ForEachItem([&](FileItem& item) {
        rows.push_back({item.FullPath(), extensions.ColumnValues(item)});
        if (rows.size() == kRowsOfBlock) showRows();
      });
    } catch (const BadCall&) {
      showRows();  // the rows before the missing item
      throw;
    }
    showRows();
  }

  std::vector<std::string> items_;
};

}  // namespace

std::unique_ptr<Verb> MakeColumnsVerb() { return std::make_unique<ColumnsVerb>(); }

}  // namespace QxHost
