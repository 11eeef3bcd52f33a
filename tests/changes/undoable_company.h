// A company file as the desktop program works on it: recorded, with units that follow their assets.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "DepCalc/company_assets.h"
#include "DepCalc/units_following.h"
#include "changes/company_steps.h"
#include "host/history/recorder.h"
#include "host/sqlite/company_file.h"

namespace depcalc::testing_support {

class UndoableCompany {
 public:
  /// The files are in `folder`; the company is made where there is none.
  explicit UndoableCompany(std::string folder);
  ~UndoableCompany() { close(); }
  UndoableCompany(const UndoableCompany&) = delete;
  UndoableCompany& operator=(const UndoableCompany&) = delete;

  void open(std::optional<Content> replaced = {});
  void close();

  [[nodiscard]] Recorder& recorder() { return *recorder_; }
  [[nodiscard]] CompanyAssets& assets() { return *assets_; }
  [[nodiscard]] Content content() { return recorder_->content(); }
  [[nodiscard]] int count() { return assets_->assetCount(); }
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] const std::string& historyPath() const { return history_path_; }
  static Date today() { return Date::carrying(2024, 6, 1); }

  // What users do. Numbers are those of assets that are there.
  void saveNew(const std::string& id, double life, const std::string& method);
  void saveEdited(int number, const std::string& name, std::int64_t basis);
  void remove(int number);
  void import(int count, const std::string& prefix);
  void dispose(int number, bool back);
  void enterUnits(int number, int year, double units);
  void recalculate();

 private:
  [[nodiscard]] CompanyInfoAccess infoAccess();

  std::string path_;
  std::string history_path_;
  std::shared_ptr<SqliteCompanyFile> file_;
  std::shared_ptr<Recorder> recorder_;
  std::shared_ptr<UnitsFollowing> following_;
  std::unique_ptr<CompanyAssets> assets_;
};

/// Whether all that counts is equal, and the register's span with it. The rest of the summary is
/// refreshed whenever the company is opened.
bool same(const Content& one, const Content& other);

}  // namespace depcalc::testing_support
