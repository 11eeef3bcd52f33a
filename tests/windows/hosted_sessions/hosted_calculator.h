// The calculator of a session, as the library's own object on the page of a host.
#pragma once

#include <memory>

#include "tests/drive/calculator.h"
#include "tests/drive/drive_site.h"
#include "tests/windows/controls/window_hands.h"
#include "tests/windows/hosted_sessions/session_hook.h"
#include "windows/com/com_ptr.h"
#include "windows/ole/control_model.h"

namespace depcalc::testing {

/// Acts by messages on the windows of a hosted control, and tells the control what its host would.
class HostedHands final : public WindowHands {
 public:
  explicit HostedHands(SessionHost& host) : host_(host) {}

  void sitAt(IUnknown& control);
  void leave() override { host_.takeKeys(); }

 protected:
  bool translate(MSG& message) override;

 private:
  SessionHost& host_;
  windows::ComPtr<IOleInPlaceActiveObject> keys_;
};

/// Its model is there before the library makes its control, which then starts it up. The host
/// hears in the end when somebody still holds the model.
class HostedCalculator final : public drive::Calculator {
 public:
  HostedCalculator(SessionHost& host, ScreenMaker& screens, drive::DriveSite& site);
  ~HostedCalculator() override;
  HostedCalculator(const HostedCalculator&) = delete;
  HostedCalculator& operator=(const HostedCalculator&) = delete;

  Stage& stage() override { return model_->stage(); }
  DepCalcCont& container() override { return model_->container(); }
  /// Once it is hosted, once more is the model's own matter: no host does that to a control.
  void start() override;

  /// The control's window; null while there is none.
  [[nodiscard]] HWND window() const { return model_->window(); }
  void setHands(HostedHands& hands) { hands_ = &hands; }

 private:
  SessionHost& host_;
  std::shared_ptr<windows::CalculatorModel> model_;
  HostedHands* hands_ = nullptr;
  bool hosted_ = false;
};

}  // namespace depcalc::testing
