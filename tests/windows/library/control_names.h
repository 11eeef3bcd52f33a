// The controls in the names of tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/windows/library/library_objects.h"

namespace depcalc::windows {

/// Of a test over `control_classes`.
inline std::string controlName(const testing::TestParamInfo<GUID>& of) {
  constexpr const char* names[] = {"Cont", "Ctl", "DisplayCtl", "View", "Popup"};
  return names[of.index];
}

}  // namespace depcalc::windows
