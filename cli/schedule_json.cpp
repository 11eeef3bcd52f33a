#include <string>
#include <utility>

#include "cli/schedule_writer.h"
#include "values/json_text.h"

namespace depcalc {
namespace {

class JsonWriter final : public ScheduleWriter {
 public:
  explicit JsonWriter(Output& out) : out_(out) {}

  void begin() override { out_.write("["); }

  void write(const CalculateDep& asset, const Schedules& schedules) override {
    id_ = jsonString(asset.AssetID());
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      int year = schedules.first_fiscal_year;
      for (const Currency amount : schedules.*scheduled.amounts) {
        writeRow(scheduled.method.code, std::to_string(year++), amount);
      }
    }
    writeRow(method_units_of_production, "null", schedules.rate);
  }

  void end() override { out_.write(any_row_ ? "\n]\n" : "]\n"); }

 private:
  void writeRow(std::string_view method, std::string_view year, Currency amount) {
    out_.write(std::exchange(any_row_, true) ? ",\n" : "\n");
    row_.assign("{\"id\":").append(id_);
    row_.append(",\"method\":\"").append(method);
    row_.append("\",\"fiscal_year\":").append(year);
    row_.append(",\"amount\":\"").append(amount.toFixed4()).append("\"}");
    out_.write(row_);
  }

  Output& out_;
  bool any_row_ = false;
  std::string id_;
  std::string row_;
};

}  // namespace

std::unique_ptr<ScheduleWriter> jsonWriter(Output& out) {
  return std::make_unique<JsonWriter>(out);
}

}  // namespace depcalc
