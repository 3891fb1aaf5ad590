// The ids of the three extensions: 32 hexadecimal digits each, in the case that the host knows them by. They
// are in writable memory, and an extension returns this storage as its id (C-020).
#pragma once

namespace Velmora::SDK {

extern char fileUtilsId[33];
extern char ntfsPropertiesId[33];
extern char multiRenameId[33];

}  // namespace Velmora::SDK
