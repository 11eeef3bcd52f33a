// Any text as a number: the parsers agree with each other, and what is printed is read back.
#include <cstdint>
#include <string>

#include "tests/fuzz/property.h"
#include "values/currency.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

/// The error number that `read` ends with, 0 for none.
template <typename Read>
int errorOf(Read read) {
  try {
    read();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

void checkNumber(double number) {
  const std::string text = numberToText(number);
  const auto back = tryNumberFromText(text);
  mustHold(back.has_value(), "a printed number is numeric");
  mustHold(numberToText(*back) == text, "a printed number prints the same again");
  mustHold(isNumeric(formatMoney(number)), "money as shown is numeric");
  mustHold(isNumeric(formatWhole(number)), "whole units as shown are numeric");
}

void checkAmount(Currency amount) {
  mustHold(Currency::fromText(amount.toText()) == amount, "an amount's text is the amount");
  mustHold(Currency::fromText(amount.toFixed4()) == amount, "so it is with four decimals");
  mustHold(isNumeric(formatRate(amount)), "a rate as shown is numeric");
}

void check(std::string_view text) {
  const auto number = tryNumberFromText(text);
  mustHold(isNumeric(text) == number.has_value(), "numeric is what can be read");
  mustHold(errorOf([&] { (void)numberFromText(text); }) == (number ? 0 : 13), "error 13 else");
  if (number) checkNumber(*number);
  const int error = errorOf([&] { checkAmount(Currency::fromText(text)); });
  mustHold(number ? error == 0 || error == 6 : error == 13, "an amount is a number in range");
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  depcalc::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
