// report_files SEED COUNT FOLDER: writes the reports on COUNT random registers into FOLDER, each in
// every format, for other programs to read; and of each register the journals of all its years with
// the roll-forwards of these years. It runs in the locale of its environment and prints the decimal
// point there.
#include <charconv>
#include <clocale>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

#include "reports/asset_card.h"
#include "reports/charts/chart_svg.h"
#include "reports/formats/csv.h"
#include "reports/formats/html.h"
#include "reports/formats/json.h"
#include "reports/formats/ledger.h"
#include "reports/formats/xlsx/xlsx.h"
#include "reports/journal.h"
#include "reports/methods_chart.h"
#include "reports/register_check.h"
#include "reports/rollforward.h"
#include "reports/schedule.h"
#include "reports/years.h"
#include "tests/reports/random_register.h"

namespace depcalc {
namespace {

constexpr int first_year = 2012;
constexpr int last_year = 2040;

class Files {
 public:
  explicit Files(std::string folder) : folder_(std::move(folder)) {}

  void write(const std::string& name, const Report& report) {
    std::string trouble;
    put(name + ".csv", csvReport(report, CsvFields(true)));
    put(name + ".json", jsonReport(report));
    put(name + ".html", htmlReport(report));
    put(name + ".xlsx", xlsxReport(report, trouble));
    if (!trouble.empty()) std::cerr << name << ": " << trouble << '\n';
  }

  void put(const std::string& name, const std::string& content) {
    std::ofstream(folder_ + "/" + name, std::ios::binary) << content;
  }

 private:
  std::string folder_;
};

void writeRegister(Files& files, const RegisterOfAssets& assets, const std::string& name) {
  const int year = assets.years.of(assets.today);
  files.write(name + "-schedule", scheduleReport(assets, year, Grouping::department));
  files.write(name + "-plain-schedule", scheduleReport(assets, year, Grouping::none));
  files.write(name + "-years", yearsReport(assets, rangeOfYears(assets, {}, {}), Grouping::method));
  files.write(name + "-rollforward", rollforwardReport(assets, year, Grouping::convention));
  files.write(name + "-journal", journalReport(assets, year, Grouping::department, {}));
  files.write(name + "-check", checkReport(assets).report);
  if (const auto card = assetReport(assets, 1)) files.write(name + "-asset", *card);
}

/// The picture of each asset and the same figures as a table.
void writeCharts(Files& files, const RegisterOfAssets& assets, const std::string& name) {
  for (const ReportAsset& asset : assets.assets) {
    const Chart chart = methodsChart(asset);
    if (chart.series.empty()) continue;
    const std::string of = name + "-" + std::to_string(asset.saved().number);
    files.put(of + ".svg", chartSvg(chart, {13500, 6000}, SvgUse::file));
    files.put(of + ".chart", csvReport(chartReport(chart), CsvFields(true)));
  }
}

void writeJournals(Files& files, const RegisterOfAssets& assets, const std::string& name) {
  for (int year = first_year; year <= last_year; ++year) {
    const std::string of = name + "-" + std::to_string(year);
    files.put(of + ".none.journal", ledgerReport(journalReport(assets, year, Grouping::none, {})));
    files.put(of + ".department.journal",
              ledgerReport(journalReport(assets, year, Grouping::department, {})));
    files.put(of + ".none.rollforward",
              csvReport(rollforwardReport(assets, year, Grouping::none), CsvFields(true)));
    files.put(of + ".department.rollforward",
              csvReport(rollforwardReport(assets, year, Grouping::department), CsvFields(true)));
  }
}

}  // namespace
}  // namespace depcalc

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const auto number = [](std::string_view text) {
    std::uint64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  };
  std::setlocale(LC_ALL, "");
  std::cout << std::localeconv()->decimal_point;
  depcalc::testing_support::Random random(number(argv[1]));
  depcalc::Files files(argv[3]);
  for (std::uint64_t i = 0; i < number(argv[2]); ++i) {
    std::vector<depcalc::SavedAsset> saved;
    const auto assets = depcalc::testing_support::someRegister(random, saved);
    depcalc::writeRegister(files, assets, std::to_string(i));
    depcalc::writeCharts(files, assets, std::to_string(i));
    depcalc::writeJournals(files, assets, std::to_string(i));
  }
}
