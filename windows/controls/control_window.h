// What every native window of the calculator has in common.
#pragma once

#include <memory>

#include "controls/control.h"
#include "windows/controls/surface.h"

namespace depcalc::native {

/// Keeps a window as its control says: name, place, visibility and stacking by itself, the rest
/// through `apply`. A window of the system's classes is subclassed: what a user does to it comes
/// here first. The window may be destroyed by anything that a message leads to; this object lives
/// until the message is over, and then has no handle.
class ControlWindow : public std::enable_shared_from_this<ControlWindow> {
 public:
  ControlWindow(Control& control, Surface& surface);
  virtual ~ControlWindow();
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  /// Makes the window as a child of `parent`. Nothing comes of it where the system refuses.
  virtual void create(HWND parent) = 0;

  [[nodiscard]] HWND handle() const { return handle_; }
  [[nodiscard]] Control& control() const { return control_; }
  [[nodiscard]] Surface& surface() const { return *surface_; }
  [[nodiscard]] bool alive() const { return handle_ != nullptr && surface_->alive(); }

  /// Where its parent is, as this window sees it: the control's corner and what is to be seen, in
  /// the client coordinates of the parent's window.
  struct Around {
    POINT corner{};
    RECT seen{};
  };
  virtual void place(const Around& around);
  /// Fonts and colours are others now.
  virtual void restyle();
  /// The part of the screen that a control drawn here takes, in client coordinates.
  [[nodiscard]] virtual RECT areaOf(const Control& control) const;
  void reveal(const Control& control);

  virtual void keysArrived(const Control& /*stop*/) {}
  virtual void keysLeft(const Control& /*stop*/) {}
  /// The colours of a window of the system's, whose parent is asked for them.
  virtual LRESULT colours(HDC /*dc*/) { return 0; }
  /// A WM_COMMAND that this window sent to its parent.
  virtual void notified(UINT /*code*/) {}
  /// The system gave it the focus; the model may not know.
  void askModel();

  /// The handler of the window that `handle` is; nothing for windows that are not ours.
  static ControlWindow* of(HWND handle);

 protected:
  void createOwn(HWND parent, DWORD style);
  void createNative(HWND parent, const wchar_t* class_name, DWORD style);

  virtual LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low);
  /// As the window's class has it.
  LRESULT original(UINT message, WPARAM wide, LPARAM low);
  virtual void apply(Aspect aspect) = 0;
  /// The window's rectangle for a control that takes `area`.
  [[nodiscard]] virtual RECT windowArea(const RECT& area) const { return area; }

  [[nodiscard]] const Around& around() const { return around_; }
  /// The control's own top left corner, in client coordinates.
  [[nodiscard]] POINT corner() const { return corner_; }
  void repaint();
  /// Draws into the part that is due, without flicker.
  template <typename Draw>
  void paint(Draw draw);
  /// Whether `key` is for the whole page and has been handled.
  bool pageKey(UINT message, WPARAM key, LPARAM low);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM low);
  friend const wchar_t* registeredClass(HINSTANCE module);

  void attach(HWND window);
  void changed(Aspect aspect);
  void paintBuffered(const std::function<void(const Canvas&, const RECT&)>& draw);

  Control& control_;
  std::shared_ptr<Surface> surface_;
  HWND handle_ = nullptr;
  WNDPROC original_ = nullptr;
  Around around_;
  POINT corner_{};
  Observation observation_;
};

template <typename Draw>
void ControlWindow::paint(Draw draw) {
  paintBuffered([&draw](const Canvas& canvas, const RECT& part) { draw(canvas, part); });
}

/// The module that this code is part of.
[[nodiscard]] HINSTANCE thisModule();

/// Registers the class of the windows that are drawn here; again is harmless.
const wchar_t* registeredClass(HINSTANCE module);
/// Nothing where a window of it is left.
void unregisterClass(HINSTANCE module);

}  // namespace depcalc::native
