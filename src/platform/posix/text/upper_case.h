// The case mapping of LCMapStringW, unit by unit, for the platform layer's own use.
#pragma once

namespace Platform {

// Returns the upper case of a unit.
char16_t UpperCase(char16_t unit);

// Returns the table of the upper case of all 65536 units.
const char16_t* UpperCaseTable();

}  // namespace Platform
