// depcalc killed at random moments: the company file opens, holds the state before or after, and
// what was acknowledged is there.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <thread>
#include <vector>

#include "host/sqlite/company_file.h"
#include "tests/DepCalc/store_pair.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using testing_support::contentOf;
using testing_support::TableContent;
using testing_support::TemporaryDirectory;
using Clock = std::chrono::steady_clock;
using Arguments = std::vector<std::string>;

pid_t start(const Arguments& arguments) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  const int nowhere = ::open("/dev/null", O_WRONLY);
  ::dup2(nowhere, STDOUT_FILENO);
  std::vector<char*> words;
  std::string program = DEPCALC_PROGRAM;
  words.push_back(program.data());
  for (const std::string& argument : arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  ::execv(program.c_str(), words.data());
  ::_exit(127);
}

/// Whether the command ended by itself and said that all is done.
bool succeeded(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class Crash : public testing::Test {
 protected:
  void SetUp() override {
    writeAssets(many_, 250);
    writeAssets(one_, 1);
    ASSERT_TRUE(succeeded(start({"new", base_, "--first-month", "4"})));
    ASSERT_TRUE(succeeded(start({"import", base_, many_, "--today", "2024-06-01"})));
  }

  void writeAssets(const std::string& path, int assets) {
    std::ofstream file(path);
    file << "id,placed_in_service,life,basis,convention,method\n";
    for (int i = 0; i < assets; ++i) {
      file << 'A' << i << ",20" << 10 + i % 14 << "-03-15," << 3 + i % 18 << ',' << 1000 + i << ','
           << i % 5 << (i % 2 == 0 ? ",SL\n" : ",DDB\n");
    }
  }

  static TableContent contentAt(const std::string& path) {
    const auto opened = SqliteCompanyFile::open(
        path, {.today = [] { return Date::carrying(2024, 6, 1); }, .writable = true, .vfs = ""});
    const auto* trouble = std::get_if<FileTrouble>(&opened);
    EXPECT_EQ(trouble, nullptr) << (trouble != nullptr ? trouble->description() : "");
    if (trouble != nullptr) return {};
    return contentOf(*std::get<std::shared_ptr<SqliteCompanyFile>>(opened));
  }

  TemporaryDirectory directory_;
  std::string base_ = directory_.path() + "/base.company";
  std::string file_ = directory_.path() + "/acme.company";
  std::string many_ = directory_.path() + "/many.csv";
  std::string one_ = directory_.path() + "/one.csv";
};

TEST_F(Crash, LeavesTheStateBeforeOrAfterAndLosesNothingAcknowledged) {
  const int kills = std::getenv("DEPCALC_LONG") != nullptr ? 200 : 45;
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const TableContent before = contentAt(base_);
  const std::vector<Arguments> commands{
      {"import", file_, many_}, {"import", file_, one_}, {"delete", file_, "1"}};
  int cut_short = 0;
  for (Arguments command : commands) {
    command.insert(command.end(), {"--today", "2024-06-01"});
    std::filesystem::copy_file(base_, file_, std::filesystem::copy_options::overwrite_existing);
    const auto began = Clock::now();
    ASSERT_TRUE(succeeded(start(command)));
    const std::chrono::duration<double> whole = Clock::now() - began;
    const TableContent after = contentAt(file_);
    ASSERT_FALSE(before == after);

    for (int i = 0; i < kills / 3; ++i) {
      std::filesystem::copy_file(base_, file_, std::filesystem::copy_options::overwrite_existing);
      std::filesystem::remove(file_ + "-journal");
      const double share = std::uniform_real_distribution<double>(0, 1.1)(random);
      const pid_t child = start(command);
      std::this_thread::sleep_for(whole * share);
      ::kill(child, SIGKILL);
      const bool acknowledged = succeeded(child);
      cut_short += acknowledged ? 0 : 1;
      const TableContent kept = contentAt(file_);
      EXPECT_TRUE(kept == after || (!acknowledged && kept == before))
          << command.front() << ", seed " << seed << ", kill " << i
          << (acknowledged ? ", acknowledged" : "");
      ASSERT_FALSE(HasFailure());
    }
  }
  EXPECT_GT(cut_short, kills / 4) << "the kills came in time";
}

}  // namespace
}  // namespace depcalc
