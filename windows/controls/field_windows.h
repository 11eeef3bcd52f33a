// The windows of the controls that take the focus, the grid apart: an EDIT, a COMBOBOX and a radio
// BUTTON, and that of a picture box.
#pragma once

#include "controls/drop_down_list.h"
#include "controls/option_button.h"
#include "controls/picture_box.h"
#include "controls/text_box.h"
#include "windows/controls/control_window.h"

namespace depcalc::native {

/// What the system's own fields have in common: the colours that their parent asks them for.
class FieldWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;

  LRESULT colours(HDC dc) override;

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  /// A press of the mouse; returns whether the control has the focus now, and its window the keys.
  bool pressed();

 private:
  BrushHandle ground_;
};

/// Keys are offered to the model one by one; what the editing leads to is reported to it, and
/// whatever text it then has is shown.
class TextBoxWindow : public FieldWindow {
 public:
  TextBoxWindow(TextBox& box, Surface& surface) : FieldWindow(box, surface), box_(box) {}

  void create(HWND parent) override;
  void notified(UINT code) override;

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  void apply(Aspect aspect) override;
  [[nodiscard]] RECT windowArea(const RECT& area) const override;

 private:
  void showModel();
  bool offer(wchar_t unit);
  [[nodiscard]] std::wstring shownText() const;
  [[nodiscard]] DWORD alignmentStyle() const;

  TextBox& box_;
  wchar_t high_surrogate_ = 0;
  bool showing_ = false;
};

class DropDownListWindow : public FieldWindow {
 public:
  DropDownListWindow(DropDownList& list, Surface& surface)
      : FieldWindow(list, surface), list_(list) {}

  void create(HWND parent) override;
  void place(const Around& around) override;
  void notified(UINT code) override;
  /// The open list closed: its choice is the user's, or is given up.
  void listClosed();

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  void apply(Aspect aspect) override;

 private:
  void showModel();
  void choose();
  [[nodiscard]] bool isOpen() const;
  bool keyDown(UINT message, WPARAM key);

  DropDownList& list_;
  bool chosen_ = false;
};

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

/// The direction of an arrow key; nothing for other keys.
[[nodiscard]] std::optional<Direction> directionOf(WPARAM key);

}  // namespace depcalc::native
