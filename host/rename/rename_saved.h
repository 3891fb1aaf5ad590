// Saved rules of renames: profiles, and the numbered lists of search pairs.
#pragma once

#include <string>

#include "host/rename/rename_rules.h"
#include "host/services/shared.h"

namespace QxHost {

// All functions that read a file throw BadCall if it is damaged: it would be read as empty, and the next save
// would overwrite what is left of it.

void ListRenameProfiles(Shared& shared, Velmora::SDK::IHostApp& host);

// Asks before replacing a profile with this name, and reports which of the rules a profile does not store.
// Returns false if the profile is not to be replaced, or if the file cannot be written. Throws BadCall for an
// invalid name.
bool SaveRenameProfile(Shared& shared, Velmora::SDK::IHostApp& host, const std::string& name,
                       const RenameRules& rules);

// Returns false if the file cannot be written. Throws BadCall if there is no such profile.
bool DeleteRenameProfile(Shared& shared, Velmora::SDK::IHostApp& host, const std::string& name);

void ListPairs(Shared& shared, Velmora::SDK::IHostApp& host);

// Stores the pairs as the list with this number. Returns false if the file cannot be written.
bool SavePairs(Shared& shared, Velmora::SDK::IHostApp& host, const std::string& number,
               const RenameRules& rules);

// Puts the templates at the front of the histories that the window offers, as a run does.
void KeepTemplates(Velmora::SDK::IHostApp& host, const RenameRules& rules);

}  // namespace QxHost
