// register_bench FILE: how long the register takes to fill from a company file and to select in.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <variant>

#include "cli/company.h"
#include "cli/register_page.h"
#include "host/sqlite/company_file.h"

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double peakMebibytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace depcalc;
  if (argc != 2) {
    std::fputs("usage: register_bench FILE\n", stderr);
    return 2;
  }
  const Date today = Date::strict(2024, 6, 30);
  const auto start = Clock::now();
  const auto opened = SqliteCompanyFile::open(
      argv[1], {.today = [today] { return today; }, .writable = false, .vfs = {}});
  const auto* const file = std::get_if<std::shared_ptr<SqliteCompanyFile>>(&opened);
  if (file == nullptr) {
    std::fprintf(stderr, "%s\n", std::get<FileTrouble>(opened).description().c_str());
    return 3;
  }
  Company company(*file, argv[1], today);
  std::printf("  opened in %.2f s", secondsSince(start));

  const auto filling = Clock::now();
  RegisterPage page(company);
  std::printf(", filled in %.2f s: %d assets, %d year rows, %.0f MiB at most\n",
              secondsSince(filling), page.table().columns() - 1,
              page.table().rows() - DepCalcView::first_year_row, peakMebibytes());

  constexpr int selections = 100'000;
  const auto selecting = Clock::now();
  for (int i = 0; i < selections; ++i) page.select(1 + i * 31 % (page.table().columns() - 1));
  std::printf("  an asset selected in %.2f microseconds\n",
              secondsSince(selecting) / selections * 1e6);
  return page.trouble().empty() ? 0 : 1;
}
