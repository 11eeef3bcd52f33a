// A user control: a screen, a popup, or the container of them.
#pragma once

#include <optional>
#include <vector>

#include "controls/control.h"
#include "controls/site.h"

namespace depcalc {

/// A control that contains others. Screens derive from it, hold their controls as members in tab
/// order and set the handlers in their constructor, which is their Initialize; the destructor is
/// Terminate. A user control starts hidden.
class UserControl : public Control {
 public:
  UserControl(Stage& stage, std::string name);
  UserControl(UserControl& parent, std::string name);
  ~UserControl() override;

  /// In tab order.
  [[nodiscard]] const std::vector<Control*>& children() const { return children_; }
  /// The control of that name directly inside this one; nothing when there is none.
  [[nodiscard]] Control* child(std::string_view name) const;

  /// From hidden to visible raises Show at once and leaves one Paint to follow at idle; from
  /// visible to hidden raises Hide at once, drops the focus inside without validating, and the
  /// Paint that has not happened yet.
  void setVisible(bool visible) override;
  /// Another size raises Resize at once when the control is shown.
  void setPlace(const Place& place) override;

  /// The host's palette, and the mode that says whether it is in use (2: custom).
  [[nodiscard]] const std::optional<Palette>& palette() const { return palette_; }
  [[nodiscard]] int paletteMode() const { return palette_mode_; }
  void setPalette(const Palette& palette) {
    assign(palette_, std::optional(palette), Aspect::palette);
  }
  void setPaletteMode(int mode) { assign(palette_mode_, mode, Aspect::palette); }

 protected:
  /// Applies the host's palette to this control. An error is reported as
  /// "DepCalc::SetupPalette Error#…".
  void SetupPalette();

  /// Shows a modal message box and returns the answer. A box validates nothing.
  BoxAnswer messageBox(std::string text, BoxButtons buttons = BoxButtons::ok,
                       std::string title = default_box_title) const;
  [[nodiscard]] Site& site() const;

  // The life-cycle events.
  virtual void Show() {}
  virtual void Paint() {}
  virtual void Resize() {}
  virtual void Hide() {}
  /// The user pressed the mouse on this control or on one inside it.
  virtual void Activate() {}
  /// The host says that the focus left the control for something else than a box or a list.
  virtual void LostFocus() {}

 private:
  friend class Control;
  friend class Stage;
  friend class User;

  std::vector<Control*> children_;
  int front_ = 0;
  bool paint_due_ = false;
  std::optional<Palette> palette_;
  int palette_mode_ = 0;
};

}  // namespace depcalc
