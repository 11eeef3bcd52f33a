// A register in a container that answers its events from a list of assets.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/user.h"
#include "register/dep_calc_view.h"
#include "tests/support/scripted_site.h"

namespace depcalc::testing {

using Log = std::vector<std::string>;

/// Boxes and the pointer go into the log too, so that one log has the order of everything.
class LoggingSite : public ScriptedSite {
 public:
  explicit LoggingSite(Log& log) : log_(log) {}

  BoxAnswer showBox(const MessageBox& box) override {
    log_.push_back("box " + box.title);
    return ScriptedSite::showBox(box);
  }
  void setPointer(Pointer pointer) override {
    log_.emplace_back(pointer == Pointer::hourglass ? "hourglass" : "pointer");
    ScriptedSite::setPointer(pointer);
  }
  Printer& systemPrinter() override {
    ++printers_asked;
    return ScriptedSite::systemPrinter();
  }

  int printers_asked = 0;

 private:
  Log& log_;
};

struct RegisterContainer : UserControl, DepCalcViewEvents {
  RegisterContainer(Stage& stage, Log& register_log)
      : UserControl(stage, "Container"), log(register_log) {
    show();
  }

  void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr, double& myNumYrs,
                     std::int16_t& myNumAssets) override {
    log.emplace_back("GetCalcDepAll");
    if (on_reading) on_reading();
    given_slots = myCalcDep;
    given_year = myStartYr;
    given_assets = myNumAssets;
    if (assets.empty()) return;
    myCalcDep = assets;
    myCalcDep.emplace_back();
    myStartYr = start_year;
    myNumYrs = years;
    myNumAssets = static_cast<std::int16_t>(assets.size());
  }
  void ResizedDisplay() override {
    log.emplace_back("ResizedDisplay");
    if (on_resized) on_resized();
  }
  void SaveRecord(const CalculateDepPtr&) override { log.emplace_back("SaveRecord"); }
  void ButtonClick(const std::string& myButton) override {
    log.push_back("ButtonClick " + myButton);
  }
  void DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) override {
    log.push_back("DeleteButtonClick " + std::to_string(myIndex));
    deleted_from = myCalcDep;
    if (on_delete) on_delete();
  }
  void GetCalcDep(CalculateDepPtr& myCalcDep) override {
    log.emplace_back("GetCalcDep");
    myCalcDep = current;
  }
  void GetStartDir(std::string&) override { log.emplace_back("GetStartDir"); }
  void HelpClick(const std::string& myTopic) override { log.push_back("HelpClick " + myTopic); }
  void ShowCover(bool showHide) override { log.emplace_back(showHide ? "ShowCover" : "HideCover"); }

  Log& log;
  CalculateDepArray assets;
  std::int16_t start_year = 2024;
  double years = 6;
  CalculateDepPtr current = std::make_shared<CalculateDep>();
  CalculateDepArray given_slots;
  std::int16_t given_year = 0;
  std::int16_t given_assets = 0;
  CalculateDepArray deleted_from;
  std::function<void()> on_delete;
  std::function<void()> on_resized;
  std::function<void()> on_reading;
  DepCalcView view{*this, "DepCalcView1", *this};
};

inline CalculateDepPtr makeAsset(const std::string& id) {
  auto asset = std::make_shared<CalculateDep>();
  asset->AssetID(id);
  asset->FYEnd(Date::strict(2000, 12, 31));
  asset->AssetStartDate(Date::strict(2024, 1, 1));
  asset->DepRecovery(5);
  asset->DepMethod("SL");
  return asset;
}

struct RegisterSurroundings {
  void showView() {
    container.view.hide();
    container.view.show();
    stage.pumpPaint();
  }
  Log takeLog() { return std::exchange(log, {}); }

  Log log;
  LoggingSite site{log};
  Stage stage{site};
  User user{stage};
  RegisterContainer container{stage, log};
  DepCalcView& view = container.view;
  Grid& table = view.AssetViewTable;
};

}  // namespace depcalc::testing
