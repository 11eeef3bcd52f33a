// depcalc-drive FILE.company [SCRIPT] [--today YYYY-MM-DD] [--no-host-file] [--manual-paint]
//               [--new MONTH]
//
// Drives the calculator by a script, one command a line (standard input when there is no SCRIPT),
// and prints what a user would notice. --no-host-file starts without a company file; with --new a
// company file that is not there is made, its fiscal year beginning in that month. With
// DRIVE_EVENTS in the environment each event that the register raises is printed.
//
// Exit status: 0 success, 1 a question had no answer, 2 a mistake in the script or the arguments,
// 3 the company file cannot be opened.
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "DepCalc/calculator_screens.h"
#include "cli/clock.h"
#include "tests/drive/driver.h"
#include "tests/drive/sqlite_drive_host.h"

namespace depcalc::drive {
namespace {

constexpr int unanswered = 1;
constexpr int mistaken = 2;
constexpr int unusable_file = 3;

struct Arguments {
  std::vector<std::string> paths;
  DriveOptions options{todayByTheClock()};
  bool host_file = true;
  int new_month = 0;
};

Date dateOf(const std::string& text) {
  if (!Date::isDate(text, Date())) throw ScriptError("'" + text + "' is no date (YYYY-MM-DD)");
  return Date::fromText(text, Date());
}

Arguments argumentsOf(const std::vector<std::string>& words) {
  Arguments arguments;
  arguments.options.events = std::getenv("DRIVE_EVENTS") != nullptr;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const bool more = i + 1 < words.size();
    if (word == "--no-host-file") {
      arguments.host_file = false;
    } else if (word == "--manual-paint") {
      arguments.options.manual_paint = true;
    } else if (word == "--today" && more) {
      arguments.options.today = dateOf(words[++i]);
    } else if (word == "--new" && more) {
      arguments.new_month = std::atoi(words[++i].c_str());
    } else if (word.starts_with("--")) {
      throw ScriptError("'" + word + "' is no option, or its value is missing");
    } else {
      arguments.paths.push_back(word);
    }
  }
  if (arguments.paths.empty() || arguments.paths.size() > 2) {
    throw ScriptError(
        "usage: depcalc-drive FILE.company [SCRIPT] [--today YYYY-MM-DD] "
        "[--no-host-file] [--manual-paint] [--new MONTH]");
  }
  return arguments;
}

int runScript(std::istream& script, Driver& driver) {
  int number = 0;
  try {
    for (std::string line; std::getline(script, line);) {
      ++number;
      driver.run(line);
    }
  } catch (const Unanswered& error) {
    std::cerr << "line " << number << ": " << error.what() << '\n';
    return unanswered;
  } catch (const ScriptError& error) {
    std::cerr << "line " << number << ": " << error.what() << '\n';
    return mistaken;
  }
  return 0;
}

int drive(const Arguments& arguments) {
  SqliteDriveHost host({arguments.options.today, {}, arguments.new_month});
  try {
    if (arguments.host_file) host.open(arguments.paths[0]);
  } catch (const RuntimeError& error) {
    std::cerr << error.description() << '\n';
    return unusable_file;
  }
  CalculatorScreens screens;
  Driver driver(host, screens, std::cout, arguments.options);
  if (arguments.paths.size() == 1) return runScript(std::cin, driver);
  std::ifstream script(arguments.paths[1]);
  if (!script) throw ScriptError("cannot read " + arguments.paths[1]);
  return runScript(script, driver);
}

}  // namespace
}  // namespace depcalc::drive

int main(int count, char** words) {
  using namespace depcalc;
  try {
    return drive::drive(drive::argumentsOf({words + 1, words + count}));
  } catch (const drive::ScriptError& error) {
    std::cerr << error.what() << '\n';
  } catch (const RuntimeError& error) {
    std::cerr << error.description() << '\n';
  }
  return drive::mistaken;
}
