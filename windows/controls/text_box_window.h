// The window of a text box.
#pragma once

#include "controls/text_box.h"
#include "windows/controls/field_window.h"

namespace depcalc::native {

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
  LRESULT typed(WPARAM character, LPARAM low);
  [[nodiscard]] std::wstring shownText() const;
  [[nodiscard]] DWORD alignmentStyle() const;

  TextBox& box_;
  wchar_t high_surrogate_ = 0;
  bool showing_ = false;
};

}  // namespace depcalc::native
