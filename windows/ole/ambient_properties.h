// What a host says about the page that a control stands in.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include <string>

#include "windows/controls/ambient.h"

namespace depcalc::windows {

struct AmbientValues {
  native::Ambient look;
  bool user_mode = true;  ///< false while the page is being designed
  LCID language = LOCALE_USER_DEFAULT;

  /// Of the host's site; what it does not say, or says wrong, stays as it is.
  static AmbientValues of(IOleClientSite* site);
};

}  // namespace depcalc::windows
