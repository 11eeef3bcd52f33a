// depcalc new: an empty company file.
#include <algorithm>
#include <memory>
#include <optional>
#include <variant>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/company.h"
#include "cli/options.h"
#include "host/places/company_places.h"
#include "values/en_us.h"
#include "values/text.h"
#include "values/utf8.h"

namespace depcalc {
namespace {

/// A month's number or its name in any case.
std::optional<int> monthFromText(std::string_view text) {
  for (int month = 1; month <= 12; ++month) {
    const std::string name = Date::strict(2000, month, 1).monthName();
    if (text == std::to_string(month) || equalIgnoringCase(text, name)) return month;
  }
  return std::nullopt;
}

/// Whether `text` is UTF-8 on one line.
bool isLine(std::string_view text) {
  Utf8Check utf8;
  const auto belongs = [&utf8](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && utf8.accepts(byte);
  };
  return std::all_of(text.begin(), text.end(), belongs) && utf8.atBoundary();
}

class NewCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "new"; }

  [[nodiscard]] std::string_view summary() const override { return "Create an empty company file"; }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc new workshop.company
      the fiscal year begins in January
  depcalc new --name "Nine Oaks Workshop" --first-month April workshop.company
      the fiscal year begins on April 1
)";
  }

  void declare(Arguments& arguments) override {
    arguments.positional("FILE", path_, "The company file to create").required();
    arguments.option("--name TEXT", name_, "The company's name (default: the file's name)")
        .check([](const std::string& text) {
          return isLine(text) ? "" : "the name must be a single line of UTF-8 text";
        });
    arguments
        .option(
            "--first-month MONTH",
            [this](const std::string& text) { first_month_ = *monthFromText(text); },
            "The fiscal year's first month (default: January)")
        .check([](const std::string& text) {
          return monthFromText(text)
                     ? ""
                     : "\"" + text + "\" is not a month; use 1 to 12 or a month name";
        });
    addTodayOption(arguments, today_);
    arguments.footer(R"(An existing file is never overwritten.
Exit status: 0 success, 2 wrong usage, 3 the file exists or cannot be created.)");
  }

  ExitStatus run(Surroundings& surroundings) override {
    const Date today = today_.value_or(surroundings.today);
    try {
      const CompanyInfo info{.name = name_ ? *name_ : nameOfPlace(path_),
                             .first_month = first_month_,
                             .multi_user = false};
      const auto made = createCompany(path_, info, placesOn(today));
      const auto* trouble = std::get_if<FileTrouble>(&made);
      return trouble != nullptr ? reportTrouble(*trouble, surroundings.errors) : exit_success;
    } catch (const FileTrouble& trouble) {
      return reportTrouble(trouble, surroundings.errors);
    }
  }

 private:
  std::string path_;
  std::optional<std::string> name_;
  int first_month_ = 1;
  std::optional<Date> today_;
};

}  // namespace

std::unique_ptr<Command> newCommand() { return std::make_unique<NewCommand>(); }

}  // namespace depcalc
