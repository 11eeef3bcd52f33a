// A script's user at the native windows: nothing but messages.
#pragma once

#include <windows.h>

#include <memory>

#include "tests/drive/hands.h"
#include "windows/controls/screen_window.h"

namespace depcalc::testing {

/// Presses keys and the mouse by the messages that the system would send. Knows where things are
/// from `screen`, and no more.
class WindowHands : public drive::Hands {
 public:
  explicit WindowHands(native::ScreenWindow& screen) : screen_(&screen) {}

  void moveFocus(InputControl& target) override;
  void type(std::string_view text) override;
  void typeKey(char32_t key) override;
  void paste(const std::string& text) override;
  void tab(bool backwards) override;
  void arrow(Direction direction) override;
  void chooseItem(DropDownList& list, int index) override;
  void click(Control& control) override;
  void mouseDown(Control& control) override;
  void mouseUp(Control* over) override;
  void clickCell(Grid& grid, int row, int column) override;
  void leave() override { screen_->leave(); }
  void idle() override { pump(true); }
  void settle() override { pump(false); }

  /// A key goes down and up; what it writes comes between.
  void press(WPARAM key, wchar_t writes = 0);
  /// The window that has the focus; null where none has.
  [[nodiscard]] static HWND focus() { return GetFocus(); }

 protected:
  /// Without windows, until there are some to sit at.
  WindowHands() = default;
  void sitAt(native::ScreenWindow& screen) { screen_ = &screen; }
  /// Whether the key was the calculator's, as who owns the message loop asks.
  virtual bool translate(MSG& message) {
    return screen_ != nullptr && screen_->translateAccelerator(message);
  }

 private:
  void pump(bool paints);
  void write(wchar_t unit);
  [[nodiscard]] static bool isField(HWND window);
  [[nodiscard]] static bool isTextBox(HWND window);
  /// A point of the control's that nothing in front of it covers.
  [[nodiscard]] POINT pointOn(const Control& control) const;
  void mouse(UINT message, HWND window, POINT at) const;

  native::ScreenWindow* screen_ = nullptr;
  HWND pressed_ = nullptr;
};

/// While it lives, the system takes that key for held.
class HeldKey {
 public:
  explicit HeldKey(int key) : key_(key) { set(0x80); }
  ~HeldKey() { set(0); }
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;

 private:
  void set(BYTE state) const {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key_] = state;
    SetKeyboardState(keys);
  }

  int key_;
};

}  // namespace depcalc::testing
