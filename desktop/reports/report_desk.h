// What the Reports window has been asked for, and the report that it shows. No toolkit is in it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/grouping.h"
#include "reports/journal.h"
#include "reports/register.h"
#include "reports/table.h"

namespace depcalc::desktop {

enum class ReportKind : std::uint8_t { schedule, years, rollforward, journal, asset, check };
inline constexpr int report_kind_count = 6;

enum class ExportFormat : std::uint8_t { pdf, xlsx, html, csv, json, ledger };

/// A format as the Export menu offers it.
struct OfferedFormat {
  ExportFormat format = ExportFormat::pdf;
  std::string_view caption;  ///< with the mark of its mnemonic: "&PDF document"
  std::string_view suffix;   ///< ".pdf"
};

/// A text for spreadsheets and the same as a table for letters.
struct CopiedReport {
  std::string text;
  std::string html;
};

/// The kind, fiscal year, grouping and asset stay as they were chosen where another kind does not
/// ask for them.
class ReportDesk {
 public:
  explicit ReportDesk(std::shared_ptr<const RegisterOfAssets> assets);

  /// The register has changed. The choices stay; an asset that is gone gives way to the last one.
  void setRegister(std::shared_ptr<const RegisterOfAssets> assets);
  [[nodiscard]] const RegisterOfAssets& assets() const { return *assets_; }

  [[nodiscard]] static std::string_view titleOf(ReportKind kind);
  /// What a reader gets of that kind: "every asset, one fiscal year"; of the check, how much there
  /// is to look at.
  [[nodiscard]] std::string lineOf(ReportKind kind) const;

  void choose(ReportKind kind);
  void chooseYear(int year);
  void chooseGrouping(Grouping grouping);
  /// By its number, from 1.
  void chooseAsset(std::int32_t number);

  [[nodiscard]] ReportKind kind() const { return kind_; }
  [[nodiscard]] int year() const { return year_; }
  [[nodiscard]] Grouping grouping() const { return grouping_; }
  [[nodiscard]] std::int32_t asset() const { return asset_; }

  [[nodiscard]] bool asksForYear() const;
  [[nodiscard]] bool asksForGrouping() const;
  [[nodiscard]] bool asksForAsset() const;

  /// The fiscal years in which something happens, and today's, in their order.
  [[nodiscard]] std::vector<int> years() const;
  /// "1  TRK-014  Delivery truck" for each asset, in the register's order.
  [[nodiscard]] std::vector<std::string> assetNames() const;

  /// Made anew only after a choice or a change. Nothing where there is no asset to show, and where
  /// an amount is beyond all bounds; `trouble` then says so.
  [[nodiscard]] const Report* report();
  [[nodiscard]] const std::string& trouble() const { return trouble_; }

  [[nodiscard]] std::vector<OfferedFormat> formats() const;
  /// "Depreciation schedule FY2026", without a suffix and what no file may be called.
  [[nodiscard]] std::string fileName() const;
  /// The report in any format but PDF, which is for who can draw. "" where that failed, and then
  /// `trouble` says why.
  [[nodiscard]] std::string written(ExportFormat format, std::string& trouble);
  [[nodiscard]] CopiedReport copied();

 private:
  void keepWithinRegister();
  [[nodiscard]] std::optional<Report> made() const;

  std::shared_ptr<const RegisterOfAssets> assets_;  ///< never null
  ReportKind kind_ = ReportKind::schedule;
  int year_ = 0;
  Grouping grouping_ = Grouping::none;
  std::int32_t asset_ = 1;
  bool fresh_ = false;
  std::optional<Report> report_;
  std::string trouble_;
  std::optional<Report> check_;
};

}  // namespace depcalc::desktop
