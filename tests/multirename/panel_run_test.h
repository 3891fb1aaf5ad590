// What the tests of the panel's runs have in common.
#pragma once

#include "multirename/gate_properties.h"
#include "multirename/panel_window.h"
#include "support/semaphore.h"

namespace Velmora::SDK {

// Stops the run in the host until it is let go.
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

  // Lets a preview of "x[?p][C]" into its first row, where the gate holds it.
  void PreviewIntoGate(GateProperties& gate) {
    engine_->propertyManager = &gate;
    Type(1034, W("x[?p][C]"));
    Deliver();
    gate.entered.Acquire();
    gate.isOpen = true;  // for the other rows
  }

  // Starts a run of the templates and lets it into the host, where the gate holds it.
  void StartIntoGate(RunGate& gate, const WString& nameTemplate) {
    Type(1034, nameTemplate);
    Settle();
    form.Press(1003);
    gate.inRun.Acquire();
  }

  // Does something while the worker is held, which goes on when it is asked to stop.
  template <typename Action>
  void WhileHeld(Semaphore& held, Action action) {
    std::atomic<bool> isDone{false};
    std::thread opener([&] {
      while (!engine_->worker.IsStopping() && !isDone) std::this_thread::yield();
      held.Release();
    });
    action();
    isDone = true;
    opener.join();
  }

  bool IsClosed(int control) { return !view.IsEnabled(control); }
};

}  // namespace Velmora::SDK
