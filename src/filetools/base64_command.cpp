#include <optional>

#include "filetools/base64_file.h"
#include "frame/host/host_objects.h"
#include "frame/services/format_text.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/path_parts.h"
#include "frame/services/selected_paths.h"

using namespace Velmora::SDK;

namespace {

constexpr const WCHAR* kEncodedExtension = W(".b64");

// Splits a path at its last backslash. Unlike SplitPath it does not truncate the folder.
PathParts SplitWhole(const WString& path) {
  const std::size_t name = path.rfind(W('\\')) + 1;
  return {path.substr(0, name), path.substr(name)};
}

// The path of the target, and whether the source has a header.
struct Target {
  WString path;
  bool hasHeader = false;
};

Target EncodedTarget(const PathParts& parts) { return {ChangeExtension(parts, kEncodedExtension)}; }

// Returns the target with the name in the header. If there is no header, or its name is refused (C-429), the
// target is the source's name without its extension. For a source without an extension that is the source
// itself: the user is asked whether to overwrite it, and the conversion fails.
Target DecodedTarget(const PathParts& parts, const WString& path) {
  const std::optional<WString> name = GetEncodedFileName(path);
  const bool isUsable = name && !name->empty();
  return {isUsable ? parts.folder + *name : ChangeExtension(parts, W("")), name.has_value()};
}

bool MayReplace(IHostApp& host, const WString& target, bool encode) {
  const WString text = FormatText(LanguageText(host, kTextBase64TargetExists), target);
  const WString caption = LanguageText(host, encode ? kTextBase64Encode : kTextBase64Decode);
  return MessageBoxW(nullptr, text.c_str(), caption.c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

}  // namespace

bool ConvertFileBase64(IHostApp& host, const WString& path, bool encode) {
  const PathParts parts = SplitWhole(path);
  const Target target = encode ? EncodedTarget(parts) : DecodedTarget(parts, path);

  const HostService<IHostFileOperation> files(host, kServiceFileOperation);
  if (!files || files->FileExists(path.c_str()) == 0) return false;
  if (files->FileExists(target.path.c_str()) != 0 && !MayReplace(host, target.path, encode)) return false;
  if (encode) {
    EncodeFileBase64(path, target.path);
  } else {
    DecodeFileBase64(path, target.path, target.hasHeader);
  }
  return true;
}

void ConvertBase64Command(IHostApp& host, bool encode) {
  for (const WString& path : SelectedPaths(host)) {
    if (!path.empty()) ConvertFileBase64(host, path, encode);
  }
}
