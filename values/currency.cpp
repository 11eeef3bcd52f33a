#include "values/currency.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "values/digit_text.h"
#include "values/en_us.h"
#include "values/written_number.h"

namespace depcalc {
namespace {

std::uint64_t magnitude(std::int64_t ticks) {
  return ticks < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(ticks)
                   : static_cast<std::uint64_t>(ticks);
}

}  // namespace

Currency Currency::fromLargeTicks(double ticks) {
  const double whole = std::nearbyint(ticks);
  // 2^63 is the first double out of range above; -2^63 is itself in range.
  if (!(whole >= -9223372036854775808.0 && whole < 9223372036854775808.0)) {
    throw RuntimeError::overflow();
  }
  return Currency(static_cast<std::int64_t>(whole));
}

Currency Currency::fromText(std::string_view text) { return WrittenNumber(text).exact(); }

std::string Currency::toText() const {
  std::string text = toFixed4();
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') {
    text.pop_back();
  } else {
    text[text.find('.')] = en_us::decimal_point;
  }
  return text;
}

char* Currency::writeFixed4(char* out) const {
  const std::uint64_t ticks = magnitude(ticks_);
  if (ticks_ < 0) *out++ = '-';
  out = writeWhole(out, ticks / 10'000);
  *out++ = '.';
  return writeFour(out, static_cast<std::uint32_t>(ticks % 10'000));
}

std::optional<Currency> Currency::tryFromFixed4(std::string_view text) {
  constexpr std::size_t tail = 5;  // the point and four decimals
  if (text.size() <= tail || text.size() >= fixed4_size) return std::nullopt;
  const std::size_t point = text.size() - tail;
  const std::size_t first = text.front() == '-' ? 1 : 0;
  if (text[point] != '.' || first == point) return std::nullopt;
  std::array<char, fixed4_size> digits;
  char* end = std::copy_n(text.begin(), point, digits.begin());
  end = std::copy(text.begin() + point + 1, text.end(), end);
  std::int64_t ticks = 0;
  const auto read = std::from_chars(digits.data(), end, ticks);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return Currency(ticks);
}

std::string Currency::toFixed4() const {
  std::array<char, fixed4_size> buffer;
  return {buffer.data(), writeFixed4(buffer.data())};
}

}  // namespace depcalc
