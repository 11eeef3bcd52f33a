// automation_golden FILE…: replays sessions on a host behind automation objects and shows where
// they differ. The files are the ones that every host has to print (tests/drive/golden.h).
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/golden.h"
#include "tests/windows/host/automation_drive_host.h"

namespace depcalc::drive {
namespace {

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string replayed(const std::string& content) {
  CalculatorScreens screens;
  return goldenTranscript(
      content,
      [](const GoldenSettings& settings) {
        return std::make_unique<AutomationDriveHost>(settings.fiscal_year_start);
      },
      screens);
}

/// Prints the first line that differs, and the whole.
void printDifference(const std::string& path, const std::string& expected,
                     const std::string& actual) {
  std::istringstream expected_lines(expected);
  std::istringstream actual_lines(actual);
  std::string wanted;
  std::string got;
  int number = 1;
  while (std::getline(expected_lines, wanted) && std::getline(actual_lines, got) && wanted == got) {
    ++number;
  }
  std::cout << path << ':' << number << "\n  expected: " << wanted << "\n  actual:   " << got
            << "\nthe whole of it:\n"
            << actual;
}

int run(int count, char** paths) {
  int different = count < 2 ? 1 : 0;
  for (int i = 1; i < count; ++i) {
    const std::string expected = contentOf(paths[i]);
    const std::string actual = replayed(expected);
    if (!expected.empty() && actual == expected) continue;
    printDifference(paths[i], expected, actual);
    ++different;
  }
  std::cout << count - 1 << " sessions, " << different << " different\n";
  return different == 0 ? 0 : 1;
}

}  // namespace
}  // namespace depcalc::drive

int main(int count, char** paths) {
  try {
    return depcalc::drive::run(count, paths);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
}
