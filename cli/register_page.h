// The register's screen without a display.
#pragma once

#include <memory>
#include <string>

#include "cli/company.h"
#include "cli/headless_site.h"
#include "controls/stage.h"
#include "register/dep_calc_view.h"

namespace depcalc {

/// The register of a company file, shown and filled as the calculator does it. Nothing is written
/// to the file.
class RegisterPage {
 public:
  explicit RegisterPage(Company& company);
  ~RegisterPage();
  RegisterPage(const RegisterPage&) = delete;
  RegisterPage& operator=(const RegisterPage&) = delete;

  [[nodiscard]] const Grid& table() const;
  /// Whether the table is shown: there are assets.
  [[nodiscard]] bool hasAssets() const;
  /// Why the table could not be filled to its end; empty when it could.
  [[nodiscard]] const std::string& trouble() const { return trouble_; }

  /// Clicks into an asset's column, from 1.
  void select(int column);
  /// Clicks the Print button. Answers why that failed; empty when it did not.
  [[nodiscard]] std::string print(Printer& printer);
  /// How many assets such a print leaves out.
  [[nodiscard]] int assetsLeftOut(Printer& printer) const;

 private:
  class Container;

  HeadlessSite site_;
  Stage stage_{site_};
  std::unique_ptr<Container> container_;
  std::string trouble_;
};

}  // namespace depcalc
