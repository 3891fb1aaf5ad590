// The numbers of the controls of the dialog of property tags, for the resource script. tag_dialog_form.h has
// the same numbers. Other programs find the controls by these numbers, so they must not change.
#pragma once

#define QX_TAG_START 1002
#define QX_TAG_LENGTH 1003
#define QX_TAG_COMPLETE 1012
#define QX_TAG_SUB_STRING 1013
#define QX_TAG_PROPERTIES 1048
#define QX_TAG_TEXT 1049
#define QX_TAG_CHOSEN 1050
#define QX_TAG_CHOSEN_LABEL 1051
#define QX_TAG_PROPERTY_LABEL 1120
#define QX_TAG_START_LABEL 1121
#define QX_TAG_LENGTH_LABEL 1122
