// The file properties in the templates of renames.
#pragma once

#include "host/rename/rename_rules.h"
#include "host/verbs/run.h"

namespace QxHost {

// Returns whether a template has a property tag.
bool UsesProperty(const RenameRules& rules);

// Registers the columns of the module's extensions as file properties.
void AddColumnsAsProperties(Run& run);

// Warns of tags whose property is unknown and which are therefore empty.
void WarnOfUnknownProperties(Shared& shared, const RenameRules& rules);

}  // namespace QxHost
