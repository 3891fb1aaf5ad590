#include "platform/shell_link.h"

#include <objbase.h>
#include <objidl.h>
#include <shlobj.h>

#include <memory>

namespace {

struct ReleaseObject {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ReleaseObject>;

ComPointer<IShellLinkW> MakeShellLink() {
  void* made = nullptr;
  const HRESULT result =
      CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &made);
  return ComPointer<IShellLinkW>(SUCCEEDED(result) ? static_cast<IShellLinkW*>(made) : nullptr);
}

bool Save(IShellLinkW& link, const WString& path) {
  void* found = nullptr;
  if (FAILED(link.QueryInterface(IID_IPersistFile, &found))) return false;
  const ComPointer<IPersistFile> file(static_cast<IPersistFile*>(found));
  return SUCCEEDED(file->Save(path.c_str(), TRUE));
}

}  // namespace

bool SaveShellLink(const ShellLink& link, const WString& path) {
  const ComPointer<IShellLinkW> shellLink = MakeShellLink();
  if (!shellLink) return false;
  // A shortcut without a target is useless, so this failure counts; the other fields are optional.
  if (FAILED(shellLink->SetPath(link.target.c_str()))) return false;
  if (!link.workingFolder.empty()) shellLink->SetWorkingDirectory(link.workingFolder.c_str());
  shellLink->SetDescription(link.description.c_str());
  return Save(*shellLink, path);
}

// The header of the file format: its size (0x4C) and the class id of shell links.
std::string_view ShellLinkSignature() {
  static constexpr char kHeader[] = "\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46";
  return {kHeader, sizeof kHeader - 1};
}
