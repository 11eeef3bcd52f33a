#include "tests/windows/hosted_sessions/session_hook.h"

#include <memory>
#include <string>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/golden.h"
#include "tests/windows/controls/boxed_site.h"
#include "tests/windows/hosted_sessions/hosted_calculator.h"
#include "values/runtime_error.h"
#include "windows/host/automation_host.h"

namespace depcalc::testing {
namespace {

/// The program's company files.
class ProgramsHost final : public drive::DriveHost {
 public:
  ProgramsHost(SessionHost& host, Date fiscal_year_start) : host_(host) {
    host_.begin(fiscal_year_start.year(), fiscal_year_start.month(), fiscal_year_start.day());
  }

  std::shared_ptr<HostApplication> application() override {
    windows::ComPtr<IDispatch> application;
    application.Attach(host_.application());
    return automationApplication(application.Get());
  }
  void open(const std::string& path) override { host_.open(path.c_str()); }
  void close() override { host_.close(); }
  void setMultiUser(bool multi_user) override {
    if (!host_.setMultiUser(multi_user)) throw RuntimeError::objectNotSet();
  }

 private:
  SessionHost& host_;
};

/// How a session reaches the control that `host` has.
class Parts {
 public:
  explicit Parts(SessionHost& host) : host_(host) {}

  drive::DriveParts parts() {
    return {[this](std::ostream& out, Date today) {
              return std::make_unique<BoxedSite>(out, today,
                                                 [this] { return calculator_->window(); });
            },
            [this](DepCalcCont&) {
              auto made = std::make_unique<HostedHands>(host_);
              calculator_->setHands(*made);
              return made;
            },
            [this](drive::DriveSite& site, ScreenMaker& screens) {
              auto made = std::make_unique<HostedCalculator>(host_, screens, site);
              calculator_ = made.get();
              return made;
            }};
  }

 private:
  SessionHost& host_;
  HostedCalculator* calculator_ = nullptr;
};

std::string transcript(const char* session, SessionHost& host) {
  CalculatorScreens screens;
  Parts parts(host);
  try {
    return drive::goldenTranscript(
        session,
        [&host](const drive::GoldenSettings& settings) {
          return std::make_unique<ProgramsHost>(host, settings.fiscal_year_start);
        },
        screens, parts.parts());
  } catch (const std::exception& error) {
    return std::string("trouble: ") + error.what();
  }
}

}  // namespace
}  // namespace depcalc::testing

extern "C" void DepCalcReplaySession(const char* session, depcalc::testing::SessionHost& host) {
  host.take(depcalc::testing::transcript(session, host).c_str());
}
