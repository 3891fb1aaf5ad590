#include <charconv>

#include "host/failures.h"
#include "host/run.h"
#include "host/verb.h"

namespace QxHost {
namespace {

// The quick rename commands: what they change are names alone.
constexpr s32 kFirstRename = 30000;
constexpr s32 kLastRename = 30060;

s32 ParseNumber(const std::string& text) {
  s32 number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw BadCall("\"" + text + "\" is no command number; `qxhost menu` shows them");
  }
  return number;
}

class CommandVerb final : public Verb {
 public:
  const char* Name() const override { return "command"; }
  const char* Help() const override { return "Run one menu command on the selected items"; }

  void Declare(CLI::App& app) override {
    AddRequired(app, "NUMBER", number_, "The command's number, as the verb menu shows it");
    AddRest(app, "ITEM", items_, "Files and folders that are selected, in this order: /a/b or Z:\\a\\b");
  }

  const std::vector<std::string>& Items() const override { return items_; }

  void CheckDryRun() const override {
    const s32 number = ParseNumber(number_);
    if (number >= kFirstRename && number <= kLastRename) return;
    throw BadCall("--dry-run holds back renames, and the command " + number_ +
                  " is none: it is for the commands " + std::to_string(kFirstRename) + " to " +
                  std::to_string(kLastRename));
  }

  int Execute(Run& run) override {
    const s32 number = ParseNumber(number_);
    run.MakeConfigFolder();
    Extensions& extensions = run.LoadExtensions();
    extensions.Start();
    const s32 answer = extensions.RunCommand(number);
    extensions.Stop();
    return answer;
  }

 private:
  std::string number_;
  std::vector<std::string> items_;
};

}  // namespace

std::unique_ptr<Verb> MakeCommandVerb() { return std::make_unique<CommandVerb>(); }

}  // namespace QxHost
