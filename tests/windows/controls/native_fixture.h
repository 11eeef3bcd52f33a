// A small screen, shown by native windows.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/small_screen.h"
#include "tests/windows/controls/top_window.h"
#include "tests/windows/controls/window_hands.h"
#include "windows/controls/windows_site.h"

namespace depcalc::testing {

/// A box is answered as it asks to be, and kept.
struct QuietSite : native::WindowsSite {
  QuietSite() : WindowsSite({.owner = nullptr, .printer = nullptr}) {}
  BoxAnswer showBox(const MessageBox& box) override {
    boxes.push_back(box.text);
    return box.buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::no;
  }
  std::vector<std::string> boxes;
};

/// All that lives as long as an action on it does.
struct SmallModel {
  SmallModel() {
    root.show();
    root.screen.show();
  }
  QuietSite site;
  Stage stage{site};
  SmallRoot root{stage};
};

struct NativeTest : ::testing::Test {
  NativeTest() { seat(); }

  void seat(native::Surface::Events events = {}) {
    window = std::make_unique<native::ScreenWindow>(top.handle(), model->root, model, events);
    hands = std::make_unique<WindowHands>(*window);
    window->place(top.client());
    window->show(true);
    window->takeFocus();
    hands->idle();
  }
  SmallScreen& screen() { return model->root.screen; }
  std::string focused() const {
    const InputControl* const at = model->stage.focused();
    return at == nullptr ? "" : at->name();
  }
  /// What the window that has the keys stands for.
  static std::string keys() {
    const native::ControlWindow* const at = native::ControlWindow::of(GetFocus());
    if (at == nullptr) return "";
    const Control* const stop = at->surface().keysAt();
    return stop != nullptr ? stop->name() : at->control().name();
  }
  /// As the system brings it to the host first; returns whether it was taken.
  bool accelerator(UINT message, WPARAM key, LPARAM low = 1) {
    MSG brought{GetFocus(), message, key, low, 0, {}};
    const bool taken = window->translateAccelerator(brought);
    hands->idle();
    return taken;
  }

  TopWindow top{1000, 700};
  std::shared_ptr<SmallModel> model = std::make_shared<SmallModel>();
  std::unique_ptr<native::ScreenWindow> window;
  std::unique_ptr<WindowHands> hands;
};

}  // namespace depcalc::testing
