// The fixture for tests of MultiRename's dialogs.
#pragma once

#include "multirename/panel_window.h"
#include "multirename/window/rename_dialog.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/modal_driver.h"

// The owner window has the size of MultiRename's; the host stores XML files in memory.
class RenameDialogWindow : public testing::Test {
 protected:
  INT_PTR ShowDialog(int resource, Velmora::SDK::DialogForm& form, const std::vector<Steps>& steps) {
    return RunModal([&] { return Velmora::SDK::RunRenameDialog(resource, form, owner_.Get()); }, steps);
  }

  OwnerWindow owner_{855, 410};
  PanelHost host_;
};
