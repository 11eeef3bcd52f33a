// Any bytes as CSV: the same records however the bytes arrive, nothing beyond the limits, and
// places that move forward.
#include <cstdint>
#include <string>
#include <vector>

#include "importing/csv_reader.h"
#include "tests/fuzz/property.h"
#include "tests/support/text_source.h"

namespace depcalc {
namespace {

constexpr CsvLimits limits{.field_bytes = 24, .record_bytes = 64, .fields = 8};

bool before(CsvPlace a, CsvPlace b) {
  return a.line < b.line || (a.line == b.line && a.column < b.column);
}

void checkRecord(const std::vector<CsvField>& record, CsvPlace& last) {
  std::size_t bytes = 0;
  for (const CsvField& field : record) {
    mustHold(before(last, field.place), "fields stand one behind the other");
    mustHold(field.text.size() <= limits.field_bytes, "fields are bounded");
    mustHold(field.text.find('\0') == std::string_view::npos, "no NUL gets through");
    bytes += field.text.size();
    last = field.place;
  }
  mustHold(!record.empty() && record.size() <= limits.fields, "the number of fields is bounded");
  mustHold(bytes <= limits.record_bytes, "records are bounded");
}

std::string readAll(std::string_view text, std::size_t piece) {
  TextSource source(text, piece);
  CsvReader reader(source, {.limits = limits});
  std::string all;
  CsvPlace last{0, 0};
  while (true) {
    const auto outcome = reader.next();
    if (outcome == CsvReader::Outcome::end) return all;
    mustHold(outcome != CsvReader::Outcome::unreadable, "a text can be read");
    if (outcome == CsvReader::Outcome::problem) {
      const auto& [place, message] = reader.problem();
      all += std::to_string(place.line) + ":" + std::to_string(place.column) + message + '\n';
      continue;
    }
    checkRecord(reader.record(), last);
    for (const CsvField& field : reader.record()) all.append(field.text).append("|");
    all += '\n';
  }
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string whole = depcalc::readAll(text, size + 1);
  depcalc::mustHold(depcalc::readAll(text, 1) == whole, "bytes one by one read the same");
  depcalc::mustHold(depcalc::readAll(text, 3) == whole, "bytes three by three read the same");
  return 0;
}
