// What tests ask of lists with columns and of list boxes, and do to them with the mouse. A control is named
// by its dialog and its number; rows and lines count from 0.
#pragma once

#include <utility>
#include <vector>

#include "platform/text.h"

// The cells of the rows of a list with columns, as it shows them.
std::vector<std::vector<WString>> TableRowsOf(HWND dialog, int control);
// The headings of its columns and their widths in pixels.
std::vector<std::pair<WString, int>> ColumnsOf(HWND dialog, int control);
// The rows that are selected, and the one that has the list's focus, or -1.
std::vector<int> SelectedTableRows(HWND dialog, int control);
int FocusedTableRow(HWND dialog, int control);

// Clicks on a cell, or below all rows.
void ClickCell(HWND dialog, int control, int row, int column = 0);
void ClickBelowRows(HWND dialog, int control);
// The second click of a double click, alone.
void DoubleClickCell(HWND dialog, int control, int row);

// The lines of a list box; a click on one that shows.
std::vector<WString> ListLinesOf(HWND dialog, int control);
void ClickLine(HWND dialog, int control, int line);
