// The options of the Sort Lines dialog in the host's settings, section "SortLines".
#pragma once

#include "frame/host/host_app.h"
#include "linesorter/engine/sort_lines_options.h"

namespace WQLineSorter {

// The stored options; what is absent has its default, which is the entire line as text without leading
// blanks. A host without settings gives the defaults.
SortLinesOptions LoadSortLinesOptions(Velmora::SDK::IHostApp& host);
void StoreSortLinesOptions(Velmora::SDK::IHostApp& host, const SortLinesOptions& options);

}  // namespace WQLineSorter
