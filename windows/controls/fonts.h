// The fonts of one device at one resolution.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "controls/font.h"
#include "windows/controls/gdi_handles.h"

namespace depcalc::native {

/// The family of the system's own messages, or the first of those that read alike which is there.
[[nodiscard]] std::wstring usualFamily();

/// Makes each font once and keeps it. Sizes are exact: lengths of a device whose unit is the twip
/// are what a printer would have.
class Fonts {
 public:
  /// `pixels_per_inch`: of the device, in the units that the fonts are selected for.
  Fonts(std::wstring family, double pixels_per_inch)
      : family_(std::move(family)), pixels_per_inch_(pixels_per_inch) {}

  [[nodiscard]] HFONT of(const Font& font);
  [[nodiscard]] const std::wstring& family() const { return family_; }

 private:
  std::wstring family_;
  double pixels_per_inch_;
  std::map<std::tuple<int, bool, bool>, FontHandle> made_;
};

}  // namespace depcalc::native
