// What Insight's chart shows, and which fiscal year is read off it. No toolkit is in it.
#pragma once

#include <cstddef>
#include <string>

#include "desktop/workspace/insight_subject.h"
#include "reports/chart.h"

namespace depcalc::desktop {

/// Follows the asset in view. The fiscal year is the one that the user looks at, in the calculator
/// or in the chart, whichever was last; the asset's first at the beginning.
class ChartReading {
 public:
  ChartReading();

  void follow(const InsightSubject& subject);

  /// Without series where there is nothing to show; `reason` then says why.
  [[nodiscard]] const Chart& chart() const { return chart_; }
  [[nodiscard]] bool isEmpty() const { return chart_.series.empty(); }
  [[nodiscard]] const std::string& reason() const { return reason_; }

  /// Counted from the chart's first.
  [[nodiscard]] std::size_t year() const { return year_; }
  /// Another year, as near to it as there is one. Return whether it is another one than before.
  bool choose(std::size_t year);
  bool move(int years);

  /// "FY2026. Straight Line: book value 21,225.00, depreciation 6,890.00. …": what the chart says
  /// of the year.
  [[nodiscard]] std::string spoken() const;
  /// What the chart is of, and what crosses where.
  [[nodiscard]] std::string described() const;
  /// "TRK-014 chart", for a file.
  [[nodiscard]] std::string fileName() const;

 private:
  Chart chart_;
  InsightSubject subject_;
  std::string reason_;
  std::size_t year_ = 0;
};

}  // namespace depcalc::desktop
