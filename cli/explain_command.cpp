// depcalc explain: why an asset's amounts are what they are.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/options.h"
#include "cli/text_columns.h"
#include "engine/method.h"
#include "reports/explaining/saved_explanation.h"
#include "reports/reading/register_reading.h"
#include "values/display_format.h"
#include "values/json_writer.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

constexpr std::string_view not_calculated = "which is not what the calculation gives";

void writeJson(const std::vector<Explanation>& all, Output& out) {
  JsonWriter json;
  const auto step = [&](std::string_view words, std::string_view expression,
                        std::string_view result) {
    json.beginObject().name("words").text(words).name("expression").text(expression);
    json.name("result").text(result).endObject();
  };
  json.beginArray(JsonWriter::Layout::below);
  for (const Explanation& one : all) {
    json.beginObject().name("method").text(one.method).name("fiscal_year");
    one.fiscal_year ? json.number(*one.fiscal_year) : json.null();
    json.name("amount").money(one.amount).name("steps").beginArray();
    if (one.saved) {
      const std::string saved = one.saved->toText();
      step("Saved as " + saved + ", " + std::string(not_calculated),
           saved.front() == '-' ? "0 - " + saved.substr(1) : saved, saved);
    }
    for (const ExplainedStep& each : one.steps) step(each.words, each.expression, each.result);
    json.endArray().endObject();
  }
  json.endArray();
  out.write(json.take());
}

void writeSteps(const Explanation& explanation, Output& out) {
  std::vector<std::array<std::string, 4>> rows;
  for (const ExplainedStep& step : explanation.steps) {
    rows.push_back({"  " + step.words, step.shown_expression,
                    step.shown_expression.empty() ? "" : "=", step.shown_result});
  }
  writeColumns(rows, {false, true, false, true}, out);
}

void writeText(const std::vector<Explanation>& all, Output& out) {
  for (const Explanation& one : all) {
    out.write('\n' + titleOf(one) + ": " + formatExactMoney(one.amount) + '\n');
    if (one.saved) {
      out.write("  Saved as " + formatExactMoney(*one.saved) + ", " + std::string(not_calculated) +
                "; explained is the calculation.\n");
    }
    writeSteps(one, out);
    if (!one.fiscal_year) continue;
    out.write("  Taken so far: " + formatExactMoney(one.taken) + " of " +
              formatExactMoney(one.base) + '\n');
  }
}

std::string methodName(std::string_view code) {
  for (const Method& method : methods) {
    if (method.code == code) return std::string(method.name);
  }
  return {};
}

std::string captionOf(const SavedAsset& saved) {
  std::string caption = "Asset " + std::to_string(saved.number);
  for (const std::string& text : {saved.id, saved.name}) {
    if (!text.empty()) caption += ", " + text;
  }
  return printableText(caption);
}

class ExplainCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "explain"; }
  [[nodiscard]] std::string_view summary() const override {
    return "Explain an asset's amounts step by step";
  }
  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc explain acme.company 1 --year 2025
      why asset 1 takes what it takes in fiscal year 2025
  depcalc explain acme.company 1 --method DDB
      all its years as the declining balance would have them
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareMore(Arguments& arguments) override {
    addAssetNumber(arguments, number_).required();
    arguments.option("--year YYYY", year_, "One fiscal year alone (default: all the asset's)")
        .range(1, 9999);
    arguments.option("--method METHOD", method_, "SL, SYD, DDB or UOP (default: the asset's own)")
        .oneOf({"SL", "SYD", "DDB", "UOP"}, LetterCase::ignored);
    arguments.option("--format FORMAT", format_, "Output format: text (for reading) or json")
        .oneOf({"text", "json"});
    arguments.footer(
        R"(Each step says what it works out, from which numbers, and what it comes to. Dates of disposal and
units produced count, as in the reports. Where another amount was saved, that is said, and the
calculation explained.
Exit status: 0 success, 1 there is no such asset, it has no method or its values cannot be
calculated with, 2 wrong usage, 3 a file cannot be read or written, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    if (!hasAsset(company, number_, surroundings.errors)) return exit_bad_data;
    const ReportAsset asset(readSavedAsset(company.state().m_orvcf, number_, company.today()));
    const std::string_view method = method_.empty() ? asset.method() : method_;
    if (method.empty()) {
      return cannot(company, "no method was chosen; name one with --method", surroundings.errors);
    }
    const auto all = explained(asset, method);
    if (!all) {
      return cannot(company, methodName(method) + " cannot be calculated from its saved values",
                    surroundings.errors);
    }
    if (format_ == "json") {
      writeJson(*all, surroundings.out);
    } else {
      surroundings.out.write(captionOf(asset.saved()) + '\n');
      writeText(*all, surroundings.out);
    }
    return exit_success;
  }

  [[nodiscard]] std::optional<std::vector<Explanation>> explained(const ReportAsset& asset,
                                                                  std::string_view method) const {
    if (!year_) return explainSaved(asset, method, AmountsShown::in_reports);
    auto one = explainSavedYear(asset, method, AmountsShown::in_reports, *year_);
    if (!one) return std::nullopt;
    return std::vector<Explanation>{*std::move(one)};
  }

  ExitStatus cannot(const Company& company, const std::string& why, Output& errors) const {
    complain(company, "Asset " + std::to_string(number_) + ": " + why + '.', errors);
    return exit_bad_data;
  }

  std::int32_t number_ = 0;
  std::optional<int> year_;
  std::string method_;
  std::string format_ = "text";
};

}  // namespace

std::unique_ptr<Command> explainCommand() { return std::make_unique<ExplainCommand>(); }

}  // namespace depcalc
