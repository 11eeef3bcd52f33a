#include "windows/com/module_count.h"

#include <gtest/gtest.h>

#include <optional>

namespace depcalc {
namespace {

TEST(ModuleCount, StaysForAnObjectAndForALock) {
  EXPECT_TRUE(moduleUnused());
  std::optional<ModuleUse> object(std::in_place);
  EXPECT_FALSE(moduleUnused());
  lockModule();
  object.reset();
  EXPECT_FALSE(moduleUnused());
  unlockModule();
  EXPECT_TRUE(moduleUnused());
}

}  // namespace
}  // namespace depcalc
