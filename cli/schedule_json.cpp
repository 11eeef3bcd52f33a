#include <string>

#include "cli/schedule_writer.h"
#include "values/json_writer.h"

namespace depcalc {
namespace {

class ScheduleJson final : public ScheduleWriter {
 public:
  explicit ScheduleJson(Output& out) : out_(out) {}

  void begin() override {
    json_.beginArray(JsonWriter::Layout::below);
    out_.write(json_.take());
  }

  [[nodiscard]] std::string_view between() const override { return ","; }
  void resume() override { json_.goOn(); }

  void write(const CalculateDep& asset, const Schedules& schedules) override {
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      int year = schedules.first_fiscal_year;
      for (const Currency amount : schedules.*scheduled.amounts) {
        beginRow(asset, scheduled.method.code).number(year++);
        endRow(amount);
      }
    }
    beginRow(asset, method_units_of_production).null();
    endRow(schedules.rate);
    out_.write(json_.take());
  }

  void end() override {
    json_.endArray();
    out_.write(json_.take());
  }

 private:
  JsonWriter& beginRow(const CalculateDep& asset, std::string_view method) {
    json_.beginObject().name("id").text(asset.AssetID());
    return json_.name("method").text(method).name("fiscal_year");
  }
  void endRow(Currency amount) { json_.name("amount").money(amount).endObject(); }

  Output& out_;
  JsonWriter json_;
};

}  // namespace

std::unique_ptr<ScheduleWriter> jsonWriter(Output& out) {
  return std::make_unique<ScheduleJson>(out);
}

}  // namespace depcalc
