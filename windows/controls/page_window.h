// The window of a screen, a popup, or the container of them.
#pragma once

#include <vector>

#include "controls/user_control.h"
#include "windows/controls/control_window.h"

namespace depcalc::native {

/// Draws the labels, buttons and shapes inside, and the fields around its text boxes; takes the
/// mouse for them, and the keys for the button or link that Tab came to.
class PageWindow : public ControlWindow {
 public:
  PageWindow(UserControl& control, Surface& surface);

  void create(HWND parent) override;
  void place(const Around& around) override;
  void restyle() override;
  [[nodiscard]] RECT areaOf(const Control& control) const override;
  void keysArrived(const Control& stop) override;
  void keysLeft(const Control& stop) override;

  /// What is drawn here, furthest in front first.
  [[nodiscard]] std::vector<Control*> drawnControls() const;
  /// The one at a point, nothing where the page itself is.
  [[nodiscard]] Control* drawnAt(POINT at) const;
  void repaintControl(const Control& control);

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  void apply(Aspect aspect) override;

 private:
  void drawPart(const Canvas& canvas, const RECT& part);
  void draw(const Canvas& canvas, const Control& control, const RECT& area) const;
  void press(POINT at);
  void release(POINT at);
  void hover(POINT at);
  bool keyDown(WPARAM key);
  [[nodiscard]] bool showsHand() const;

  UserControl& page_;
  std::vector<Observation> observations_;
  const Control* hovered_ = nullptr;
  Control* pressed_ = nullptr;  ///< with the mouse, by the user
};

/// What stands on a page, furthest behind first.
[[nodiscard]] std::vector<Control*> backToFront(const UserControl& page);

}  // namespace depcalc::native
