// Reads and clicks list views and list boxes. A control is identified by its dialog and its id; rows and
// lines count from 0.
#pragma once

#include <utility>
#include <vector>

#include "platform/text.h"

// Returns the texts of the cells of a list view, by rows.
std::vector<std::vector<WString>> TableRowsOf(HWND dialog, int control);
// Returns the headings of its columns and their widths in pixels.
std::vector<std::pair<WString, int>> ColumnsOf(HWND dialog, int control);
// Return the selected rows, and the row that has the list's focus, or -1.
std::vector<int> SelectedTableRows(HWND dialog, int control);
int FocusedTableRow(HWND dialog, int control);

// Click on a cell, and below all rows.
void ClickCell(HWND dialog, int control, int row, int column = 0);
void ClickBelowRows(HWND dialog, int control);
// Sends only the second click of a double click.
void DoubleClickCell(HWND dialog, int control, int row);

// The lines of a list box, and a click on a visible one.
std::vector<WString> ListLinesOf(HWND dialog, int control);
void ClickLine(HWND dialog, int control, int line);
