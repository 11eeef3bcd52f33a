// depcalc-golden [--update] FILE…: replays golden files and shows where they differ.
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/golden.h"

namespace depcalc::drive {
namespace {

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void printDifference(const std::string& path, const std::string& expected,
                     const std::string& actual) {
  std::istringstream expected_lines(expected);
  std::istringstream actual_lines(actual);
  std::string wanted;
  std::string got;
  for (int number = 1;; ++number) {
    const bool more_wanted = static_cast<bool>(std::getline(expected_lines, wanted));
    const bool more_got = static_cast<bool>(std::getline(actual_lines, got));
    if (!more_wanted && !more_got) return;
    if (more_wanted == more_got && wanted == got) continue;
    std::cout << path << ':' << number << '\n';
    std::cout << "  expected: " << (more_wanted ? wanted : "(end of file)") << '\n';
    std::cout << "  actual:   " << (more_got ? got : "(end of output)") << '\n';
    std::cout << "the whole of it:\n" << actual;
    return;
  }
}

bool replay(const std::string& path, bool update) {
  const std::string expected = contentOf(path);
  CalculatorScreens screens;
  const std::string actual = goldenTranscript(expected, screens);
  if (actual == expected) return true;
  if (!update) {
    printDifference(path, expected, actual);
    return false;
  }
  std::ofstream(path, std::ios::binary) << actual;
  std::cout << "updated " << path << '\n';
  return true;
}

int run(int count, char** arguments) {
  bool update = false;
  bool same = true;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--update") {
      update = true;
    } else {
      same = replay(argument, update) && same;
    }
  }
  return same ? 0 : 1;
}

}  // namespace
}  // namespace depcalc::drive

int main(int count, char** arguments) {
  try {
    return depcalc::drive::run(count, arguments);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
}
