#include <algorithm>
#include <array>
#include <string>

#include "cli/schedule_writer.h"
#include "values/digit_text.h"

namespace depcalc {
namespace {

/// A text before the rest of a row, copied in steps of a fixed size, whatever its length. That
/// takes no call, and no decision that a processor could guess wrongly.
template <std::size_t step>
class Beginning {
 public:
  explicit Beginning(std::string_view text = "") { assign(text); }

  void assign(std::string_view text) {
    size_ = text.size();
    padded_.assign(text).append(step, ' ');
  }
  /// Room that its copy needs.
  [[nodiscard]] std::size_t room() const { return padded_.size(); }
  char* write(char* at) const {
    for (std::size_t i = 0; i < size_; i += step) std::copy_n(&padded_[i], step, at + i);
    return at + size_;
  }

 private:
  std::size_t size_ = 0;
  std::string padded_;
};

class CsvWriter final : public ScheduleWriter {
 public:
  CsvWriter(Output& out, CsvFields fields)
      : out_(out), fields_(fields), rate_method_(methodField(method_units_of_production)) {
    std::transform(
        scheduled_methods.begin(), scheduled_methods.end(), methods_.begin(),
        [](const ScheduledMethod& scheduled) { return methodField(scheduled.method.code); });
  }

  void begin() override { out_.write("id,method,fiscal_year,amount\n"); }

  void write(const CalculateDep& asset, const Schedules& schedules) override {
    id_.assign(fields_.text(asset.AssetID(), id_field_));
    for (std::size_t i = 0; i < methods_.size(); ++i) {
      writeSchedule(methods_[i], schedules.first_fiscal_year,
                    schedules.*scheduled_methods[i].amounts);
    }
    out_.advance(writeAmount(beginRow(reserveRows(rate_method_, 1), rate_method_), schedules.rate));
  }

  void end() override {}

 private:
  using MethodField = Beginning<8>;
  static MethodField methodField(std::string_view code) {
    return MethodField("," + std::string(code) + ",");
  }

  /// Most of what a row has behind its method.
  static constexpr std::size_t rest_size = 8 + Currency::fixed4_size;

  void writeSchedule(const MethodField& method, int first_year,
                     const std::vector<Currency>& amounts) {
    char* at = reserveRows(method, amounts.size());
    auto year = static_cast<std::uint32_t>(first_year);
    for (const Currency amount : amounts) {
      at = writeAmount(writeFour(beginRow(at, method), year++), amount);
    }
    out_.advance(at);
  }

  char* reserveRows(const MethodField& method, std::size_t rows) {
    return out_.reserve(rows * (id_.room() + method.room() + rest_size));
  }
  char* beginRow(char* at, const MethodField& method) const { return method.write(id_.write(at)); }
  static char* writeAmount(char* at, Currency amount) {
    *at++ = ',';
    at = amount.writeFixed4(at);
    *at++ = '\n';
    return at;
  }

  Output& out_;
  CsvFields fields_;
  std::string id_field_;  // where it is not the id itself
  Beginning<16> id_;
  std::array<MethodField, scheduled_methods.size()> methods_;
  MethodField rate_method_;
};

}  // namespace

std::unique_ptr<ScheduleWriter> csvWriter(Output& out, CsvFields fields) {
  return std::make_unique<CsvWriter>(out, fields);
}

}  // namespace depcalc
