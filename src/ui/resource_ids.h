// The numbers of the module's resources, for the code and the resource script; so this file contains only
// macros. The numbers of controls are in the header of their dialog. IDOK and IDCANCEL are those of Windows.
#pragma once

// The manifest that requests version 6 of the common controls. It has the number that Windows defines for the
// manifest of a library (ISOLATIONAWARE_MANIFEST_RESOURCE_ID), so it also applies to the imports of the
// library.
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
