// Saved rules of renames: profiles, and the numbered lists of search pairs.
#pragma once

#include <string>

#include "host/rename/rename_rules.h"
#include "host/services/shared.h"

namespace QxHost {

// All of these that read a file throw BadCall if it is damaged: it would look empty, and what is left of it
// be lost when it is saved.

void ListRenameProfiles(Shared& shared, Velmora::SDK::IHostApp& host);

// Asks before it replaces a profile of that name, and says what of the rules a profile does not keep. False
// if it is not to be replaced, or the file could not be written. Throws BadCall for what can be no name.
bool SaveRenameProfile(Shared& shared, Velmora::SDK::IHostApp& host, const std::string& name,
                       const RenameRules& rules);

// False if the file could not be written. Throws BadCall if there is no such profile.
bool DeleteRenameProfile(Shared& shared, Velmora::SDK::IHostApp& host, const std::string& name);

void ListPairs(Shared& shared, Velmora::SDK::IHostApp& host);

// Stores the pairs as the list of that number. False if the file could not be written.
bool SavePairs(Shared& shared, Velmora::SDK::IHostApp& host, const std::string& number,
               const RenameRules& rules);

// Puts the templates first in the histories that the window offers, as a run does.
void KeepTemplates(Velmora::SDK::IHostApp& host, const RenameRules& rules);

}  // namespace QxHost
