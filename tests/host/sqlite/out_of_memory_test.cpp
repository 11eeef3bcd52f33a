// Memory that runs out at every allocation, in the program and in SQLite: a clear error, nothing
// lost, nothing leaked.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <iostream>
#include <random>

#include "cli/command_line.h"
#include "common/trapped.h"
#include "tests/host/sqlite/company_fixture.h"
#include "tests/support/effort.h"
#include "tests/support/failing_allocation.h"

namespace depcalc {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using namespace testing_support;
using In = FailingAllocation::In;

struct Step {
  const char* name;
  std::vector<std::string> arguments;
  bool changes = false;
};

class OutOfMemory : public CompanyFile {
 protected:
  OutOfMemory() {
    save(create(), 3);
    bytes_ = bytesOf(path_);
    writeBytes(csv_,
               "id,placed_in_service,life,basis,convention,method\n"
               "N1,2023-03-15,5,1000,1,SL\nN2,2024-02-01,7,2500,2,DDB\n");
    steps_ = {{"list", {"list", path_}},
              {"list as JSON", {"list", path_, "--format", "json"}},
              {"check", {"check", path_}},
              {"dump", {"dump", path_}},
              {"register", {"register", path_}},
              {"schedule", {"schedule", "--ignore-unknown", csv_}},
              {"import", {"import", path_, csv_}, true},
              {"delete", {"delete", path_, "1"}, true}};
  }

  void restore() const {
    std::filesystem::remove(path_ + "-journal");
    writeBytes(path_, bytes_);
  }

  /// One command as `main` runs it; standard output and error go to files.
  int run(const Step& step, In in, long nth, bool and_after, bool& reached) {
    std::vector<const char*> words{"depcalc"};
    for (const std::string& argument : step.arguments) words.push_back(argument.c_str());
    const char* today[] = {"--today", "2024-06-01"};
    words.insert(words.end(), std::begin(today), std::end(today));
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    Output out(::open(out_.c_str(), flags, 0600));
    const int error_file = ::open(errors_.c_str(), flags, 0600);
    Output errors(error_file);
    Surroundings surroundings{out, errors, Date::carrying(2024, 6, 1)};
    int status = 0;
    {
      const FailingAllocation failing(in, nth, and_after ? FailingAllocation::endless : 1);
      status = runCommandLine(static_cast<int>(words.size()), words.data(), surroundings);
      reached = failing.reached();
    }
    ::close(error_file);
    return status;
  }

  void expectTold(int status, const std::string& where) const {
    EXPECT_EQ(status, exit_system) << where;
    EXPECT_THAT(bytesOf(errors_), ContainsRegex("[Oo]ut of memory")) << where;
    EXPECT_THAT(bytesOf(errors_), Not(HasSubstr("damaged"))) << where;
  }

  std::string bytes_;
  std::string csv_ = directory_.path() + "/new.csv";
  std::string out_ = directory_.path() + "/out";
  std::string errors_ = directory_.path() + "/errors";
  std::vector<Step> steps_;
};

TEST_F(OutOfMemory, EveryCommandSaysSoAndLeavesTheFileAsItWasOrDone) {
  const bool is_long = inLongRun();
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const TableContent before = reread();
  int failures = 0;
  for (const Step& step : steps_) {
    restore();
    bool reached = false;
    ASSERT_EQ(run(step, In::program, 0, false, reached), 0) << bytesOf(errors_);
    const std::string whole_output = bytesOf(out_);
    const TableContent after = reread();
    for (const In in : {In::program, In::library}) {
      for (const bool and_after : {false, true}) {
        const long every = is_long ? 1 : in == In::program ? 37 : 9;
        for (long n = 1 + static_cast<long>(random() % static_cast<unsigned long>(every)); true;
             n += every, ++failures) {
          const std::string where = std::string(step.name) + ", allocation " + std::to_string(n) +
                                    (in == In::program ? " of the program" : " of SQLite") +
                                    (and_after ? " and all after it" : "");
          if (step.changes) restore();
          std::size_t before_it = liveMemory();
          const int status = run(step, in, n, and_after, reached);
          EXPECT_EQ(liveMemory(), before_it) << where;
          if (status == 0) {
            EXPECT_EQ(bytesOf(out_), whole_output) << where;
          } else {
            expectTold(status, where);
          }
          if (step.changes) {
            const TableContent kept = reread();
            EXPECT_TRUE(kept == after || (status != 0 && kept == before)) << where;
          }
          ASSERT_FALSE(HasFailure()) << where;
          if (!reached) break;
        }
      }
    }
  }
  std::cout << failures << " allocations failed\n";
  EXPECT_TRUE(reread() == before || reread().size() + 1 == before.size());
}

/// A trapped error stops the store where it stands: of the asset being saved a part may be kept,
/// but that is told, and no other asset suffers.
TEST_F(OutOfMemory, ASaveThatStopsSaysSoAndHarmsNoOtherAsset) {
  const TableContent before = reread();
  for (const bool is_new : {true, false}) {
    TableContent after;
    for (const In in : {In::program, In::library}) {
      for (const bool and_after : {false, true}) {
        bool reached = true;
        for (long n = 0; reached; ++n) {
          restore();
          File file = openOf(SqliteCompanyFile::open(path_, options()));
          StoreState state;
          state.m_orvcf = file;
          state.TableName = asset_table_name;
          AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
          state.CurrentRecord = is_new ? newAsset({.id = "new"}) : store.ReadData(2);
          state.CurrentRecord->AssetName("saved");
          std::int16_t index = 2;
          bool told = false;
          const ErrorReportHook hook([&told](const ErrorReport&) { told = true; });
          {
            const FailingAllocation failing(in, n, and_after ? FailingAllocation::endless : 1);
            store.WriteData(index);
            reached = n == 0 || failing.reached();
          }
          told = file->takeTrouble().has_value() || told;
          std::optional<TableContent> shown;
          trapped("DepCalc::Shown", [&] { shown = contentOf(*file); });
          file->close();
          TableContent kept = reread();
          EXPECT_TRUE(!shown || *shown == kept) << n << ": what is shown is what the file holds";
          if (n == 0) after = kept;
          EXPECT_TRUE(told || kept == after) << n;
          for (const int other : {1, is_new ? 2 : 3, 3}) {
            EXPECT_TRUE(kept.at(other) == before.at(other)) << n;
          }
          EXPECT_LE(kept.size(), after.size()) << n;
          ASSERT_FALSE(HasFailure())
              << (in == In::program ? "program" : "SQLite") << n << (and_after ? " and after" : "");
        }
      }
    }
  }
}

}  // namespace
}  // namespace depcalc
