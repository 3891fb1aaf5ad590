// Numbers of the module's resources, for the code and for the resource script alike: macros only, one table.
// Controls have theirs in the header of their dialog. IDOK and IDCANCEL are Windows' own.
#pragma once

// The manifest that asks for version 6 of the common controls. The number is Windows' own for the manifest of
// a library (ISOLATIONAWARE_MANIFEST_RESOURCE_ID), so the library's own imports are bound by it too.
#define QX_MANIFEST 2

// Dialogs.
#define QX_DIALOG_REPLACE 101
#define QX_DIALOG_SORT_LINES 102
#define QX_DIALOG_CREATE_LINKS 103
#define QX_RULE_PANEL 104
#define QX_DIALOG_ADD_TAG 105
#define QX_DIALOG_UNDO_MANAGER 106
#define QX_DIALOG_CHANGE_ACCESS 107
#define QX_DIALOG_FIND_AND_REPLACE 110
#define QX_DIALOG_CONFIRM_REPLACE 111
#define QX_DIALOG_SEARCH_PAIRS 112

// Accelerators.
#define QX_FRAME_KEYS 4
