// The ids of the three extensions: 32 hexadecimal digits each, in the case that the host knows them by. They
// lie in writable memory, and what an extension answers as its id is this storage.
#pragma once

namespace Velmora::SDK {

extern char fileUtilsId[33];
extern char ntfsPropertiesId[33];
extern char multiRenameId[33];

}  // namespace Velmora::SDK
