// Create Link, the menu command 30350.
#pragma once

#include "filetools/create_links_dlg.h"

// Shows the dialog for the selected items, and on OK makes one link for each in the folder of the other
// panel; of several the first failure ends it. A single link goes where the user said.
void CreateLinkCommand(Velmora::SDK::IHostApp& host, const CreateLinksDialog& show = ShowCreateLinksDlg);
