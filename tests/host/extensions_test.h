// The extensions of a module whose behaviour each test sets, with a host that records what it reports.
#pragma once

#include <gmock/gmock.h>

#include <memory>

#include "host/fake_module.h"
#include "host/recorded_output.h"
#include "host/services/extensions.h"
#include "support/scratch_folder.h"

namespace QxHost {

class ExtensionsTest : public testing::Test, protected FakeModule {
 protected:
  void SetUp() override { Reset(); }

  static SystemAnswers Answers(const ScratchFolder& scratch) {
    SystemAnswers answers;
    answers.configFolder = scratch.Path(W("config"));
    return answers;
  }

  ScratchFolder scratch_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  Questions questions_{*reporter_, recorded_.output, {}, {}, nullptr};
  Shared shared_{recorded_.output, *reporter_, LanguageTable(), Answers(scratch_), questions_, false};
  const ModuleExports exports_ = Exports();
};

}  // namespace QxHost
