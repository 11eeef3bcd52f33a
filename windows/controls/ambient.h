// What a host gives for the page that a control stands in.
#pragma once

#include <string>

#include "windows/controls/tones.h"

namespace depcalc::native {

struct Ambient {
  std::wstring font_family;  ///< "": the system's own
  AmbientColours colours;
};

}  // namespace depcalc::native
