// Includes all headers of the interfaces between the module and its host.
#pragma once

#include "frame/host/ask_choice_record.h"
#include "frame/host/extension_info.h"
#include "frame/host/file_properties.h"
#include "frame/host/host_app.h"
#include "frame/host/host_files.h"
#include "frame/host/host_helper_channel.h"
#include "frame/host/host_list.h"
#include "frame/host/host_menus.h"
#include "frame/host/host_properties.h"
#include "frame/host/host_property_definer.h"
#include "frame/host/host_script_commands.h"
#include "frame/host/host_settings.h"
#include "frame/host/host_types.h"
#include "frame/host/host_xml.h"
#include "frame/host/plugin_interface.h"
