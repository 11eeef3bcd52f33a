#include <algorithm>
#include <string>

#include "cli/schedule_writer.h"

namespace depcalc {
namespace {

class CsvWriter final : public ScheduleWriter {
 public:
  CsvWriter(Output& out, CsvFields fields) : out_(out), fields_(fields) {}

  void begin() override { out_.write("id,method,fiscal_year,amount\n"); }

  void write(const CalculateDep& asset, const Schedules& schedules) override {
    id_ = fields_.text(asset.AssetID());
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      prefix_.assign(id_).append(",").append(scheduled.method.code).append(",");
      year_ = std::to_string(10'000 + schedules.first_fiscal_year).substr(1);
      for (const Currency amount : schedules.*scheduled.amounts) writeYear(amount);
    }
    prefix_.assign(id_).append(",").append(method_units_of_production).append(",");
    writeRate(schedules.rate);
  }

  void end() override {}

 private:
  /// Most of what a row has behind its prefix.
  static constexpr std::size_t row_size = 16 + Currency::fixed4_size;

  void writeYear(Currency amount) {
    endRow(std::copy_n(year_.data(), year_.size(), beginRow()), amount);
    nextYear();
  }
  /// Counted as it is written: most years differ from the one before in their last digit alone.
  void nextYear() {
    for (auto digit = year_.rbegin(); digit != year_.rend(); ++digit) {
      if (*digit != '9') return void(++*digit);
      *digit = '0';
    }
  }
  void writeRate(Currency rate) { endRow(beginRow(), rate); }

  char* beginRow() {
    return std::copy(prefix_.begin(), prefix_.end(), out_.reserve(prefix_.size() + row_size));
  }
  void endRow(char* at, Currency amount) {
    *at++ = ',';
    at = amount.writeFixed4(at);
    *at++ = '\n';
    out_.advance(at);
  }

  Output& out_;
  CsvFields fields_;
  std::string id_;
  std::string prefix_;
  std::string year_;
};

}  // namespace

std::unique_ptr<ScheduleWriter> csvWriter(Output& out, CsvFields fields) {
  return std::make_unique<CsvWriter>(out, fields);
}

}  // namespace depcalc
