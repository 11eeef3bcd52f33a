// depcalc-golden-server FILE…: replays golden files on companies of a server.
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/golden.h"
#include "tests/host/postgresql/server_drive_host.h"

namespace depcalc::drive {
namespace {

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string onServer(const std::string& file) {
  CalculatorScreens screens;
  return goldenTranscript(
      file,
      [](const GoldenSettings& settings) {
        return std::make_unique<ServerDriveHost>(settings.options.today,
                                                 settings.fiscal_year_start.month());
      },
      screens);
}

int run(int count, char** paths) {
  int different = 0;
  for (int i = 1; i < count; ++i) {
    const std::string expected = contentOf(paths[i]);
    const std::string actual = onServer(expected);
    if (actual == expected) continue;
    ++different;
    std::cout << paths[i] << " reads on a server:\n" << actual;
  }
  std::cout << count - 1 << " sessions\n";
  return different == 0 && count > 1 ? 0 : 1;
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
