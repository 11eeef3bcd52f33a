#include <algorithm>
#include <string>
#include <utility>

#include "cli/schedule_writer.h"
#include "cli/text_columns.h"
#include "values/display_format.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

constexpr std::size_t year_width = 8;
/// Room for the largest total, and two blanks between the columns.
constexpr std::size_t least_amount_width = 16;

std::size_t amountWidth(std::string_view title) {
  return std::max(title.size() + 2, least_amount_width);
}

Currency total(const std::vector<Currency>& amounts) {
  Currency sum;
  for (const Currency amount : amounts) sum += amount;
  return sum;
}

class TableWriter final : public ScheduleWriter {
 public:
  explicit TableWriter(Output& out) : out_(out) {}

  void begin() override {}

  [[nodiscard]] std::string_view between() const override { return "\n"; }

  void write(const CalculateDep& asset, const Schedules& schedules) override {
    if (std::exchange(any_block_, true)) out_.write('\n');
    writeLine("Asset ID  " + padded(printableText(asset.AssetID()), 22) + "Name  " +
              printableText(asset.AssetName()));
    writeLine("");
    writeRow("",
             [](const ScheduledMethod& scheduled) { return std::string(scheduled.method.name); });
    for (std::size_t i = 0; i < schedules.years; ++i) {
      const int year = schedules.first_fiscal_year + static_cast<int>(i);
      writeRow("FY" + std::to_string(year), [&](const ScheduledMethod& scheduled) {
        const auto& amounts = schedules.*scheduled.amounts;
        return amounts.empty() ? "" : formatMoney(amounts[i]);
      });
    }
    writeRow("TOTAL", [&](const ScheduledMethod& scheduled) {
      const auto& amounts = schedules.*scheduled.amounts;
      return amounts.empty() ? "" : formatMoney(total(amounts));
    });
    if (asset.AssetProdCap() == "0") return;
    writeLine("");
    writeLine("Unit of Production Rate  " + formatRate(schedules.rate));
  }

  void end() override {}

 private:
  template <typename Cell>
  void writeRow(std::string heading, Cell cell) {
    std::string line = padded(std::move(heading), year_width);
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      line += rightAligned(cell(scheduled), amountWidth(scheduled.method.name));
    }
    writeLine(std::move(line));
  }

  void writeLine(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    out_.write(line);
    out_.write('\n');
  }

  Output& out_;
  bool any_block_ = false;
};

}  // namespace

std::unique_ptr<ScheduleWriter> tableWriter(Output& out) {
  return std::make_unique<TableWriter>(out);
}

}  // namespace depcalc
