// Reads the names in the result of the system's object picker.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/text.h"

// The layout of DS_SELECTION_LIST: a header that begins with the count, then records with a pointer to the
// path of each object.
inline constexpr std::size_t kSelectionHeaderBytes = 8;
inline constexpr std::size_t kSelectionRecordBytes = 48;
inline constexpr std::size_t kSelectionPathOffset = 8;

// Returns the path of each record, empty for a null path. Ignores records outside the memory, whatever the
// count says. A path within the memory ends at the end of the memory at the latest.
std::vector<WString> NamesOfSelectionList(std::span<const std::byte> memory);

// Returns the first name as an account: without "WinNT://", and with backslashes instead of slashes. Returns
// std::nullopt if there is no name.
std::optional<WString> AccountOfSelection(const std::vector<WString>& names);
