#include "filetools/xml_conversion.h"

#include <array>

#include "frame/host/host_objects.h"
#include "frame/services/selected_paths.h"

using namespace Velmora::SDK;

namespace {

constexpr u32 kEncodingChars = 100;

// Loads the file and saves it again. Returns false if saving fails; true if the file cannot be loaded.
bool Rewrite(IHostXmlDocument& document, const WString& path, bool format) {
  const XmlNode root = document.Load(path.c_str(), 0);
  if (!root) return true;
  std::array<char, kEncodingChars + 1> encoding = {};  // terminated even if the host fills all of its buffer
  document.GetEncoding(root, encoding.data(), kEncodingChars);
  return document.Save(root, path.c_str(), format ? 1 : 0, encoding.data());
}

}  // namespace

void ConvertXmlCommand(IHostApp& host, bool format) {
  for (const WString& path : SelectedPaths(host)) {
    if (path.empty()) continue;
    const HostObject<IHostXmlDocument> document(host.CreateXmlDocument());
    if (!document) continue;
    if (!Rewrite(*document.Get(), path, format)) {
      MessageBoxW(nullptr, W("Failed to save xml file"), W("Error"), MB_OK | MB_ICONERROR);
    }
  }
}
