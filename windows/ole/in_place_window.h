// A control's window on its host's page.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include <memory>

#include "windows/com/com_ptr.h"
#include "windows/controls/screen_window.h"

namespace depcalc::windows {

class ControlHub;

/// From activation to deactivation: the native windows, and what the host must hear of them.
class InPlaceWindow {
 public:
  explicit InPlaceWindow(ControlHub& hub) : hub_(hub) {}
  ~InPlaceWindow();
  InPlaceWindow(const InPlaceWindow&) = delete;
  InPlaceWindow& operator=(const InPlaceWindow&) = delete;

  /// Null while there is none.
  [[nodiscard]] HWND handle() const { return screen_ == nullptr ? nullptr : screen_->handle(); }
  [[nodiscard]] bool active() const { return screen_ != nullptr; }

  /// The host's site refuses, or has no place for windows: ComFailure.
  void activate(IOleInPlaceActiveObject& object);
  /// Activates, and takes the focus and the host's tools.
  void activateUi(IOleInPlaceActiveObject& object);
  void deactivate();
  /// `leaving`: the focus goes to something of the host's, and what was typed counts.
  void deactivateUi(bool leaving);

  void place(const RECT& position, const RECT& clip);
  void setVisible(bool visible);
  /// Whether the key was the control's.
  bool translate(MSG& message);
  void applyAmbient();
  /// The host shows a box of its own: nothing can be done here meanwhile.
  void setModeless(bool modeless);

 private:
  void makeScreen(IOleInPlaceSite& site, IOleInPlaceActiveObject& object);
  void focusMoved(IOleInPlaceActiveObject& object, bool in);
  void sizeChanged();
  void showTools(IOleInPlaceActiveObject* object);

  ControlHub& hub_;
  ComPtr<IOleInPlaceSite> site_;
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  std::unique_ptr<native::ScreenWindow> screen_;
  RECT position_{};
  bool ui_active_ = false;
  bool modeless_ = true;
};

}  // namespace depcalc::windows
