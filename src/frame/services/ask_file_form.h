// Asks for the form of a dialog over the selected files. Native build only.
#pragma once

#include <cstdint>
#include <vector>

#include "frame/host/host_app.h"

namespace Platform {
struct FormField;
}

namespace Velmora::SDK {

// The ids of the title and of the two lines at the top, of which the second is a format with the number of
// files.
struct FileFormTexts {
  TextId caption;
  TextId heading;
  TextId count;
};

// Passes the fields to Platform::AskForm as the dialog of this class. Returns IDOK or IDCANCEL.
INT_PTR AskFileForm(IHostApp& host, const char* dialog, const FileFormTexts& texts, std::uint32_t fileCount,
                    std::vector<Platform::FormField> fields);

}  // namespace Velmora::SDK
