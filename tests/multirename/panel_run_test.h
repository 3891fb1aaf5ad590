// Helpers for tests of the panel's runs.
#pragma once

#include "multirename/form/undo_manager_form.h"
#include "multirename/panel_window.h"
#include "platform/windows_api.h"
#include "support/semaphore.h"

namespace Velmora::SDK {

// Blocks a run inside the host until `go` is released.
class RunGate {
 public:
  explicit RunGate(RenameHost& host) {
    host.renames.atRun = [this] {
      inRun.Release();
      go.Acquire();
    };
  }
  Semaphore inRun;
  Semaphore go;
};

class PanelRunTest : public PanelTest {
 protected:
  // Runs the templates and waits for the end.
  void Run(const WString& nameTemplate) {
    Type(kNameTemplate, nameTemplate);
    Settle();
    form.Press(kStartButton);
    Settle();
  }

  // Acts as a user who loads a session in the undo manager, by its row.
  void LoadSessionOfRow(int row) {
    view.user = [row](DialogForm& dialogForm, DialogWindow&) {
      dialogForm.ClickRow(kUndoSessions, row);
      dialogForm.Press(IDOK);
    };
    form.Press(kUndoManagerButton);
  }

  // Stores a session as a file in the undo folder.
  void KeepSession(WORD day, const std::vector<MultiRenameUndoEntry>& entries) {
    MultiRenameUndo session;
    session.date = {2026, 3, 0, day, 12, 0, 0, 0};
    session.entries = entries;
    engine_->undoStore.Save(session);
  }

  // Starts a run of the templates and waits until the gate blocks it inside the host.
  void StartIntoGate(RunGate& gate, const WString& nameTemplate) {
    Type(kNameTemplate, nameTemplate);
    Settle();
    form.Press(kStartButton);
    gate.inRun.Acquire();
  }

  bool IsClosed(int control) { return !view.IsEnabled(control); }
};

}  // namespace Velmora::SDK
