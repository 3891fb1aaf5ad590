// Handles message boxes and dialogs that the module shows without the host's help: answers them with the
// answers of the command line too, and reports them.
//
// In the native build the handler of the platform library receives them, on the thread that shows them. On
// Windows they are real windows of the thread that calls InstallModuleBoxes: an answer presses a button; if
// no answer is left and there is no terminal, the harmless button is pressed; otherwise the user presses one.
#pragma once

#include <memory>

#include "host/services/questions.h"

namespace QxHost {

// Whether dialogs have forms, whose fields `--form` can set.
extern const bool kDialogsHaveForms;

class ModuleBoxes {
 public:
  virtual ~ModuleBoxes() = default;
};

// Installs the handling, which lasts as long as the returned object lives. Only one may exist at a time.
std::unique_ptr<ModuleBoxes> InstallModuleBoxes(Questions& questions, Reporter& reporter);

}  // namespace QxHost
