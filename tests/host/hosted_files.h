// The reference host over real files and the extensions of a module, set up as by `qxhost window`. The test's
// thread is the host's main thread.
#pragma once

#include <gmock/gmock.h>

#include "host/recorded_output.h"
#include "host/services/extensions.h"
#include "host/system/system_places.h"
#include "host/system/whole_file.h"
#include "support/scratch_folder.h"

namespace QxHost {

class HostedFiles {
 public:
  explicit HostedFiles(const ModuleExports& exports, Questions::ReadLine readLine = nullptr)
      : questions(*reporter, recorded.output, {}, {}, std::move(readLine)) {
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(ProgramFolder() + W("\\english.language"), bytes), 0u);
    std::vector<std::string> warnings;
    shared.emplace(recorded.output, *reporter, LanguageTable::Parse(bytes, warnings), Answers(), questions,
                   false);
    scratch.MakeFolder(W("files"));
    extensions.emplace(*shared, exports);
  }

  // Creates a file in the folder with its own name as contents, and selects it.
  void Add(WStringView name) {
    const WString path = scratch.Write(W("files\\") + WString(name), ToUtf8(name));
    selected_.push_back(shared->items.Find(path));
  }

  void Start() {
    shared->view.emplace(shared->items, selected_, nullptr, WString());
    ASSERT_TRUE(extensions->Start());
  }

  SystemAnswers Answers() const {
    SystemAnswers answers;
    answers.configFolder = scratch.MakeFolder(W("config"));
    return answers;
  }

  const ScratchFolder scratch;
  RecordedOutput recorded;
  const std::unique_ptr<Reporter> reporter = MakeJsonReporter(recorded.output);
  Questions questions;
  std::optional<Shared> shared;
  std::optional<Extensions> extensions;

 private:
  std::vector<FileItem*> selected_;
};

}  // namespace QxHost
