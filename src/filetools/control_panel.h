// The control panel branch of the menu.
#pragma once

#include "frame/host/host_app.h"

// Adds the branch to `root`: nine categories, each with the items that exist on the system's classes (A, B).
// If the host refuses the branch or a category, it is left out.
void BuildControlPanelMenu(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostMenuBuilder& builder,
                           Velmora::SDK::IHostCommandFactory& factory, Velmora::SDK::MenuHandle root);

// Starts the item of a row by its canonical name (ShellExecuteW of Control.exe), even if the menu does not
// offer it (C-462). Does nothing if there is no such row, and does not report a failure to start it.
void LaunchControlPanelItem(Velmora::SDK::u32 rowId);
