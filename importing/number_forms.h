// Numbers as spreadsheets write them where the decimal sign is another.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

enum class DecimalSign { point, comma };

/// What a number's text says about the decimal sign of its file.
enum class NumberHint {
  none,    ///< nothing: it is no number, or the same one with either
  point,   ///< only with a point it is a number
  comma,   ///< only with a comma it is a number
  either,  ///< it is two different numbers, as 1,250 is
};

/// `text` with digits and a decimal point alone, as -1250.5: without the thousands separators
/// (point, comma, apostrophe, blanks of any width, between groups of three), the currency and the
/// signs of accountants: (1,250.50) and 1,250.50- are below zero, - alone is "". Nothing where it
/// is no number that is written so.
std::optional<std::string> plainNumber(std::string_view text, DecimalSign sign);

NumberHint numberHint(std::string_view text);

}  // namespace depcalc
