#include "frame/services/extension_ids.h"

namespace Velmora::SDK {

char fileUtilsId[33] = "3f93229334d648ab8dcc1eb4f62b8ef7";
char ntfsPropertiesId[33] = "0305E12E5E9B4B2A9278C76F80AC321B";
char multiRenameId[33] = "338f59b3448642bf9f3ad7bafb4fae2b";

}  // namespace Velmora::SDK
