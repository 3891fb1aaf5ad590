// The numbers of the controls of the Add File Access dialog, for the code and the resource script. Other
// programs find the controls by these numbers, so they must not change.
#pragma once

#define QX_ACCESS_INTRODUCTION 1201
#define QX_ACCESS_USER_LABEL 1202
#define QX_ACCESS_USER 1203
#define QX_ACCESS_FIND 1204
#define QX_ACCESS_LEVEL_LABEL 1205
#define QX_ACCESS_LEVEL 1206
