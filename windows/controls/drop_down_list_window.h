// The window of a drop-down list.
#pragma once

#include "controls/drop_down_list.h"
#include "windows/controls/field_window.h"

namespace depcalc::native {

/// An open list is the system's: what its user comes to in it reaches the model when it closes.
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

}  // namespace depcalc::native
