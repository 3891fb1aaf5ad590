// Loads and stores the options of the Sort Lines dialog in the host's settings, section "SortLines".
#pragma once

#include "frame/host/host_app.h"
#include "linesorter/engine/sort_lines_options.h"

namespace WQLineSorter {

// Returns the stored options. Those that are not stored, or all if the host has no settings, have their
// defaults: the entire line, as text, skipping leading blanks.
SortLinesOptions LoadSortLinesOptions(Velmora::SDK::IHostApp& host);
void StoreSortLinesOptions(Velmora::SDK::IHostApp& host, const SortLinesOptions& options);

}  // namespace WQLineSorter
