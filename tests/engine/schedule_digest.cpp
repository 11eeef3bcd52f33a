// A digest of every amount, report and error of random assets, by the record and at every width of
// lanes: the same from every compiler, at every level of optimisation and on every machine.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "engine/calculate_dep.h"
#include "engine/method_batch.h"
#include "engine/schedule_batch.h"
#include "tests/support/random_records.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

/// FNV-1a over numbers.
class Digest {
 public:
  void add(std::int64_t number) {
    for (int i = 0; i < 8; ++i) {
      value_ = (value_ ^ (static_cast<std::uint64_t>(number) >> (8 * i) & 255)) * 1'099'511'628'211;
    }
  }
  template <typename Amounts>
  void addAll(const Amounts& amounts) {
    add(static_cast<std::int64_t>(amounts.size()));
    for (const Currency amount : amounts) add(amount.ticks());
  }
  [[nodiscard]] std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 14'695'981'039'346'656'037U;
};

void addRecord(CalculateDep& record, Digest& digest) {
  const Reports reports;
  MethodResults results;
  try {
    calculateAllMethods(record, results);
  } catch (const RuntimeError& error) {
    digest.add(error.number());
  }
  digest.addAll(results.straight_line);
  digest.addAll(results.sum_of_years_digits);
  digest.addAll(results.double_declining_balance);
  digest.add(results.rate.ticks());
  for (const std::string& report : reports.all()) {
    for (const char letter : report) digest.add(letter);
  }
}

std::uint64_t digestOfLanes(LaneWidth width, int count) {
  Digest digest;
  test::RandomAssets assets(2026);
  ScheduleBatch batch(width);
  for (int i = 0; i < count; i += 61) {
    std::vector<ScheduledAsset> some;
    while (some.size() < 61) {
      CalculateDep record;
      fill(record, assets.next());
      some.push_back(record.scheduled());
    }
    batch.calculate(some);
    for (std::size_t j = 0; j < some.size(); ++j) {
      const auto schedules = batch.of(j);
      if (!schedules) continue;
      digest.addAll(schedules->straight_line);
      digest.addAll(schedules->sum_of_years_digits);
      digest.addAll(schedules->double_declining_balance);
      digest.add(schedules->rate.ticks());
    }
  }
  return digest.value();
}

void print(const char* what, std::uint64_t digest) {
  std::printf("%s %016llx\n", what, static_cast<unsigned long long>(digest));
}

}  // namespace
}  // namespace depcalc

int main(int argc, char** argv) {
  using namespace depcalc;
  const int count = argc > 1 ? std::atoi(argv[1]) : 20'000;
  Digest records;
  test::RandomAssets assets(2026);
  for (int i = 0; i < count; ++i) {
    CalculateDep record;
    fill(record, assets.next());
    addRecord(record, records);
  }
  print("records", records.value());
  print("two lanes", digestOfLanes(LaneWidth::two, count));
  print("most lanes", digestOfLanes(widestLanes(), count));
}
