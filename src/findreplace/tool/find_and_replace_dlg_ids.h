// The numbers of the controls of the Find and Replace dialog, for the code and the resource script. Other
// programs find the controls by these numbers, so they must not change.
#pragma once

#define QX_FIND_TEXT 1020
#define QX_FIND_NAME 1034
#define QX_FIND_IGNORE_CASE 1042
#define QX_FIND_REGEXP 1043
#define QX_FIND_WILDCARD 1044
#define QX_FIND_REPLACE 1050
#define QX_FIND_COUNT 1096
#define QX_FIND_SAVE_MODE 1098
#define QX_FIND_MODE 1102
#define QX_FIND_OPTIONS_GROUP 1103
#define QX_FIND_TEXT_LABEL 1104
#define QX_FIND_REPLACE_LABEL 1105
#define QX_FIND_SAVE_MODE_LABEL 1106
#define QX_FIND_NAME_LABEL 1107
#define QX_FIND_EXPLANATION 1108
#define QX_FIND_HEADING 1109
#define QX_FIND_FORCE_UTF8 1111
#define QX_FIND_SILENT 1114
#define QX_FIND_REPLACE_ALL 1115
#define QX_FIND_MODE_LABEL 1116
