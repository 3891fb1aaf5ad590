#include "host/verbs/menu_verb.h"

#include "host/verbs/run.h"

namespace QxHost {
namespace {

class MenuVerb final : public Verb {
 public:
  const char* Name() const override { return "menu"; }
  const char* Help() const override {
    return "Show the menu tree, with the number and the name of each command";
  }
  void Declare(CLI::App&) override {}

  int Execute(Run& run) override {
    Extensions& extensions = run.LoadExtensions();
    const bool started = extensions.Start();
    extensions.ReportMenus();
    extensions.Stop();
    return started ? 1 : 0;
  }
};

}  // namespace

std::unique_ptr<Verb> MakeMenuVerb() { return std::make_unique<MenuVerb>(); }

}  // namespace QxHost
