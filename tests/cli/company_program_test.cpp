// Commands on company files where something is in the way: another program, a full register, a
// full disk, write protection.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <iostream>

#include "tests/cli/program.h"
#include "tests/support/company_lock.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using namespace testing_support;

class CompanyProgram : public Program {};

// --- Two programs, one file ----------------------------------------------------------------------

TEST_F(CompanyProgram, RefusesAFileThatAnotherHoldsAndSaysWhoUntilThatIsGone) {
  make(file_, 3);
  writeAssets(one_, 1);
  const std::string before = bytesOf(file_);
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  // It has the file while it waits for assets.
  const pid_t holder = start({"import", "--allow-duplicates", file_, "-"},
                             {.in = ends[0], .errors = -1, .first = {}});
  ASSERT_TRUE(comesToHold(holder, file_));
  const std::string said = file_ + " is in use by depcalc (process " + std::to_string(holder) + ")";
  for (const Arguments& arguments :
       std::vector<Arguments>{{"list", file_},
                              {"check", file_},
                              {"dump", file_},
                              {"register", file_},
                              {"import", "--allow-duplicates", file_, one_},
                              {"delete", file_, "1"}}) {
    const Ran ran = run(arguments);
    EXPECT_EQ(ran.status, 4) << arguments.front();
    EXPECT_THAT(ran.errors, HasSubstr(said)) << arguments.front();
    EXPECT_LT(ran.seconds, 1) << arguments.front();
  }
  ::kill(holder, SIGKILL);
  EXPECT_EQ(statusOf(holder), -1);
  EXPECT_EQ(run({"list", file_}).status, 0) << "at once";
  EXPECT_EQ(bytesOf(file_), before);
  ::close(ends[0]);
  ::close(ends[1]);
}

// --- The register's capacity ---------------------------------------------------------------------

TEST_F(CompanyProgram, HoldsAsManyAssetsAsItsNumbersCountAndNotOneMore) {
  constexpr int most = 32'767;
  writeAssets(many_, most + 1);
  ASSERT_EQ(run({"new", file_}).status, 0);
  const std::string empty = bytesOf(file_);
  const Ran too_many = run({"import", "--allow-duplicates", file_, many_, "--today", "2024-06-01"});
  EXPECT_EQ(too_many.status, 1);
  EXPECT_THAT(too_many.errors, HasSubstr("The register holds at most 32,767 assets"));
  EXPECT_EQ(bytesOf(file_), empty);

  writeAssets(many_, most);
  ASSERT_EQ(run({"import", "--allow-duplicates", file_, many_, "--today", "2024-06-01"}).status, 0);

  const std::string full = bytesOf(file_);
  writeAssets(one_, 1);
  const Ran one_more = run({"import", "--allow-duplicates", file_, one_, "--today", "2024-06-01"});
  EXPECT_EQ(one_more.status, 1);
  EXPECT_THAT(one_more.errors, HasSubstr("it has 32,767, and the file has 1 more"));
  EXPECT_EQ(bytesOf(file_), full);

  const auto file = opened(file_);
  ASSERT_NE(file, nullptr);
  std::vector<std::string> reports;
  const ErrorReportHook hook([&](const ErrorReport& report) { reports.push_back(report.text()); });
  StoreState state;
  state.m_orvcf = file;
  state.TableName = asset_table_name;
  AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
  state.CurrentRecord = newAsset({.id = "one more"});
  std::int16_t index = 0;
  store.WriteData(index);
  EXPECT_THAT(reports, ElementsAre("DepCalc::WriteData Error#6: Overflow"));
  EXPECT_EQ(file->OpenTable(asset_table_name)->Count(), most + 1);
  EXPECT_EQ(store.ReadData(INT16_MAX)->AssetID(), "A32766");
  file->close();
  EXPECT_EQ(bytesOf(file_), full);
}

// --- Disks ---------------------------------------------------------------------------------------

/// Makes `place` a disk of its own with this much room, for this process; false where that is not
/// permitted.
bool mountSmall(const std::string& place, std::size_t bytes) {
  const int spaces = ::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER;
  const std::string room = "size=" + std::to_string(bytes);
  return ::unshare(spaces) == 0 &&
         ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount("none", place.c_str(), "tmpfs", 0, room.c_str()) == 0;
}

TEST_F(CompanyProgram, LeavesTheFileAsItWasWhereTheDiskIsFull) {
  make(base_, 40);
  writeAssets(many_, 3'000);
  const std::string before = bytesOf(base_);
  const std::string place = directory_.path() + "/small";
  std::filesystem::create_directory(place);
  const std::string file = place + "/acme.company";
  // In a process that has the small disk; the commands run in it see the same.
  const pid_t child = ::fork();
  if (child == 0) {
    if (!mountSmall(place, before.size() + 65'536)) ::_exit(77);
    std::filesystem::copy_file(base_, file);
    const Ran import = run({"import", "--allow-duplicates", file, many_, "--today", "2024-06-01"});
    const bool told = import.status == 3 && import.errors.find(file) != std::string::npos &&
                      import.errors.find("the disk is full") != std::string::npos;
    const bool unharmed = bytesOf(file) == before && !std::filesystem::exists(file + "-journal");
    std::ofstream(place + "/filler") << std::string(before.size() + 65'536, 'x');
    const std::string another = place + "/new.company";
    const Ran made = run({"new", another});
    const bool refused = made.status == 3 && !std::filesystem::exists(another) &&
                         made.errors.find(place) != std::string::npos;
    const Ran removed = run({"delete", file, "1", "--today", "2024-06-01"});
    const bool kept = removed.status == 3 && bytesOf(file) == before &&
                      removed.errors.find(file) != std::string::npos;
    const bool readable = run({"check", file}).status == 0;
    ::_exit((told ? 0 : 1) + (unharmed ? 0 : 2) + (refused ? 0 : 4) + (kept ? 0 : 8) +
            (readable ? 0 : 16));
  }
  const int status = statusOf(child);
  if (status == 77) {
    std::cout << "no disk can be made here; the limit on files below stands for it\n";
  } else {
    EXPECT_EQ(status, 0) << "1 told, 2 unharmed, 4 new refused, 8 delete refused, 16 readable";
  }
}

TEST_F(CompanyProgram, LeavesTheFileAsItWasWhereFilesMayNotGrow) {
  make(file_, 40);
  writeAssets(many_, 3'000);
  const std::string before = bytesOf(file_);
  const Ran ran = run({"import", "--allow-duplicates", file_, many_, "--today", "2024-06-01"}, [&] {
    const struct rlimit limit = {before.size() + 65'536, before.size() + 65'536};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(ran.status, 3);
  EXPECT_THAT(ran.errors,
              HasSubstr(file_ + " cannot be written: it would exceed the size allowed"));
  EXPECT_EQ(bytesOf(file_), before);
  EXPECT_FALSE(std::filesystem::exists(file_ + "-journal"));
  const std::string another = directory_.path() + "/new.company";
  const Ran made = run({"new", another}, [] {
    const struct rlimit limit = {4'096, 4'096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(made.status, 3);
  EXPECT_FALSE(std::filesystem::exists(another));
}

/// Permissions do not bind root: as root the commands run as somebody else.
void becomeNobody() {
  if (::geteuid() != 0) return;
  if (::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(99);
}

TEST_F(CompanyProgram, ReadsAndDoesNotHarmWhatItMayNotWrite) {
  const std::string place = directory_.path() + "/place";
  const std::string file = place + "/acme.company";
  std::filesystem::create_directory(place);
  make(file, 3);
  writeAssets(one_, 1);
  const std::string before = bytesOf(file);
  ::chmod(directory_.path().c_str(), 0755);
  struct Case {
    const char* what;
    mode_t file_mode;
    mode_t place_mode;
  };
  for (const Case& each : {Case{"file", 0444, 0777}, Case{"directory", 0666, 0555}}) {
    ::chmod(file.c_str(), each.file_mode);
    ::chmod(place.c_str(), each.place_mode);
    for (const Arguments& arguments : std::vector<Arguments>{
             {"import", "--allow-duplicates", file, one_}, {"delete", file, "1"}}) {
      const Ran ran = run(arguments, becomeNobody);
      EXPECT_EQ(ran.status, 3) << each.what << ", " << arguments.front();
      EXPECT_THAT(ran.errors, HasSubstr(file + " cannot be written")) << each.what;
    }
    EXPECT_EQ(run({"check", file}, becomeNobody).status, 0) << each.what;
    EXPECT_EQ(bytesOf(file), before) << each.what;
  }
  ::chmod(place.c_str(), 0555);
  const Ran made = run({"new", place + "/new.company"}, becomeNobody);
  EXPECT_EQ(made.status, 3);
  EXPECT_THAT(made.errors, HasSubstr(place + "/new.company cannot be written"));
  ::chmod(place.c_str(), 0755);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place), {}), 1);
}

}  // namespace
}  // namespace depcalc
