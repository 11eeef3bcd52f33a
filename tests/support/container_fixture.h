// A container with stand-in screens on a host in memory.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "DepCalc/dep_calc_cont.h"
#include "common/report_error.h"
#include "controls/user.h"
#include "host/memory/memory_host.h"
#include "tests/support/scripted_site.h"
#include "tests/support/stand_in_screens.h"
#include "tests/support/trace_lines.h"

namespace depcalc::testing {

struct ContainerFixture : ::testing::Test {
  /// Opens the company file and starts the calculator.
  void start() {
    application->open(file);
    container.DepCalcCont_Initialize();
    stage.pumpPaint();
    trace.take();
  }

  /// Writes an asset as the entry form would, and shows the register.
  void saveAsset(const std::string& id) {
    container.NewRecord();
    CalculateDep& record = *container.CurrentRecord();
    record.AssetID(id);
    record.AssetStartDate(Date::strict(2020, 3, 15));
    record.FYEnd(Date::strict(2020, 12, 31));
    record.AssetBasis(Currency::fromText("1000"));
    record.AssetSalvage(Currency::fromText("100"));
    record.DepRecovery(5);
    record.DepConvention("1");
    record.DepMethod("SL");
    record.StraightLine();
    screens.ctl->events.ButtonClick("Save");
    loadRegister();
  }

  /// What the register does when it is shown.
  CalculateDepArray loadRegister() {
    CalculateDepArray all(2);
    std::int16_t start = 0;
    double years = 0;
    std::int16_t assets = 0;
    screens.view->events.GetCalcDepAll(all, start, years, assets);
    return all;
  }

  std::shared_ptr<HostTable> table() { return file->OpenTable("ZEM:DepCalc"); }

  std::vector<std::string> takeReports() { return std::exchange(reports, {}); }

  std::vector<std::string> reports;
  ErrorReportHook hook{[this](const ErrorReport& report) { reports.push_back(report.text()); }};
  ScriptedSite site;
  TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  std::shared_ptr<MemoryApplication> application =
      std::make_shared<MemoryApplication>("/books/start");
  std::shared_ptr<MemoryCompanyFile> file =
      std::make_shared<MemoryCompanyFile>(Date::strict(2024, 4, 1));
  std::optional<std::string> executable = "/usr/bin/something";
  StandInScreens screens;
  std::function<std::shared_ptr<HostApplication>()> create_host = [this] { return application; };
  DepCalcCont container{stage, screens, [this] { return create_host(); },
                        [this] { return executable; }};
};

/// Started on an empty register.
struct Container : ContainerFixture {
  Container() { start(); }

  CalculateDep& current() { return *container.CurrentRecord(); }
  std::string storedName(std::int16_t index) {
    return table()->Item(index)->Fields().GetValue("AName").asText();
  }
  /// Selects an asset as the register does, and edits it.
  void edit(int index) {
    container.NewRecord();
    current().RecNew(false);
    current().RecIndex(std::to_string(index));
    screens.view->events.ButtonClick("Edit");
    takeReports();
    trace.take();
  }
};

/// The warning of a save that follows a change of `what`.
inline std::string warningAbout(const std::string& what) {
  return "You have changed the " + what +
         " without recalculating, and now your depreciation amounts may be wrong. You may want to "
         "recalculate.";
}

inline Currency money(std::string_view text) { return Currency::fromText(text); }

}  // namespace depcalc::testing
