#include "tests/drive/golden.h"

#include <sstream>

#include "tests/drive/driver.h"
#include "tests/drive/memory_drive_host.h"

namespace depcalc::drive {
namespace {

constexpr std::string_view prompt = "> ";
constexpr Date no_date;

struct Settings {
  DriveOptions options{Date::strict(2024, 6, 15)};
  Date fiscal_year_start = Date::strict(2024, 1, 1);
  bool company_file = true;
};

bool takePrefix(std::string_view& line, std::string_view prefix) {
  if (!line.starts_with(prefix)) return false;
  line.remove_prefix(prefix.size());
  return true;
}

void readSetting(std::string_view line, Settings& settings) {
  if (takePrefix(line, "# today: ")) {
    settings.options.today = Date::fromText(line, no_date);
  } else if (takePrefix(line, "# fiscal year: ")) {
    settings.fiscal_year_start = Date::fromText(line, no_date);
  } else if (line == "# option: --manual-paint") {
    settings.options.manual_paint = true;
  } else if (line == "# option: --no-host-file") {
    settings.company_file = false;
  }
}

Settings settingsOf(std::string_view file) {
  Settings settings;
  std::istringstream lines{std::string(file)};
  for (std::string line; std::getline(lines, line) && !line.starts_with(prompt);) {
    readSetting(line, settings);
  }
  return settings;
}

}  // namespace

std::string goldenTranscript(std::string_view file, ScreenMaker& screens) {
  const Settings settings = settingsOf(file);
  MemoryDriveHost host(settings.fiscal_year_start);
  if (settings.company_file) host.open("golden.company");
  std::ostringstream out;
  Driver driver(host, screens, out, settings.options);
  std::istringstream lines{std::string(file)};
  try {
    for (std::string line; std::getline(lines, line);) {
      const bool command = line.starts_with(prompt);
      if (command || line.starts_with('#')) out << line << '\n';
      if (command) driver.run(std::string_view(line).substr(prompt.size()));
    }
  } catch (const ScriptError& error) {
    out << "stopped: " << error.what() << '\n';
  } catch (const Unanswered& error) {
    out << "stopped: " << error.what() << '\n';
  }
  return out.str();
}

}  // namespace depcalc::drive
