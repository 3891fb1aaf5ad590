// The two forms in which the user edits the search pairs: the panel's list, whose cells show quotes where a
// blank would be invisible, and the lines of the search dialog.
#pragma once

#include "multirename/rules/replace_list.h"

namespace Velmora::SDK {

constexpr std::size_t kMaxPairFieldChars = 255;    // characters of a field of the panel
constexpr std::size_t kMaxPairCellChars = 1024;    // of a cell of its list
constexpr std::size_t kMaxPairDialogChars = 4096;  // of the search dialog's field
constexpr std::size_t kMaxDroppedText = 8192;      // of a file dropped on that field

// Returns the text of a cell: the value, in double quotes if it begins or ends with a blank.
WString PairCell(WStringView value);

// Returns the row that Add appends for the two fields, of which the first kMaxPairFieldChars characters are
// used. Returns std::nullopt if there is no find text.
std::optional<std::pair<WString, WString>> PairRow(WStringView find, WStringView replace);

// Returns the rows of the panel's list for these pairs.
SearchAndReplaceItems PairRows(const SearchAndReplaceItems& items);

// Returns the pairs of the panel's list, using the first kMaxPairCellChars characters of each cell. With
// `stripQuotes`, for a compilation, removes all double quotes at both ends of each cell, even those that the
// user intends. Without it, for a profile or the dialog, leaves the cells unchanged (C-640).
SearchAndReplaceItems CollectSearchItems(const SearchAndReplaceItems& rows, bool stripQuotes);

// Returns the text of the dialog for the pairs: one line each, with find text, "|" and replacement, joined by
// CR LF.
WString PairDialogText(const SearchAndReplaceItems& items);

// Returns the pairs in the first kMaxPairDialogChars characters of the dialog's text. The first "|" of a line
// separates the texts; a line without one is all find text. Removes tabs, CR, LF and double quotes, but no
// blanks, from both ends of both texts. Skips lines without a find text.
SearchAndReplaceItems ParsePairDialog(WStringView text);

}  // namespace Velmora::SDK
