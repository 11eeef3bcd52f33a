// Numbers as texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

/// Whether a text is a number: surrounding blanks, an optional leading sign, digits with
/// thousands separators anywhere in the integer part, one decimal point, an optional exponent
/// (e or E, optional sign, digits), at least one digit before the exponent. Nothing else, and
/// nothing too large for a double.
bool isNumeric(std::string_view text);

/// The number that the text says, correctly rounded. Not numeric: error 13.
double numberFromText(std::string_view text);

/// The same, empty when the text is not numeric.
std::optional<double> tryNumberFromText(std::string_view text);

/// At most 15 significant digits, trailing zeros dropped; fixed where that needs at most 15
/// digits before and 15 after the point, else d.dddE+dd: 5, 0.1, 1E+15, 3.33333333333333E-02.
/// Not finite: error 6.
std::string numberToText(double value);

/// The shortest text with an exponent that reads back as exactly this number: 5e+00, 1e-01. Not
/// finite: error 6.
std::string exactNumberText(double value);

/// The same with an exponent only where that is shorter: 5, 0.1, 1e+22.
std::string shortestNumberText(double value);

/// The same without an exponent, however long: 5, 0.1, 10000000000000000000000. Not finite:
/// error 6.
std::string plainNumberText(double value);

}  // namespace depcalc
