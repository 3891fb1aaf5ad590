// What the scratch folder needs of the system below.
#pragma once

#include <filesystem>

#include "platform/text.h"

// The folder to make scratch folders in.
std::filesystem::path ScratchParent();

// The path as the code under test is given it, in the form Z:\a\b, and a part of such a path back.
WString WindowsForm(const std::filesystem::path& path);
std::filesystem::path NativeForm(WStringView part);

// Removes the folder and all in it: read-only files, folders without permissions, paths of any length. False
// if something stays.
bool RemoveTree(const std::filesystem::path& folder);
