#include <gtest/gtest.h>

#include <objbase.h>
#include <objidl.h>
#include <shlobj.h>

#include <vector>

#include "support/read_shell_link.h"

namespace {

constexpr int kMaxChars = 4096;

}  // namespace

ShellObjects::ShellObjects() { EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
ShellObjects::~ShellObjects() { CoUninitialize(); }

ShellLink ReadShellLink(const WString& path) {
  ShellLink link;
  void* made = nullptr;
  EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &made), S_OK);
  if (!made) return link;
  auto* const shellLink = static_cast<IShellLinkW*>(made);
  void* found = nullptr;
  EXPECT_EQ(shellLink->QueryInterface(IID_IPersistFile, &found), S_OK);
  auto* const file = static_cast<IPersistFile*>(found);
  EXPECT_EQ(file->Load(path.c_str(), STGM_READ), S_OK);
  std::vector<WCHAR> text(kMaxChars);
  EXPECT_EQ(shellLink->GetPath(text.data(), kMaxChars, nullptr, 0), S_OK);
  link.target = text.data();
  EXPECT_EQ(shellLink->GetWorkingDirectory(text.data(), kMaxChars), S_OK);
  link.workingFolder = text.data();
  EXPECT_EQ(shellLink->GetDescription(text.data(), kMaxChars), S_OK);
  link.description = text.data();
  file->Release();
  shellLink->Release();
  return link;
}
