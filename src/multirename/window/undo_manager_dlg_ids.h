// The numbers of the controls of the undo manager, for the resource script. undo_manager_form.h has the same
// numbers. Other programs find the controls by these numbers, so they must not change.
#pragma once

#define QX_UNDO_DELETE 1046
#define QX_UNDO_DELETE_ALL 1047
#define QX_UNDO_DATE 1049
#define QX_UNDO_FILES 1052
#define QX_UNDO_SESSIONS 1053
#define QX_UNDO_COUNT 1054
#define QX_UNDO_DATE_LABEL 1055
#define QX_UNDO_SESSIONS_LABEL 1056
#define QX_UNDO_FILES_LABEL 1057
