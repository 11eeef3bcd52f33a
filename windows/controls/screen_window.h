// The native windows of one calculator.
#pragma once

#include <memory>
#include <vector>

#include "windows/controls/control_window.h"
#include "windows/controls/frame_scrolling.h"

namespace depcalc::native {

/// A window with everything that is shown of an outermost control inside: a window for each control
/// that takes the focus, for each screen and popup; the rest drawn. It scrolls where it is smaller
/// than what stands in it.
///
/// May be destroyed inside an event that it led to: the windows go at once, and who is under way
/// notices. What `model` holds keeps the control and its stage alive until the windows are gone and
/// the action is over.
class ScreenWindow {
 public:
  /// Nothing is visible before `show`.
  ScreenWindow(HWND parent, UserControl& root, std::shared_ptr<void> model,
               Surface::Events events = {}, Ambient ambient = {});
  ~ScreenWindow();
  ScreenWindow(const ScreenWindow&) = delete;
  ScreenWindow& operator=(const ScreenWindow&) = delete;

  /// Null where the system refused, and after the parent window has been destroyed.
  [[nodiscard]] HWND handle() const { return surface_->frame(); }
  /// In client pixels of the parent.
  void place(const RECT& at);
  void show(bool visible);
  /// In pixels, of all that is shown, help beside a screen included.
  [[nodiscard]] SIZE size() const;

  /// Takes the focus of the system to where the model has it.
  void takeFocus();
  [[nodiscard]] bool hasFocus() const { return surface_->hasFocus(); }
  /// The focus leaves the calculator for something of the host's: the field that has it validates,
  /// and the outermost control hears of it.
  void leave();

  /// Whether the key that `message` brings was the calculator's, and has been handled.
  bool translateAccelerator(MSG& message);

  void setAmbient(const Ambient& ambient);
  [[nodiscard]] int dpi() const { return surface_->dpi(); }
  /// The resolution of the monitor, where nobody else says that it is another one now.
  void setDpi(int dpi);

  /// The window of a control, where it has one of its own; what draws it, where it has none.
  [[nodiscard]] HWND windowOf(const Control& control) const;
  /// Where a control is, in client pixels of `windowOf`.
  [[nodiscard]] RECT areaOf(const Control& control) const;

  /// The one whose `handle` that is; none: null.
  static ScreenWindow* of(HWND frame);

  // For the windows inside.
  static void contentChanged(Surface& surface, const Control& control);
  static void reveal(Surface& surface, const RECT& area);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM low);
  LRESULT handleMessage(HWND window, UINT message, WPARAM wide, LPARAM low);
  void restyle();
  void layOut();
  void ownMessage(UINT message, WPARAM wide);
  bool restingKey(UINT message, WPARAM key);
  [[nodiscard]] SIZE contentSize() const;

  std::shared_ptr<Surface> surface_;
  std::vector<std::shared_ptr<ControlWindow>> windows_;
  FrameScrolling scrolling_;
  bool laying_out_ = false;
};

}  // namespace depcalc::native
