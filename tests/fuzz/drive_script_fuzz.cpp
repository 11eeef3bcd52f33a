// Any text as a script that drives the calculator: what is no command is refused, and nothing that
// a user can do in any order harms the program or the register.
#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>

#include "DepCalc/calculator_screens.h"
#include "tests/drive/driver.h"
#include "tests/drive/memory_drive_host.h"
#include "tests/fuzz/property.h"
#include "values/number_text.h"

namespace depcalc::drive {
namespace {

constexpr int most_lines = 400;

/// A register of tens of thousands of years takes time and shows nothing more.
bool onlyTakesTime(std::string_view line) {
  constexpr std::string_view life = "set DepRecovery ";
  return line.starts_with(life) &&
         std::abs(tryNumberFromText(line.substr(life.size())).value_or(0)) > 100;
}

/// Lines that are no commands change nothing; questions are answered in turns.
void runScript(const std::string& script) {
  MemoryDriveHost host(Date::strict(2024, 1, 1));
  host.open("fuzz.company");
  CalculatorScreens screens;
  std::ostringstream out;
  Driver driver(host, screens, out, {.today = Date::strict(2024, 2, 29)});
  unsigned questions = 0;
  driver.answerWith([&](const MessageBox&) {
    constexpr std::array answers{BoxAnswer::yes, BoxAnswer::no, BoxAnswer::cancel};
    return answers[questions++ % answers.size()];
  });
  std::istringstream lines(script);
  int count = 0;
  for (std::string line; count < most_lines && std::getline(lines, line); ++count) {
    if (onlyTakesTime(line)) continue;
    try {
      driver.run(line);
    } catch (const ScriptError&) {
      out << "no command\n";
    }
  }
  const auto file = host.application()->CompanyFile();
  if (file == nullptr) return;
  const auto table = file->OpenTable("ZEM:DepCalc");
  for (std::int32_t index = 0; index < table->Count(); ++index) {
    mustHold(table->Exists(static_cast<std::int16_t>(index)), "the register has no gaps");
  }
}

}  // namespace
}  // namespace depcalc::drive

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  depcalc::drive::runScript(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
