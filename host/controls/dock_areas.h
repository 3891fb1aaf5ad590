// Divides the area of a container: the docked window at the bottom over the full width, the list above it.
#pragma once

namespace QxHost {

// In pixels of the container.
struct DockArea {
  int x;
  int y;
  int width;
  int height;
  friend bool operator==(const DockArea&, const DockArea&) = default;
};

struct DockAreas {
  DockArea list;
  DockArea docked;
};

// Returns the areas of the list and the docked window. The docked window keeps its height, even if that
// leaves no height for the list, but is never higher than the container. The list has at least its least
// width.
constexpr DockAreas PartContainer(int width, int height, int minListWidth, int dockedHeight) {
  const int shown = height < 0 ? 0 : height;
  const int docked = dockedHeight < shown ? dockedHeight : shown;
  const int listWidth = width > minListWidth ? width : minListWidth;
  return {{0, 0, listWidth, shown - docked}, {0, shown - docked, width < 0 ? 0 : width, docked}};
}

}  // namespace QxHost
