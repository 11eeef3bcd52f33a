// The depcalc program as a test runs it.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "host/sqlite/company_file.h"
#include "tests/DepCalc/store_pair.h"
#include "tests/support/temporary_directory.h"

namespace depcalc::testing_support {

using Clock = std::chrono::steady_clock;
using Arguments = std::vector<std::string>;

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// How a program is started.
struct Streams {
  int in = -1;                  ///< -1: as it is
  int errors = -1;              ///< -1: as it is
  std::function<void()> first;  ///< done in the new process
};

inline pid_t start(const Arguments& arguments, const Streams& streams = {}) {
  const int program_file = ::open(DEPCALC_PROGRAM, O_RDONLY | O_CLOEXEC);
  const pid_t child = ::fork();
  if (child != 0) {
    ::close(program_file);
    return child;
  }
  ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
  if (streams.in >= 0) ::dup2(streams.in, STDIN_FILENO);
  if (streams.errors >= 0) ::dup2(streams.errors, STDERR_FILENO);
  if (streams.first) streams.first();
  std::vector<char*> words;
  std::string program = "depcalc";
  words.push_back(program.data());
  for (const std::string& argument : arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  // By its descriptor, since another user may not come by its path.
  ::fexecve(program_file, words.data(), environ);
  ::_exit(127);
}

/// The exit status, or -1 for a program that did not end by itself.
inline int statusOf(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Whether the command ended by itself and said that all is done.
inline bool succeeded(pid_t child) { return statusOf(child) == 0; }

/// Company files and what to import into them.
class Program : public testing::Test {
 protected:
  struct Ran {
    int status = 0;
    std::string errors;
    double seconds = 0;  ///< of work
  };

  Ran run(const Arguments& arguments, const std::function<void()>& first = {}) const {
    const std::string errors = directory_.path() + "/errors";
    const int file = ::open(errors.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const pid_t child = start(arguments, {.in = -1, .errors = file, .first = [&first] {
                                            ::alarm(240);
                                            if (first) first();
                                          }});
    int status = 0;
    struct rusage used {};
    ::wait4(child, &status, 0, &used);
    Ran ran;
    ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ran.seconds = static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
                  static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1e6;
    ::close(file);
    ran.errors = bytesOf(errors);
    return ran;
  }

  /// A company file with `assets` assets at `path`.
  void make(const std::string& path, int assets) const {
    const std::string csv = directory_.path() + "/made.csv";
    writeAssets(csv, assets);
    ASSERT_TRUE(succeeded(start({"new", path, "--first-month", "4"})));
    ASSERT_TRUE(succeeded(start({"import", path, csv, "--today", "2024-06-01"})));
  }

  static void writeAssets(const std::string& path, int assets) {
    std::ofstream file(path);
    file << "id,placed_in_service,life,basis,convention,method\n";
    for (int i = 0; i < assets; ++i) {
      file << 'A' << i << ",20" << 10 + i % 14 << "-03-15," << 3 + i % 18 << ',' << 1000 + i << ','
           << i % 5 << (i % 2 == 0 ? ",SL\n" : ",DDB\n");
    }
  }

  static std::shared_ptr<SqliteCompanyFile> opened(const std::string& path) {
    const auto answer = SqliteCompanyFile::open(
        path, {.today = [] { return Date::carrying(2024, 6, 1); }, .writable = true, .vfs = ""});
    const auto* trouble = std::get_if<FileTrouble>(&answer);
    EXPECT_EQ(trouble, nullptr) << (trouble != nullptr ? trouble->description() : "");
    return trouble != nullptr ? nullptr : std::get<std::shared_ptr<SqliteCompanyFile>>(answer);
  }

  static TableContent contentAt(const std::string& path) {
    const auto file = opened(path);
    return file != nullptr ? contentOf(*file) : TableContent();
  }

  TemporaryDirectory directory_;
  std::string base_ = directory_.path() + "/base.company";
  std::string file_ = directory_.path() + "/acme.company";
  std::string many_ = directory_.path() + "/many.csv";
  std::string one_ = directory_.path() + "/one.csv";
};

}  // namespace depcalc::testing_support
