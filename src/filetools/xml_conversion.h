// Rewrites XML files with the host's XML document.
#pragma once

#include "frame/host/host_app.h"

// kCommandFormatXml with true, kCommandCompactXml with false: loads each selected file and saves it over
// itself, in the encoding that it names. `format` is passed to the document's Save, and the two commands
// differ in nothing else (C-447). Does not ask. A file that cannot be loaded is passed over; one that cannot
// be saved shows a box, and the run goes on.
void ConvertXmlCommand(Velmora::SDK::IHostApp& host, bool format);
