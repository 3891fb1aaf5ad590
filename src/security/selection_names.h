// What the system's object picker hands over, as names.
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

// The path of each record. A null path gives an empty text. Records that the memory does not hold are not
// there, whatever the count says; a path that lies in the memory ends with it at the latest.
std::vector<WString> NamesOfSelectionList(std::span<const std::byte> memory);

// The first name as an account: without any "WinNT://", each slash a backslash. Nothing where there is none.
std::optional<WString> AccountOfSelection(const std::vector<WString>& names);
