// Everything that the module knows of its host, and what it hands to it.
#pragma once

#include "frame/services/ask_choice_record.h"
#include "frame/services/extension_info.h"
#include "frame/services/file_properties.h"
#include "frame/services/host_app.h"
#include "frame/services/host_files.h"
#include "frame/services/host_helper_channel.h"
#include "frame/services/host_list.h"
#include "frame/services/host_menus.h"
#include "frame/services/host_properties.h"
#include "frame/services/host_property_definer.h"
#include "frame/services/host_script_commands.h"
#include "frame/services/host_settings.h"
#include "frame/services/host_types.h"
#include "frame/services/host_xml.h"
#include "frame/services/plugin_interface.h"
