// How a container parts its room: the docked window over the whole width at the lower end, the list above it.
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

// The docked window keeps its height as long as the container has it; then the list has none. The list is no
// narrower than its least width.
constexpr DockAreas PartContainer(int width, int height, int leastListWidth, int dockedHeight) {
  const int shown = height < 0 ? 0 : height;
  const int docked = dockedHeight < shown ? dockedHeight : shown;
  const int listWidth = width > leastListWidth ? width : leastListWidth;
  return {{0, 0, listWidth, shown - docked}, {0, shown - docked, width < 0 ? 0 : width, docked}};
}

}  // namespace QxHost
