#include "frame/services/extension_info.h"
