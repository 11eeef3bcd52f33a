#include "tests/drive/golden.h"

#include <sstream>

namespace depcalc::drive {
namespace {

constexpr std::string_view prompt = "> ";
constexpr Date no_date;

bool takePrefix(std::string_view& line, std::string_view prefix) {
  if (!line.starts_with(prefix)) return false;
  line.remove_prefix(prefix.size());
  return true;
}

void readSetting(std::string_view line, GoldenSettings& settings) {
  if (takePrefix(line, "# today: ")) {
    settings.options.today = Date::fromText(line, no_date);
  } else if (takePrefix(line, "# fiscal year: ")) {
    settings.fiscal_year_start = Date::fromText(line, no_date);
  } else if (line == "# option: --manual-paint") {
    settings.options.manual_paint = true;
  } else if (line == "# option: DRIVE_EVENTS") {
    settings.options.events = true;
  } else if (line == "# option: --no-host-file") {
    settings.company_file = false;
  }
}

GoldenSettings settingsOf(std::string_view file) {
  GoldenSettings settings;
  std::istringstream lines{std::string(file)};
  for (std::string line; std::getline(lines, line) && !line.starts_with(prompt);) {
    readSetting(line, settings);
  }
  return settings;
}

}  // namespace

std::string goldenTranscript(std::string_view file, const HostMaker& make_host,
                             ScreenMaker& screens, const DriveParts& parts) {
  const GoldenSettings settings = settingsOf(file);
  const std::unique_ptr<DriveHost> host = make_host(settings);
  if (settings.company_file) host->open("golden.company");
  std::ostringstream out;
  Driver driver(*host, screens, out, settings.options, parts);
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
