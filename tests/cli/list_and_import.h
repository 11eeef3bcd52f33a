// The commands of the program, called in the test's own process.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "tests/support/temporary_directory.h"

namespace depcalc::testing_support {

class ListAndImport : public testing::Test {
 protected:
  /// Runs `depcalc` with `arguments`; what it prints is in the file "out" afterwards.
  void run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "depcalc");
    std::vector<const char*> words;
    words.reserve(arguments.size());
    for (const std::string& argument : arguments) words.push_back(argument.c_str());
    Output out(::open(path("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
    Output errors(::open(path("errors").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
    Surroundings surroundings{out, errors, Date::strict(2024, 6, 1)};
    const int status = runCommandLine(static_cast<int>(words.size()), words.data(), surroundings);
    errors.finish();
    ASSERT_EQ(status, exit_success) << contentOf("errors");
  }

  std::string path(const std::string& name) { return directory_.path() + "/" + name; }

  std::string contentOf(const std::string& name) {
    std::ostringstream content;
    content << std::ifstream(path(name), std::ios::binary).rdbuf();
    return content.str();
  }

  /// Lists `company` and imports that into a new one; both with `options`.
  void copy(const std::string& company, const std::string& to,
            const std::vector<std::string>& options) {
    std::vector<std::string> list{"list", "--format", "csv", path(company)};
    list.insert(list.end(), options.begin(), options.end());
    ASSERT_NO_FATAL_FAILURE(run(list));
    std::filesystem::rename(path("out"), path("listed.csv"));
    ASSERT_NO_FATAL_FAILURE(run({"new", path(to)}));
    std::vector<std::string> import{"import", "--allow-duplicates", path(to), path("listed.csv")};
    import.insert(import.end(), options.begin(), options.end());
    ASSERT_NO_FATAL_FAILURE(run(import));
  }

  std::string dumpOf(const std::string& company) {
    run({"dump", path(company)});
    return contentOf("out");
  }

  TemporaryDirectory directory_;
};

}  // namespace depcalc::testing_support
