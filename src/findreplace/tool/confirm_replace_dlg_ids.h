// The numbers of the controls of the dialog that asks about a match, for the code and the resource script.
// Other programs find the controls by these numbers, so they must not change. Replace is IDOK, and Cancel is
// IDCANCEL.
#pragma once

#define QX_CONFIRM_SWITCH 1042
#define QX_CONFIRM_REPLACE_ALL 1046
#define QX_CONFIRM_FIND_NEXT 1047
#define QX_CONFIRM_CONTEXT 1049
#define QX_CONFIRM_REPLACEMENT 1050
#define QX_CONFIRM_REPLACEMENT_LABEL 1105
#define QX_CONFIRM_RANGE 1113
#define QX_CONFIRM_PATH_LABEL 1115
#define QX_CONFIRM_PATH 1116
