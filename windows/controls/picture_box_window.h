// The window of a picture box.
#pragma once

#include "controls/picture_box.h"
#include "windows/controls/control_window.h"

namespace depcalc::native {

class PictureBoxWindow : public ControlWindow {
 public:
  PictureBoxWindow(PictureBox& box, Surface& surface) : ControlWindow(box, surface), box_(box) {}

  void create(HWND parent) override { createOwn(parent, 0); }

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  void apply(Aspect /*aspect*/) override { repaint(); }

 private:
  PictureBox& box_;
};

}  // namespace depcalc::native
