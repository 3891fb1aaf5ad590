// Boxes and dialogs that the module shows by itself, past the host: they are answered by the answers of the
// command line too, and reported.
//
// Natively they arrive at a handler of the platform library, on whatever thread asks. On Windows they are
// real windows of the thread that installs this: an answer presses their button; where there is none left and
// nobody sits at the terminal, the harmless button is pressed; else a person presses one.
#pragma once

#include <memory>

#include "host/services/questions.h"

namespace QxHost {

// Whether dialogs have forms whose fields `--form` can fill.
extern const bool kDialogsHaveForms;

class ModuleBoxes {
 public:
  virtual ~ModuleBoxes() = default;
};

// In force as long as what it answers lives. One at a time.
std::unique_ptr<ModuleBoxes> InstallModuleBoxes(Questions& questions, Reporter& reporter);

}  // namespace QxHost
