// Applies every quick rename transform to any name and checks the properties that they all have. Compares the
// swaps and the replacement with plain implementations.
#include "filetools/name_transforms.h"

#include <array>

#include "frame/host/command_numbers.h"
#include "fuzz_input.h"
#include "support/fake_files.h"

using namespace Velmora::SDK;

namespace {

struct Swap {
  s32 command;
  WCHAR from;
  WCHAR to;
};

constexpr Swap kSwaps[] = {
    {kCommandUnderscoresToBlanks, W('_'), W(' ')}, {kCommandUnderscoresToDots, W('_'), W('.')},
    {kCommandBlanksToUnderscores, W(' '), W('_')}, {kCommandBlanksToDots, W(' '), W('.')},
    {kCommandDotsToUnderscores, W('.'), W('_')},   {kCommandDotsToBlanks, W('.'), W(' ')},
    {kCommandHyphensToBlanks, W('-'), W(' ')},     {kCommandBlanksToHyphens, W(' '), W('-')},
};

// A swap, character by character.
WString PlainSwap(const WString& name, bool isFolder, const Swap& swap) {
  WString result;
  for (std::size_t at = 0; at < name.size(); ++at) {
    const bool isAfterLastDot = !isFolder && name.rfind(W('.')) != WString::npos && at >= name.rfind(W('.'));
    result += !isAfterLastDot && name[at] == swap.from ? swap.to : name[at];
  }
  return result;
}

// A replacement, character by character.
WString PlainReplace(const WString& text, const WString& find, const WString& replace) {
  WString result;
  for (std::size_t at = 0; at < text.size();) {
    if (!find.empty() && text.compare(at, find.size(), find) == 0) {
      result += replace;
      at += find.size();
    } else {
      result += text[at++];
    }
  }
  return result;
}

void RequireResult(bool changed, const FileItemEntry& entry, const WString& name, const WString& wanted) {
  Require(changed == (wanted != name));
  Require(entry.newName == (changed ? wanted : WString()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const bool isFolder = input.TakeByte() % 2 != 0;
  const int part = input.TakeByte() % 5;
  // Short enough for the system's buffers.
  const WString name = input.TakeText().substr(0, 2000);
  const WString find = input.TakeText();
  const WString replace = input.TakeText().substr(0, 20);

  HostRecorder recorder;
  FakeFileItem item(recorder, W("Z:\\"), name, isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE);
  for (s32 command = kCommandUpperCase; command <= kCommandSetExtension; ++command) {
    const NameTransform transform = FindNameTransform(command);
    if (!transform) continue;
    FileItemEntry entry = {&item, W("left over")};
    const bool changed = transform(entry);
    Require(changed || entry.newName.empty());
    Require(!changed || entry.newName != name);
    // No transform adds more than one character, the dot of a tidy name.
    Require(entry.newName.size() <= name.size() + 1);
  }
  for (const Swap& swap : kSwaps) {
    FileItemEntry entry = {&item, {}};
    const bool changed = FindNameTransform(swap.command)(entry);
    RequireResult(changed, entry, name, PlainSwap(name, isFolder, swap));
  }

  const std::size_t dot = name.rfind(W('.')) == WString::npos ? name.size() : name.rfind(W('.'));
  WString wanted = name;
  if (isFolder || part == 3)
    wanted = PlainReplace(name, find, replace);
  else if (part == 1)
    wanted = PlainReplace(name.substr(0, dot), find, replace) + name.substr(dot);
  else if (part == 2)
    wanted = name.substr(0, dot) + PlainReplace(name.substr(dot), find, replace);
  // A change after the first 2048 characters is ignored.
  if (wanted.size() < 2048) {
    FileItemEntry entry = {&item, {}};
    RequireResult(ReplaceInName(entry, find, replace, part), entry, name, wanted);
  }
  return 0;
}
