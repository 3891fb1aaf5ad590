// The numbers of the controls of the dialog of search pairs, for the resource script.
// find_replace_dialog_form.h has the same numbers. Other programs find the controls by these numbers, so they
// must not change.
#pragma once

#define QX_PAIRS_LABEL 1109
#define QX_PAIRS_TEXT 1110
#define QX_PAIRS_HELP 1111
