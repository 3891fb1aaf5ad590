// The numbers of the controls of the Create Link dialog, for the code and the resource script. Other programs
// find the controls by these numbers, so they must not change.
#pragma once

#define QX_LINKS_KIND_GROUP 1011
#define QX_LINKS_LINK 1015
#define QX_LINKS_TARGET 1016
#define QX_LINKS_STATUS 1017
#define QX_LINKS_TARGET_LABEL 1018
#define QX_LINKS_LINK_LABEL 1019
#define QX_LINKS_KIND 1028
#define QX_LINKS_DESCRIPTION 1029
#define QX_LINKS_DESCRIPTION_GROUP 1069
