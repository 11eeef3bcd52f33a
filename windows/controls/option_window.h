// The window of an option.
#pragma once

#include "controls/option_button.h"
#include "windows/controls/field_window.h"

namespace depcalc::native {

/// Whether it is chosen is the model's to say: the button never checks itself.
class OptionWindow : public FieldWindow {
 public:
  OptionWindow(OptionButton& option, Surface& surface)
      : FieldWindow(option, surface), option_(option) {}

  void create(HWND parent) override;

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  void apply(Aspect aspect) override;
  /// With room for the ring.
  [[nodiscard]] RECT windowArea(const RECT& area) const override;

 private:
  bool keyDown(WPARAM key);
  void release(POINT at);

  OptionButton& option_;
  bool pressed_ = false;
};

}  // namespace depcalc::native
