// Saved sets of rules, in "MultiRenameProfiles.xml" in the host's configuration folder. The file is read
// once, when the extension starts, and written as a whole after each change. No error of the file is
// reported: one that cannot be read gives no profiles, and the next save writes over it (C-638); `qxhost
// rename` checks the file before it saves.
//
// Not what one would expect of the form: the writer leaves "searchandreplace" out, and with it the search
// flags, if there are no pairs (C-631); a profile for the extension alone comes back as one for name and
// extension (C-632); an element without a name is an empty profile (C-634); a pair without "replacewith"
// takes that of the pair before it (C-635).
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

  // The path is the host's folder, which ends in a backslash, with the file's name straight after it (C-637);
  // empty if the host gives no folder.
  void Load();

  // False if the host gives no document or no root for it; a file that cannot be written is no failure.
  bool Save() const;

  // To the end of the list.
  void Add(std::unique_ptr<MultiRenameProfile> profile);

  // The first profile of that name, without regard to case; null if there is none.
  const MultiRenameProfile* Find(const WString& name) const;

  // Removes all profiles of that name, without regard to case.
  void Remove(const WString& name);

  // Removes this one. The pointer is not followed.
  void Remove(const MultiRenameProfile* profile);

  IHostApp& host;
  WString filePath;
  std::vector<std::unique_ptr<MultiRenameProfile>> profiles;  // in file order
};

// True if two profiles of these names are one.
bool IsSameProfileName(const WString& lhs, const WString& rhs);

}  // namespace Velmora::SDK
