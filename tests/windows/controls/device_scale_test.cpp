#include "windows/controls/device_scale.h"

#include <gtest/gtest.h>

namespace depcalc {
namespace {

TEST(DeviceScale, TakesTwipsToPixelsAndBack) {
  const DeviceScale usual(96);
  const DeviceScale fine(192);
  EXPECT_EQ(usual.pixels(1440), 96);
  EXPECT_EQ(fine.pixels(1440), 192);
  EXPECT_EQ(usual.twips(96), 1440);
  EXPECT_DOUBLE_EQ(usual.twipsPerPixel(), 15);
  EXPECT_EQ(usual.pixels(7), 0);
  EXPECT_EQ(usual.pixels(8), 1);
  EXPECT_EQ(usual.pixels(-8), -1);
}

TEST(DeviceScale, LeavesNoGapBetweenNeighbours) {
  const DeviceScale scale(120);
  for (int left = 0; left < 100; ++left) {
    const RECT first = scale.pixels(Place{left, 0, 37, 10});
    const RECT second = scale.pixels(Place{left + 37, 0, 37, 10});
    EXPECT_EQ(first.right, second.left) << left;
  }
}

}  // namespace
}  // namespace depcalc
