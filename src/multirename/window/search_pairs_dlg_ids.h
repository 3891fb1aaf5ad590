// Numbers of the controls of the dialog of search pairs, for the resource script; the form has the same in
// find_replace_dialog_form.h. Others find the controls by them, so they stay as they are.
#pragma once

#define QX_PAIRS_LABEL 1109
#define QX_PAIRS_TEXT 1110
#define QX_PAIRS_HELP 1111
