#include "cli/foreign_file.h"

#include <algorithm>
#include <array>

#include "host/sqlite/company_path.h"

namespace depcalc {
namespace {

struct Separator {
  char character;
  std::string_view name;    ///< for the option
  std::string_view plural;  ///< for messages
};

constexpr std::array<Separator, 4> separators{
    {{',', "comma", "commas"}, {';', "semicolon", ";"}, {'\t', "tab", "tabs"}, {'|', "'|'", "|"}}};

std::string pluralOf(char separator) {
  for (const Separator& known : separators) {
    if (known.character == separator) return std::string(known.plural);
  }
  return {separator};
}

std::string_view firstLineOf(std::string_view text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

/// Whether `separator` stands in `line` outside of quotes.
bool isSeparated(std::string_view line, char separator) {
  bool quoted = false;
  return std::any_of(line.begin(), line.end(), [&](char c) {
    if (c == '"') quoted = !quoted;
    return c == separator && !quoted;
  });
}

}  // namespace

std::optional<char> separatorNamed(std::string_view text) {
  for (const Separator& known : separators) {
    if (text == known.name) return known.character;
  }
  constexpr std::string_view meaningful = "\"'\r\n+-.0123456789";
  const bool usable = text.size() == 1 && meaningful.find(text[0]) == std::string_view::npos &&
                      (text[0] == '\t' || (text[0] > ' ' && text[0] <= '~'));
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return usable && !isLetter(text[0]) && text[0] != '_' ? std::optional(text[0]) : std::nullopt;
}

std::string foreignFileMessage(std::string_view beginning, char separator) {
  if (beginsLikeCompanyFile(beginning)) {
    return "This is a company file; please name a CSV file, such as `depcalc list --format csv` "
           "writes.";
  }
  const std::string_view header = firstLineOf(beginning);
  // With NUL characters it is another encoding that has to be told of.
  if (isSeparated(header, separator) || header.find('\0') != std::string_view::npos) return {};
  for (const Separator& other : separators) {
    if (other.character == separator || !isSeparated(header, other.character)) continue;
    std::string message = "The columns are separated by ";
    message.append(other.plural).append(" and not by ").append(pluralOf(separator));
    return message.append("; --separator ").append(other.name).append(" reads them.");
  }
  return {};
}

}  // namespace depcalc
