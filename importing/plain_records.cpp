#include "importing/plain_records.h"

#include <algorithm>

namespace depcalc {
namespace {

/// The bytes of the line end at `at`; 0 where there is none or more of it may follow.
std::size_t lineEndAt(std::string_view text, std::size_t at) {
  if (text[at] == '\n') return 1;
  if (text[at] != '\r' || at + 1 == text.size()) return 0;
  return text[at + 1] == '\n' ? 2 : 1;
}

}  // namespace

PlainRecords::PlainRecords(const CsvForm& form) : form_(form) {
  std::fill(plain_.begin() + 0x20, plain_.begin() + 0x80, true);
  plain_[static_cast<unsigned char>(form.separator)] = false;
  plain_[static_cast<unsigned char>('"')] = false;
}

/// Where the plain bytes from `at` on end.
std::size_t PlainRecords::endOfField(std::string_view text, std::size_t at) const {
  while (at < text.size() && isPlain(text[at])) ++at;
  return at;
}

/// The same within quotes, where separators mean nothing either.
std::size_t PlainRecords::endOfQuoted(std::string_view text, std::size_t at) const {
  while (at < text.size() && (isPlain(text[at]) || text[at] == form_.separator)) ++at;
  return at;
}

std::size_t PlainRecords::read(std::string_view text, CsvPlace place,
                               std::vector<CsvField>& fields) const {
  const auto left_alone = [&fields] { return fields.clear(), std::size_t{0}; };
  const std::string_view within_limits = text.substr(0, form_.limits.record_bytes);
  for (std::size_t at = 0; fields.size() < form_.limits.fields;) {
    const std::size_t begin = at;
    const bool quoted = at < within_limits.size() && text[at] == '"';
    at = quoted ? endOfQuoted(within_limits, at + 1) : endOfField(within_limits, at);
    const std::size_t first = begin + (quoted ? 1 : 0);
    fields.push_back({text.substr(first, at - first), {place.line, place.column + begin}});
    if (quoted && at < within_limits.size() && text[at++] != '"') return left_alone();
    if (at - begin > form_.limits.field_bytes || at >= within_limits.size()) return left_alone();
    if (text[at] != form_.separator) {
      const std::size_t line_end = lineEndAt(text, at);
      return line_end == 0 ? left_alone() : at + line_end;
    }
    ++at;
  }
  return left_alone();
}

}  // namespace depcalc
