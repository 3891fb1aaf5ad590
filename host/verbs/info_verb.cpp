#include "host/verbs/info_verb.h"

#include "host/verbs/run.h"

namespace QxHost {
namespace {

class InfoVerb final : public Verb {
 public:
  const char* Name() const override { return "info"; }
  const char* Help() const override { return "Show the extensions that the module contains"; }
  void Declare(CLI::App&) override {}

  int Execute(Run& run) override {
    run.LoadExtensions().ReportRecords();
    return 1;
  }
};

}  // namespace

std::unique_ptr<Verb> MakeInfoVerb() { return std::make_unique<InfoVerb>(); }

}  // namespace QxHost
