// Rewrites XML files with the host's XML document.
#pragma once

#include "frame/host/host_app.h"

// kCommandFormatXml (`format` true) and kCommandCompactXml (false): loads each selected file and saves it
// over itself, in the encoding that it declares. Passes `format` to the document's Save; the two commands
// differ in nothing else (C-447). Does not ask for confirmation. Skips a file that cannot be loaded; if one
// cannot be saved, shows a box and continues.
void ConvertXmlCommand(Velmora::SDK::IHostApp& host, bool format);
