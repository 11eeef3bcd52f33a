// The calculator, or one of its screens, as the model behind a control.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "DepCalc/calculator_screens.h"
#include "DepCalc/dep_calc_cont.h"
#include "controls/stage.h"
#include "windows/com/module_count.h"
#include "windows/controls/windows_site.h"
#include "windows/ole/screen_events.h"

namespace depcalc::windows {

/// Shared by the control and by whatever is under way on it: a box that is open, or an event, keeps
/// it alive when the control is released meanwhile.
class ControlModel {
 public:
  /// In the surroundings that Windows is.
  ControlModel();
  /// In others, which hear all that happens; they live longer.
  ControlModel(Site& site, Trace& trace);
  virtual ~ControlModel() = default;
  ControlModel(const ControlModel&) = delete;
  ControlModel& operator=(const ControlModel&) = delete;

  [[nodiscard]] Stage& stage() { return stage_; }
  /// What is shown in the control's window, and what carries its colours.
  [[nodiscard]] virtual UserControl& root() = 0;
  [[nodiscard]] virtual UserControl& content() = 0;
  /// Null for a control without events.
  [[nodiscard]] virtual EventOutlet* events() { return nullptr; }
  /// The control is on its host's page now, or no longer.
  virtual void show() = 0;
  virtual void hide() = 0;

  /// The window that boxes belong to; null while there is none.
  [[nodiscard]] HWND window() const { return window_; }
  void setWindow(HWND window) { window_ = window; }

 private:
  ModuleUse use_;  // whoever keeps this alive is code of the library
  HWND window_ = nullptr;
  std::unique_ptr<native::WindowsSite> windows_;
  Stage stage_;
};

/// The whole calculator over the host's company file.
class CalculatorModel final : public ControlModel {
 public:
  explicit CalculatorModel(CreateHost create_host);
  CalculatorModel(CreateHost create_host, ScreenMaker& screens, Site& site, Trace& trace);

  /// Shows what the host's company file leads to.
  void start();

  [[nodiscard]] UserControl& root() override { return container_; }
  [[nodiscard]] UserControl& content() override { return container_; }
  [[nodiscard]] DepCalcCont& container() { return container_; }
  /// Shown from its start on, it stays so: what it asks and saves does not depend on a window.
  void show() override {}
  void hide() override {}

 private:
  CalculatorScreens screens_;
  DepCalcCont container_;
};

/// One screen by itself, on a page as large as it is. `Make` is the ScreenMaker's member for it.
template <typename Outlet, auto Make>
class ScreenModel final : public ControlModel {
 public:
  explicit ScreenModel(const char* name) {
    CalculatorScreens screens;
    screen_ = (screens.*Make)(page_, name, outlet_);
    page_.setSize(screen_->width(), screen_->height());
    resized_ =
        screen_->observe([this](Aspect) { page_.setSize(screen_->width(), screen_->height()); });
  }

  [[nodiscard]] UserControl& root() override { return page_; }
  [[nodiscard]] UserControl& content() override { return *screen_; }
  [[nodiscard]] EventOutlet* events() override { return &outlet_; }
  void show() override {
    page_.show();
    screen_->show();
  }
  void hide() override {
    screen_->hide();
    page_.hide();
  }

 private:
  Outlet outlet_;
  UserControl page_{stage(), "Page"};
  ScreenMaker::Screen screen_;
  Observation resized_;
};

using EntryModel = ScreenModel<EntryOutlet, &CalculatorScreens::makeCtl>;
using ComparisonModel = ScreenModel<ComparisonOutlet, &CalculatorScreens::makeDisplay>;
using RegisterModel = ScreenModel<RegisterOutlet, &CalculatorScreens::makeView>;
using PopupModel = ScreenModel<PopupOutlet, &CalculatorScreens::makePopup>;

}  // namespace depcalc::windows
