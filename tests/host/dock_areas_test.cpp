#include "host/controls/dock_areas.h"

#include <gtest/gtest.h>

#include <ostream>

namespace QxHost {

void PrintTo(const DockArea& area, std::ostream* out) {
  *out << area.x << ' ' << area.y << ' ' << area.width << ' ' << area.height;
}

namespace {

TEST(DockAreasTest, TheListTakesWhatTheDockedWindowLeaves) {
  const DockAreas areas = PartContainer(855, 380, 200, 230);
  EXPECT_EQ(areas.list, (DockArea{0, 0, 855, 150}));
  EXPECT_EQ(areas.docked, (DockArea{0, 150, 855, 230}));
}

TEST(DockAreasTest, WithoutADockedWindowTheListHasAllOfIt) {
  EXPECT_EQ(PartContainer(300, 100, 200, 0).list, (DockArea{0, 0, 300, 100}));
}

TEST(DockAreasTest, TheListIsNoNarrowerThanItsLeastWidth) {
  const DockAreas areas = PartContainer(150, 300, 200, 100);
  EXPECT_EQ(areas.list.width, 200);
  EXPECT_EQ(areas.docked.width, 150);
}

TEST(DockAreasTest, InTooLittleRoomTheListHasNoneAndNothingIsNegative) {
  const DockAreas low = PartContainer(400, 90, 200, 230);
  EXPECT_EQ(low.list.height, 0);
  EXPECT_EQ(low.docked, (DockArea{0, 0, 400, 90}));
  const DockAreas none = PartContainer(0, 0, 200, 230);
  EXPECT_EQ(none.list, (DockArea{0, 0, 200, 0}));
  EXPECT_EQ(none.docked, (DockArea{0, 0, 0, 0}));
}

}  // namespace
}  // namespace QxHost
