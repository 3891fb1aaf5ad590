// The two ways in which a person edits the search pairs: the panel's list, whose cells show quotes where a
// blank would not be seen, and the lines of the search dialog.
#pragma once

#include "multirename/rules/replace_list.h"

namespace Velmora::SDK {

constexpr std::size_t kMostOfPairField = 255;     // characters of a field of the panel
constexpr std::size_t kMostOfPairCell = 1024;     // of a cell of its list
constexpr std::size_t kMostOfPairDialog = 4096;   // of the search dialog's field
constexpr std::size_t kMostOfDroppedText = 8192;  // of a file that is dropped on it

// As a cell shows a value: one that begins or ends with a blank has a double quote at both ends.
WString PairCell(WStringView value);

// The row that Add appends for the two fields, of which kMostOfPairField characters each are read. Nothing if
// there is no find text.
std::optional<std::pair<WString, WString>> PairRow(WStringView find, WStringView replace);

// The rows of the panel's list for these pairs.
SearchAndReplaceItems PairRows(const SearchAndReplaceItems& items);

// The pairs of the panel's list, of which kMostOfPairCell characters a cell are read. With `stripQuotes`, for
// the compilation, all double quotes at both ends of a cell are taken off, also those that a user wanted;
// without, for a profile and for the dialog, the cells stay as they are (C-640).
SearchAndReplaceItems CollectSearchItems(const SearchAndReplaceItems& rows, bool stripQuotes);

// The pairs as the dialog shows them, one on a line: find, "|", replace; the lines joined by CR LF.
WString PairDialogText(const SearchAndReplaceItems& items);

// The pairs of the dialog's text, of which kMostOfPairDialog characters are read: a line is cut at its first
// "|", and without one it is all find text. Tabs, CR, LF and double quotes are taken off both ends of both
// texts; blanks stay. A line without a find text is dropped.
SearchAndReplaceItems ParsePairDialog(WStringView text);

}  // namespace Velmora::SDK
