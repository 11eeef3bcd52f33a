// depcalc-golden [--update] FILE…: replays golden files and shows where they differ.
// depcalc-golden --all-boxes FILE…: names the message boxes that none of them shows.
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/box_catalogue.h"
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

std::set<std::string> boxesIn(const std::vector<std::string>& paths) {
  std::set<std::string> boxes;
  for (const std::string& path : paths) {
    std::istringstream lines(contentOf(path));
    for (std::string line; std::getline(lines, line);) boxes.insert(boxOfLine(line));
  }
  return boxes;
}

template <typename Catalogue>
bool showsAll(const std::set<std::string>& boxes, const Catalogue& catalogue) {
  bool all = true;
  for (const std::string_view box : catalogue) {
    if (boxes.count(std::string(box)) > 0) continue;
    std::cout << "never shown: " << box << '\n';
    all = false;
  }
  return all;
}

int run(int count, char** arguments) {
  std::vector<std::string> paths(arguments + 1, arguments + count);
  const std::string option = paths.empty() ? std::string() : paths.front();
  if (option.starts_with("--")) paths.erase(paths.begin());
  if (option == "--all-boxes") {
    const std::set<std::string> boxes = boxesIn(paths);
    const bool questions = showsAll(boxes, box_catalogue);
    return showsAll(boxes, refusal_catalogue) && questions ? 0 : 1;
  }
  bool same = true;
  for (const std::string& path : paths) same = replay(path, option == "--update") && same;
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
