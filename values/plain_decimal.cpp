#include "values/plain_decimal.h"

namespace depcalc {
namespace {

/// So many digits are a number of 64 bits, however many of them count.
constexpr std::size_t most_characters = 18;

/// Adds the digits that `text` begins with to `mantissa`, commas between them left out where they
/// part thousands, and takes them off the text. Returns how many digits there were.
template <bool with_thousands>
std::int64_t takeDigits(std::string_view& text, std::int64_t& mantissa) {
  std::int64_t commas = 0;
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const unsigned digit = static_cast<unsigned char>(text[at]) - unsigned{'0'};
    if (digit <= 9) {
      mantissa = mantissa * 10 + digit;
    } else if (with_thousands && text[at] == en_us::thousands_separator) {
      ++commas;
    } else {
      break;
    }
  }
  text.remove_prefix(at);
  return static_cast<std::int64_t>(at) - commas;
}

}  // namespace

PlainDecimal plainDecimal(std::string_view text) {
  text = trimmed(text);
  if (text.size() > most_characters) return {};
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  PlainDecimal number{.mantissa = 0, .decimals = 0};
  std::int64_t digits = takeDigits<true>(text, number.mantissa);
  if (text.starts_with(en_us::decimal_point)) {
    text.remove_prefix(1);
    number.decimals = takeDigits<false>(text, number.mantissa);
    digits += number.decimals;
  }
  const bool negative_zero = negative && number.mantissa == 0;
  if (!text.empty() || digits == 0 || digits > PlainDecimal::most_digits || negative_zero)
    return {};
  if (negative) number.mantissa = -number.mantissa;
  return number;
}

}  // namespace depcalc
