// Applies a transform to a single name.
#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "filetools/name_transforms.h"
#include "support/fake_host.h"

// Returns the new name, or nothing if the transform returns false. `newName` is not empty before the call,
// because a transform that returns false must clear it.
inline std::optional<WString> NewNameOf(Velmora::SDK::s32 command, const WString& name, bool folder = false) {
  FakeHost host;
  FileItemEntry entry;
  entry.item = folder ? host.AddFolder(name) : host.AddFile(name);
  entry.newName = W("left from before");
  const NameTransform transform = FindNameTransform(command);
  if (!transform) {
    ADD_FAILURE() << "no transform for " << command;
    return std::nullopt;
  }
  const bool changed = transform(entry);
  ExpectAllReleased(host);
  if (changed) return entry.newName;
  EXPECT_EQ(entry.newName, W("")) << "a name that stays must leave no new name";
  return std::nullopt;
}

inline std::optional<WString> NewNameOfFolder(Velmora::SDK::s32 command, const WString& name) {
  return NewNameOf(command, name, true);
}

// For readable comparisons with an optional.
inline std::optional<WString> Name(const WCHAR* name) { return WString(name); }
