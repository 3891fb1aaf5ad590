// Sort Lines, the script command 30352.
#pragma once

#include "frame/host/host_app.h"
#include "linesorter/engine/sort_lines_options.h"

// The options that the parameters of a call ask for. Throws std::invalid_argument ("invalid stoi argument")
// and std::out_of_range ("stoi argument out of range") for a number parameter that is none.
WQLineSorter::SortLinesOptions ReadSortLinesParameters(Velmora::SDK::IHostCommandCall& call);

// Runs the call. Returns 1 once the job has run, whatever became of the file (C-008), and 0 if FILE or TARGET
// is missing or FILE is not found. Throws as ReadSortLinesParameters.
Velmora::SDK::s32 SortLinesScript(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
