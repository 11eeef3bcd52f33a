// depcalc-golden [--update] FILE…: replays golden files, on a host in memory and on company
// files, and shows where they differ.
// depcalc-golden --all-boxes FILE…: names the message boxes that none of them shows.
#include <cstdlib>
#include <filesystem>
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
#include "tests/drive/memory_drive_host.h"
#include "tests/drive/sqlite_drive_host.h"

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

/// A new directory, gone with everything in it at the end.
class ScratchDirectory {
 public:
  ScratchDirectory() {
    std::string name =
        (std::filesystem::temp_directory_path() / ("depcalc-golden-" + std::string(6, 'X')))
            .string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch directory");
    path_ = name;
  }
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

std::string onMemory(const std::string& file) {
  CalculatorScreens screens;
  return goldenTranscript(
      file,
      [](const GoldenSettings& settings) {
        return std::make_unique<MemoryDriveHost>(settings.fiscal_year_start);
      },
      screens);
}

std::string onSqlite(const std::string& file) {
  const ScratchDirectory directory;
  CalculatorScreens screens;
  return goldenTranscript(
      file,
      [&directory](const GoldenSettings& settings) {
        return std::make_unique<SqliteDriveHost>(SqliteDriveHost::Options{
            settings.options.today, directory.path(), settings.fiscal_year_start.month()});
      },
      screens);
}

bool update(const std::string& path) {
  const std::string actual = onMemory(contentOf(path));
  if (actual == contentOf(path)) return true;
  std::ofstream(path, std::ios::binary) << actual;
  std::cout << "updated " << path << '\n';
  return true;
}

/// Every host has to print the same.
bool replay(const std::string& path) {
  const std::string expected = contentOf(path);
  for (const auto& transcript : {onMemory, onSqlite}) {
    const std::string actual = transcript(expected);
    if (actual == expected) continue;
    printDifference(path, expected, actual);
    return false;
  }
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
  for (const std::string& path : paths) {
    same = (option == "--update" ? update(path) : replay(path)) && same;
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
