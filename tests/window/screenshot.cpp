#include "window/screenshot.h"

#include "host/system/window_picture.h"
#include "window/program_folder.h"

bool SaveScreenshot(HWND window, const WString& name) {
  const WString program = ProgramFolder();
  const WString folder = program.substr(0, program.rfind(W('\\'))) + W("\\screenshots");
  CreateDirectoryW(folder.c_str(), nullptr);
  return QxHost::SaveWindowPicture(window, folder + W("\\") + name + W(".png"));
}
