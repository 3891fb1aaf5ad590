// Saved sets of rules, in "MultiRenameProfiles.xml" in the host's configuration folder. The file is read
// once, when the extension starts, and rewritten completely after each change. Errors of the file are not
// reported: a file that cannot be read results in no profiles, and the next save overwrites it (C-638).
// `qxhost rename` checks the file before it saves.
//
// The format has some peculiarities. Without pairs, "searchandreplace" is not written, and the search flags
// are lost (C-631). A profile for the extension alone is read as one for name and extension (C-632). An
// element without a name is an empty profile (C-634). A pair without "replacewith" has that of the pair
// before it (C-635).
#pragma once

#include <memory>
#include <vector>

#include "frame/host/host_app.h"
#include "multirename/rules/replace_list.h"

namespace Velmora::SDK {

struct MultiRenameProfile {
  WString name;
  WString filenameRule;
  WString extensionRule;
  u32 caseRule = 0;
  u32 startAt = 0;
  u32 stepBy = 0;
  u32 digits = 0;
  u32 flags = 0;                   // of SearchFlag
  SharedReplaceItems searchItems;  // with the quotes of the panel's list; may be null
};

class MultiRenameProfiles {
 public:
  explicit MultiRenameProfiles(IHostApp& hostApp) : host(hostApp) {}

  // Reads the file. Its path is the host's folder, which ends in a backslash, directly followed by the file's
  // name (C-637); it is empty if the host provides no folder.
  void Load();

  // Returns false if the host provides no document or no root element. Does not report that the file cannot
  // be written.
  bool Save() const;

  // Appends the profile to the list.
  void Add(std::unique_ptr<MultiRenameProfile> profile);

  // Returns the first profile with this name, ignoring letter case; null if not found.
  const MultiRenameProfile* Find(const WString& name) const;

  // Removes all profiles with this name, ignoring letter case.
  void Remove(const WString& name);

  // Removes this profile. Does not dereference the pointer.
  void Remove(const MultiRenameProfile* profile);

  IHostApp& host;
  WString filePath;
  std::vector<std::unique_ptr<MultiRenameProfile>> profiles;  // in file order
};

// Returns whether two names denote the same profile, ignoring letter case (CompareStringOrdinal).
bool IsSameProfileName(const WString& lhs, const WString& rhs);

}  // namespace Velmora::SDK
