// A control on a page of the control container that comes with the system.
#pragma once

#include <functional>

#include "tests/windows/library/library_objects.h"

namespace depcalc::windows {

/// A window with the control in it, activated.
class HostedControl {
 public:
  explicit HostedControl(ComPtr<IUnknown> control);
  ~HostedControl();
  HostedControl(const HostedControl&) = delete;
  HostedControl& operator=(const HostedControl&) = delete;

  [[nodiscard]] HWND page() const { return page_; }
  /// The control's own window; null where it has none.
  [[nodiscard]] HWND window() const;
  [[nodiscard]] IUnknown* control() const { return control_.Get(); }
  /// The host ends: its window goes, and with it what it held.
  void end();

 private:
  ComPtr<IUnknown> control_;
  HWND page_;
};

/// Delivers the messages that wait, and those that follow from them.
void deliverMessages();

/// Hears a control's events: called with the member and the arguments in their order.
using EventListener = std::function<void(DISPID member, VARIANTARG** arguments, std::size_t count)>;
/// What a listener throws where its sink is to fail.
struct SinkFailure {};

/// Connects `listener` to the default events of `control`; `disconnect` ends it.
class EventConnection {
 public:
  EventConnection(IUnknown& control, EventListener listener);
  ~EventConnection() { disconnect(); }
  EventConnection(const EventConnection&) = delete;
  EventConnection& operator=(const EventConnection&) = delete;
  void disconnect();

 private:
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace depcalc::windows
