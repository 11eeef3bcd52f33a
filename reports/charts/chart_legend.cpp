#include "reports/charts/chart_legend.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "reports/charts/chart_lines.h"
#include "reports/company_years.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

constexpr double sample = 420;                    // twips
constexpr double sample_gap = 110;                // twips
constexpr double entry_gap = 300;                 // twips
constexpr double column_gap = 200;                // twips
constexpr double between_rows = 30;               // twips
constexpr const char* no_value = "\xE2\x80\x93";  // an en dash

PaperFont fontOf(const ChartSeries& series) {
  return series.chosen ? PaperFont::strong : PaperFont::body;
}

/// Amounts that no asset of ours comes to, in millions: there is room for so many digits only.
std::string shown(Currency amount) {
  const double value = amount.toDouble();
  return std::fabs(value) < 1e8 ? formatMoney(amount) : formatWhole(value / 1e6) + "M";
}

class Legend {
 public:
  Legend(PaperPage& page, const Chart& chart, double width, const PaperMeasures& measures)
      : page_(page),
        chart_(chart),
        width_(width),
        measures_(measures),
        row_(
            std::max(measures.lineHeight(PaperFont::body), measures.lineHeight(PaperFont::strong)) +
            between_rows) {}

  double addNames(double y) {
    by_code_ = widestName() > width_ - sample - sample_gap;
    double x = 0;
    for (const ChartSeries& series : chart_.series) {
      const double wide = sample + sample_gap + measures_.width(nameOf(series), fontOf(series));
      if (x > 0 && x + wide > width_) {
        x = 0;
        y += row_;
      }
      addEntry(series, x, y);
      x += wide + entry_gap;
    }
    return y + row_;
  }

  double addValues(double y, std::size_t year) {
    const double amounts = columnWidth("Depreciation", &ChartSeries::amounts, year);
    const double book_values = columnWidth("Book value", &ChartSeries::book_values, year);
    const double left = width_ - amounts - book_values - 2 * column_gap;
    by_code_ = widestName() > left - sample - sample_gap;
    page_.texts.push_back(
        {0, y, PaperFont::strong, fiscalYearName(chart_.first_year + static_cast<int>(year))});
    putRight("Book value", PaperFont::small, width_ - amounts - column_gap, y);
    putRight("Depreciation", PaperFont::small, width_, y);
    for (const ChartSeries& series : chart_.series) {
      y += row_;
      addEntry(series, 0, y);
      putRight(valueOf(series, &ChartSeries::book_values, year), fontOf(series),
               width_ - amounts - column_gap, y);
      putRight(valueOf(series, &ChartSeries::amounts, year), fontOf(series), width_, y);
    }
    return y + row_;
  }

 private:
  [[nodiscard]] std::string nameOf(const ChartSeries& series) const {
    return std::string(by_code_ ? series.code : series.name);
  }

  [[nodiscard]] double widestName() const {
    double widest = 0;
    for (const ChartSeries& series : chart_.series) {
      widest = std::max(widest, measures_.width(series.name, fontOf(series)));
    }
    return widest;
  }

  static std::string valueOf(const ChartSeries& series, ChartFigures figures, std::size_t year) {
    const auto& values = series.*figures;
    return year < values.size() ? shown(values[year]) : no_value;
  }

  [[nodiscard]] double columnWidth(const char* caption, ChartFigures figures,
                                   std::size_t year) const {
    double widest = measures_.width(caption, PaperFont::small);
    for (const ChartSeries& series : chart_.series) {
      const std::string value = valueOf(series, figures, year);
      widest = std::max(widest, measures_.width(value, fontOf(series)));
    }
    return widest;
  }

  void addEntry(const ChartSeries& series, double x, double y) {
    const double middle = y + measures_.lineHeight(fontOf(series)) / 2;
    page_.strokes.push_back(seriesStroke(series, {{x, middle}, {x + sample, middle}}));
    page_.strokes.push_back(seriesMark(series, {x + sample / 2, middle}));
    page_.texts.push_back({x + sample + sample_gap, y, fontOf(series), nameOf(series)});
  }

  void putRight(const std::string& text, PaperFont font, double right, double y) {
    const double x = right - measures_.width(text, font);
    page_.texts.push_back({x, y, font, text, PaperHold::right});
  }

  PaperPage& page_;
  const Chart& chart_;
  double width_;
  const PaperMeasures& measures_;
  double row_;
  bool by_code_ = false;
};

}  // namespace

double addLegend(PaperPage& page, const Chart& chart, std::optional<std::size_t> year, double y,
                 double width, const PaperMeasures& measures) {
  Legend legend(page, chart, width, measures);
  return year ? legend.addValues(y, *year) : legend.addNames(y);
}

}  // namespace depcalc
