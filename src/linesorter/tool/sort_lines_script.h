// Sort Lines, the script command 30352.
#pragma once

#include "frame/host/host_app.h"
#include "linesorter/engine/sort_lines_options.h"

// Returns the options that the parameters of the call specify. Throws std::invalid_argument ("invalid stoi
// argument") or std::out_of_range ("stoi argument out of range") if a number parameter is not a number.
WQLineSorter::SortLinesOptions ReadSortLinesParameters(Velmora::SDK::IHostCommandCall& call);

// Runs the call. Returns 1 after the job has run, even if the file was not sorted (C-008), and 0 if FILE or
// TARGET is missing or FILE does not exist. Throws the exceptions of ReadSortLinesParameters.
Velmora::SDK::s32 SortLinesScript(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
