// The system-dependent part of the scratch folder.
#pragma once

#include <filesystem>

#include "platform/text.h"

// Returns the folder in which scratch folders are created.
std::filesystem::path ScratchParent();

// Converts a path to the form that the code under test gets, Z:\a\b, and part of such a path back.
WString WindowsForm(const std::filesystem::path& path);
std::filesystem::path NativeForm(WStringView part);

// Removes the folder and its contents: read-only files, folders without permissions, paths of any length.
// Returns false if anything remains.
bool RemoveTree(const std::filesystem::path& folder);
