#include "importing/number_forms.h"

#include <algorithm>
#include <array>

#include "values/text.h"

namespace depcalc {
namespace {

/// Currencies that are signs; codes are three capital letters.
constexpr std::array<std::string_view, 10> currency_signs{"$",   "€", "£",  "¥",  "₹",
                                                          "₽", "₺", "zł", "kr", "Fr."};
constexpr std::array<std::string_view, 4> other_minuses{"−", "–", "—", "‑"};
constexpr std::array<std::string_view, 5> wide_blanks{"\u00A0", "\u202F", "\u2009", "\u2007",
                                                      "\u2008"};
constexpr std::array<std::string_view, 3> apostrophes{"’", "`", "´"};

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

template <std::size_t Count>
void replaceAll(std::string& text, const std::array<std::string_view, Count>& marks,
                std::string_view by) {
  for (const std::string_view mark : marks) {
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) {
      text.replace(at, mark.size(), by);
    }
  }
}

bool isCurrencyCode(std::string_view text) {
  return text.size() == 3 &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

std::string_view withoutCurrency(std::string_view text) {
  const auto strip = [&](std::string_view sign) {
    if (text.starts_with(sign)) {
      text.remove_prefix(sign.size());
    } else if (text.ends_with(sign)) {
      text.remove_suffix(sign.size());
    }
    text = trimmed(text);
  };
  for (const std::string_view sign : currency_signs) strip(sign);
  if (isCurrencyCode(text.substr(0, 3))) strip(text.substr(0, 3));
  if (text.size() > 3 && isCurrencyCode(text.substr(text.size() - 3))) {
    strip(text.substr(text.size() - 3));
  }
  return text;
}

/// A number's parts: its sign, and what stands between its digits.
struct Body {
  bool negative = false;
  std::string digits;  ///< with the separators, which are of ASCII
};

/// A sign before or behind `text`, which loses it.
bool takesSign(std::string_view& text) {
  const bool before = text.starts_with('-');
  const bool behind = !before && text.ends_with('-');
  if (before || text.starts_with('+')) text.remove_prefix(1);
  if (behind) text.remove_suffix(1);
  text = trimmed(text);
  return before || behind;
}

Body bodyOf(std::string_view text) {
  std::string plain(text);
  replaceAll(plain, wide_blanks, " ");
  replaceAll(plain, apostrophes, "'");
  replaceAll(plain, other_minuses, "-");
  std::string_view rest = trimmed(plain);
  bool negative = rest.size() > 2 && rest.front() == '(' && rest.back() == ')';
  if (negative) rest = trimmed(rest.substr(1, rest.size() - 2));
  // Either stands before the other: -$5 and $-5.
  const bool before_currency = !negative && takesSign(rest);
  rest = withoutCurrency(rest);
  negative = negative || before_currency || takesSign(rest);
  return {negative, std::string(rest)};
}

/// The digits of groups parted by one separator: one to three, then three each.
std::optional<std::string> ungrouped(std::string_view whole, char decimal) {
  const auto separator_at = std::find_if_not(whole.begin(), whole.end(), isDigit);
  if (separator_at == whole.end()) return std::string(whole);
  const char separator = *separator_at;
  const bool known = separator == ' ' || separator == '\'' || separator == '.' || separator == ',';
  const auto first = static_cast<std::size_t>(separator_at - whole.begin());
  if (!known || separator == decimal || first == 0 || first > 3) return std::nullopt;
  std::string digits(whole.substr(0, first));
  for (std::size_t at = first; at < whole.size(); at += 4) {
    const std::string_view group = whole.substr(at + 1, 3);
    const bool good = whole[at] == separator && group.size() == 3 &&
                      std::all_of(group.begin(), group.end(), isDigit);
    if (!good) return std::nullopt;
    digits.append(group);
  }
  return digits;
}

/// Digits, or digits and an exponent.
bool isFraction(std::string_view text) {
  const std::size_t mantissa = std::min(text.find_first_of("eE"), text.size());
  std::string_view exponent = text.substr(mantissa);
  if (!exponent.empty()) exponent.remove_prefix(1);
  if (exponent.starts_with('+') || exponent.starts_with('-')) exponent.remove_prefix(1);
  const bool has_exponent = mantissa < text.size();
  const auto all_digits = [](std::string_view digits) {
    return std::all_of(digits.begin(), digits.end(), isDigit);
  };
  return all_digits(text.substr(0, mantissa)) && all_digits(exponent) &&
         has_exponent == !exponent.empty();
}

std::optional<std::string> readAs(const Body& body, DecimalSign sign) {
  const char decimal = sign == DecimalSign::point ? '.' : ',';
  const std::string_view text = body.digits;
  const std::size_t end = std::min(text.find_first_of(decimal == '.' ? ".eE" : ",eE"), text.size());
  std::string_view fraction = text.substr(end);
  const bool has_fraction = fraction.starts_with(decimal);
  if (has_fraction) fraction.remove_prefix(1);
  const auto whole = ungrouped(text.substr(0, end), decimal);
  if (!whole || !isFraction(fraction)) return std::nullopt;
  if (whole->empty() && (fraction.empty() || !isDigit(fraction.front()))) return std::nullopt;
  std::string number(body.negative ? "-" : "");
  number.append(*whole).append(has_fraction && !fraction.empty() ? "." : "").append(fraction);
  return number;
}

}  // namespace

std::optional<std::string> plainNumber(std::string_view text, DecimalSign sign) {
  const Body body = bodyOf(text);
  // An accountant's nothing.
  if (body.digits.empty() && (body.negative || trimmed(text).empty())) return "";
  return readAs(body, sign);
}

NumberHint numberHint(std::string_view text) {
  const Body body = bodyOf(text);
  const auto with_point = readAs(body, DecimalSign::point);
  const auto with_comma = readAs(body, DecimalSign::comma);
  if (with_point == with_comma) return NumberHint::none;
  if (!with_comma) return NumberHint::point;
  return with_point ? NumberHint::either : NumberHint::comma;
}

}  // namespace depcalc
