// The numbers of the controls of the Replace X with Y dialog, for the code and the resource script. Other
// programs find the controls by these numbers, so they must not change.
#pragma once

#define QX_REPLACE_TOP 1003
#define QX_REPLACE_FIND_LABEL 1004
#define QX_REPLACE_WITH_LABEL 1005
#define QX_REPLACE_PART_LABEL 1006
#define QX_REPLACE_PART 1030
#define QX_REPLACE_FIND 1123
#define QX_REPLACE_WITH 1124
