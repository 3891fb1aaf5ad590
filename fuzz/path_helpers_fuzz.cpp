// Passes any paths, patterns and names to the helpers that split them.
#include "frame/services/path_parts.h"
#include "frame/services/target_name.h"
#include "fuzz_input.h"
#include "support/fake_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const WString path = input.TakeText();
  const WString pattern = input.TakeText();
  const WString name = input.TakeText();

  PathParts parts;
  SplitPath(parts, path);
  Require(parts.fileName.find(W('\\')) == WString::npos);
  if (parts.folder.size() < 1024) Require(parts.folder + parts.fileName == path);
  Require(ChangeExtension(parts, nullptr) == parts.folder + parts.fileName);
  const WString bare = ChangeExtension(parts, W(""));
  Require((parts.folder + parts.fileName).starts_with(bare));

  HostRecorder recorder;
  FakeFileItem item(recorder, W("Z:\\"), name, FILE_ATTRIBUTE_ARCHIVE);
  const WString target = BuildTargetName(item, pattern);
  if (pattern.find(W('*')) == WString::npos) {
    Require(target == pattern);
  } else {
    Require(target.find(W('*')) == WString::npos);
  }
  return 0;
}
