// Dark, light or as the desktop is.
#pragma once

#include <QPalette>

#include "desktop/window/settings.h"

namespace depcalc::desktop {

/// The colours of the whole application. It begins with the desktop's.
class Appearances {
 public:
  Appearances();
  ~Appearances();
  Appearances(const Appearances&) = delete;
  Appearances& operator=(const Appearances&) = delete;

  /// The desktop's own follow it again when they change.
  void use(Appearance appearance);

 private:
  QPalette first_;      ///< what the application began with
  bool given_ = false;  ///< by its command line, not by the desktop
  Appearance used_ = Appearance::desktop;
};

}  // namespace depcalc::desktop
