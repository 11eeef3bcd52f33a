// depcalc report: what an accountant needs at the year's end.
#include <algorithm>
#include <array>
#include <optional>

#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/output_file.h"
#include "cli/print_module.h"
#include "cli/register_page.h"
#include "register/print_pages.h"
#include "reports/asset_card.h"
#include "reports/formats/csv.h"
#include "reports/formats/html.h"
#include "reports/formats/json.h"
#include "reports/formats/ledger.h"
#include "reports/formats/text.h"
#include "reports/formats/xlsx/xlsx.h"
#include "reports/journal.h"
#include "reports/reading/register_reading.h"
#include "reports/register_check.h"
#include "reports/rollforward.h"
#include "reports/schedule.h"
#include "reports/years.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

/// A kind of report, and which of the options that not all kinds have go with it.
struct Kind {
  std::string_view name;
  std::vector<std::string> options;
};

const std::array<Kind, 6>& kinds() {
  static const std::array<Kind, 6> all{{{"schedule", {"--year", "--by"}},
                                        {"years", {"--from", "--to", "--by"}},
                                        {"rollforward", {"--year", "--by"}},
                                        {"journal",
                                         {"--year", "--by", "--expense", "--accumulated",
                                          "--asset-account", "--cash", "--gain", "--loss"}},
                                        {"asset", {"--asset"}},
                                        {"check", {}}}};
  return all;
}

std::vector<std::string> kindNames() {
  std::vector<std::string> names;
  for (const Kind& kind : kinds()) names.emplace_back(kind.name);
  return names;
}

Grouping groupingNamed(const std::string& name) {
  if (name == "department") return Grouping::department;
  return name == "method" ? Grouping::method : Grouping::convention;
}

class ReportCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "report"; }
  [[nodiscard]] std::string_view summary() const override {
    return "Report on the assets of a company file at the year's end";
  }
  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc report schedule acme.company --year 2026 --by department
      every asset in fiscal year 2026, with a subtotal for each department
  depcalc report rollforward acme.company --format csv > rollforward.csv
      cost and accumulated depreciation from opening to closing, for a spreadsheet
  depcalc report journal acme.company --year 2026 --format ledger >> books.journal
      the year's entries for ledger or hledger
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareFirst(Arguments& arguments) override {
    arguments.positional("KIND", kind_, "schedule, years, rollforward, journal, asset or check")
        .required()
        .oneOf(kindNames());
  }

  void declareMore(Arguments& arguments) override {
    addYear(arguments, "--year", year_, "The fiscal year (default: that of today)");
    addYear(arguments, "--from", from_, "With years: the first fiscal year");
    addYear(arguments, "--to", to_, "With years: the last fiscal year");
    arguments
        .option(
            "--by GROUP", [this](const std::string& name) { grouping_ = groupingNamed(name); },
            "Group by department, method or convention")
        .oneOf({"department", "method", "convention"});
    addAssetOption(arguments);
    arguments
        .option("--format FORMAT", format_,
                "Output format: table (for reading), csv, json, html, xlsx, pdf, or ledger")
        .oneOf({"table", "csv", "json", "html", "xlsx", "pdf", "ledger"});
    arguments.option("--output FILE", output_, "The file to write (default: standard output)");
    arguments.option("--paper PAPER", paper_, "With pdf: A4 (the default) or Letter")
        .oneOf({"A4", "Letter"}, LetterCase::ignored);
    arguments.flag("--landscape", landscape_, "With pdf: in landscape, for more columns on a page");
    arguments.flag("--raw", raw_, "With csv: write texts unchanged, for other programs");
    addAccount(arguments, "--expense", accounts_.expense, "depreciation expense");
    addAccount(arguments, "--accumulated", accounts_.accumulated, "accumulated depreciation");
    addAccount(arguments, "--asset-account", accounts_.asset, "the assets' cost");
    addAccount(arguments, "--cash", accounts_.cash, "proceeds of disposals");
    addAccount(arguments, "--gain", accounts_.gain, "gains on disposals");
    addAccount(arguments, "--loss", accounts_.loss, "losses on disposals");
    arguments.refuse([this](const Arguments& given) { return whatDoesNotGoTogether(given); });
    arguments.footer(
        R"(schedule     each asset in a fiscal year: accumulated before, depreciation, after, book value
years        each asset, and what each fiscal year takes of it
rollforward  cost and accumulated depreciation from a year's opening to its closing
journal      the year's entries for the general ledger
asset        one asset: its fields, its disposal, its schedule, the methods side by side
check        what to look at before the reports go out

All amounts are as saved. Dates of disposal and units produced count.
Exit status: 0 success, 1 the check found an error, there is no such asset or the file is damaged,
2 wrong usage, 3 a file cannot be read or written, 4 it is in use.)");
  }

  void addAssetOption(Arguments& arguments) {
    arguments.option("--asset N", asset_, "With asset: its number, as `depcalc list` shows it")
        .range(1, INT16_MAX);
  }

  static void addYear(Arguments& arguments, const std::string& name, std::optional<int>& year,
                      const std::string& description) {
    arguments.option(name + " YYYY", year, description).check([](const std::string& text) {
      const bool digits = text.size() == 4 && text.front() != '0' &&
                          text.find_first_not_of("0123456789") == std::string::npos;
      return digits ? "" : "\"" + text + "\" is not a fiscal year; write it as 2026";
    });
  }

  static void addAccount(Arguments& arguments, const std::string& name, std::string& account,
                         const std::string& what) {
    arguments
        .option(name + " ACCOUNT", account,
                "With journal: the account of " + what + " (" + account + ")")
        .check([](const std::string& text) {
          return text.find_first_not_of(" \t\r\n;") == std::string::npos ? "an account needs a name"
                                                                         : "";
        });
  }

  [[nodiscard]] std::optional<Misuse> whatDoesNotGoTogether(const Arguments& given) const {
    if (auto foreign = optionOfOtherKinds(given)) return foreign;
    if (kind_ == "asset" && asset_ == 0) {
      return Misuse{"--asset", "is needed: the number of the asset"};
    }
    if (format_ == "ledger" && kind_ != "journal") {
      return Misuse{"--format", "ledger is for the journal"};
    }
    for (const char* option : {"--paper", "--landscape"}) {
      if (format_ != "pdf" && given.has(option)) return Misuse{option, "is for --format pdf"};
    }
    if (from_ && to_ && *from_ > *to_) return Misuse{"--from", "is later than --to"};
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Misuse> optionOfOtherKinds(const Arguments& given) const {
    const auto& all = kinds();
    const auto kind =
        std::find_if(all.begin(), all.end(), [&](const Kind& each) { return each.name == kind_; });
    for (const Kind& other : all) {
      for (const std::string& option : other.options) {
        const bool goes =
            std::find(kind->options.begin(), kind->options.end(), option) != kind->options.end();
        if (!goes && given.has(option)) return Misuse{option, "does not go with " + kind_};
      }
    }
    return std::nullopt;
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& errors = surroundings.errors;
    if (!output_.empty() && isSameFile(path(), output_)) {
      complain(company, "the report would replace the company file", errors);
      return exit_usage;
    }
    const bool readable = format_ != "xlsx" && format_ != "pdf";
    if (!readable && toStandardOutput() && surroundings.out.isTerminal()) {
      complain(company, "this format is nothing to read here; name a file with --output", errors);
      return exit_usage;
    }
    const auto report = reportOn(company);
    if (!report) {
      complain(company,
               "There is no asset " + std::to_string(asset_) + "; the register holds " +
                   std::to_string(company.assetCount()) + ".",
               errors);
      return exit_bad_data;
    }
    return deliver(company, *report, surroundings);
  }

  [[nodiscard]] std::optional<Report> reportOn(Company& company) {
    RegisterOfAssets assets =
        readRegisterOfAssets(company.state().m_orvcf, company.info().name, company.today());
    const int year = year_.value_or(assets.years.of(assets.today));
    if (kind_ == "years") return yearsReport(assets, rangeOfYears(assets, from_, to_), grouping_);
    if (kind_ == "rollforward") return rollforwardReport(assets, year, grouping_);
    if (kind_ == "journal") return journalReport(assets, year, grouping_, accounts_);
    if (kind_ == "asset") return assetReport(assets, asset_);
    if (kind_ == "check") return check(company, std::move(assets));
    return scheduleReport(assets, year, grouping_);
  }

  Report check(Company& company, RegisterOfAssets assets) {
    assets.assets_not_printed = assetsNotPrinted(company);
    CheckedRegister checked = checkReport(assets);
    has_errors_ = checked.has_errors;
    return std::move(checked.report);
  }

  /// None where printing is not installed: nothing is left out of what cannot be printed.
  static std::size_t assetsNotPrinted(Company& company) {
    const RegisterPage page(company);
    std::string trouble;
    const auto printer = loadPdfPrinter({desktop::PaperSize::a4, false}, schedule_heading, trouble);
    if (!page.hasAssets() || printer == nullptr) return 0;
    return static_cast<std::size_t>(page.assetsLeftOut(*printer));
  }

  [[nodiscard]] bool toStandardOutput() const { return output_.empty() || output_ == "-"; }

  ExitStatus deliver(const Company& company, const Report& report, Surroundings& surroundings) {
    std::string trouble;
    const std::string content = written(report, company.today(), trouble);
    if (trouble.empty() && toStandardOutput()) {
      surroundings.out.write(content);
    } else if (trouble.empty()) {
      trouble = writeWholeFile(output_, content);
    }
    if (!trouble.empty()) {
      const std::string what = output_.empty() ? "the report" : output_;
      surroundings.errors.write("depcalc: " + printableText(what + ": " + trouble) + '\n');
      return exit_system;
    }
    for (const std::string& disproof : report.disproofs) {
      complain(company, disproof, surroundings.errors);
    }
    if (!report.disproofs.empty()) return exit_system;
    return has_errors_ ? exit_bad_data : exit_success;
  }

  [[nodiscard]] std::string written(const Report& report, Date today, std::string& trouble) const {
    const desktop::PdfPaper paper = paperCalled(paper_, landscape_);
    if (format_ == "pdf") return pdfReport(report, paper, today, trouble);
    if (format_ == "csv") return csvReport(report, CsvFields(raw_));
    if (format_ == "json") return jsonReport(report);
    if (format_ == "html") return htmlReport(report);
    if (format_ == "xlsx") return xlsxReport(report, trouble);
    if (format_ == "ledger") return ledgerReport(report);
    return textReport(report);
  }

  std::string kind_;
  std::optional<int> year_;
  std::optional<int> from_;
  std::optional<int> to_;
  Grouping grouping_ = Grouping::none;
  std::int32_t asset_ = 0;
  std::string format_ = "table";
  std::string output_;
  std::string paper_ = "A4";
  bool landscape_ = false;
  bool raw_ = false;
  JournalAccounts accounts_;
  bool has_errors_ = false;
};

}  // namespace

std::unique_ptr<Command> reportCommand() { return std::make_unique<ReportCommand>(); }

}  // namespace depcalc
