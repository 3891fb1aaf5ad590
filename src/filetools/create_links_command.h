// Create Link, the menu command 30350.
#pragma once

#include "filetools/create_links_dlg.h"

// Shows the dialog for the selected items and, on OK, creates one link for each in the folder of the other
// panel, until the first failure. A single link is created at the path that the user has entered.
void CreateLinkCommand(Velmora::SDK::IHostApp& host, const CreateLinksDialog& show = ShowCreateLinksDlg);
