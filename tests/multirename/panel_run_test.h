// What the tests of the panel's runs have in common.
#pragma once

#include "multirename/panel_window.h"
#include "support/semaphore.h"

namespace Velmora::SDK {

// Stops the run in the host until it is let go.
class RunGate {
 public:
  explicit RunGate(PanelHost& host) {
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
  // Lets a run of the templates go through.
  void Run(const WString& nameTemplate) {
    Type(1034, nameTemplate);
    Settle();
    form.Press(1003);
    Settle();
  }

  // Plays a person who loads the session of a row in the undo manager.
  void LoadSessionOfRow(int row) {
    view.user = [row](DialogForm& dialogForm, DialogWindow&) {
      dialogForm.ClickRow(1053, row);
      dialogForm.Press(1);
    };
    form.Press(1049);
  }

  // A file of a session in the undo folder.
  void KeepSession(WORD day, const std::vector<MultiRenameUndoEntry>& entries) {
    MultiRenameUndo session;
    session.date = {2026, 3, 0, day, 12, 0, 0, 0};
    session.entries = entries;
    engine_->undoStore.Save(session);
  }

  // Starts a run of the templates and lets it into the host, where the gate holds it.
  void StartIntoGate(RunGate& gate, const WString& nameTemplate) {
    Type(1034, nameTemplate);
    Settle();
    form.Press(1003);
    gate.inRun.Acquire();
  }

  bool IsClosed(int control) { return !view.IsEnabled(control); }
};

}  // namespace Velmora::SDK
