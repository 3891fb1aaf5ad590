// The properties of files that templates of renames ask for.
#pragma once

#include "host/rename/rename_rules.h"
#include "host/verbs/run.h"

namespace QxHost {

// Whether a template has a tag of a property.
bool AsksForProperty(const RenameRules& rules);

// Makes the columns of the module's extensions known as properties of files.
void AddColumnsAsProperties(Run& run);

// Says which tags name no property that is known, and are empty for it.
void WarnOfUnknownProperties(Shared& shared, const RenameRules& rules);

}  // namespace QxHost
