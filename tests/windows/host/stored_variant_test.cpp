// Stored values to automation's and back.
#include "windows/host/stored_variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/error_of.h"
#include "windows/com/com_text.h"

namespace depcalc {
namespace {

VARIANT variantWith(VARTYPE type, LONGLONG bits) {
  VARIANT variant{};
  variant.vt = type;
  variant.llVal = bits;
  return variant;
}

VARIANT ofDouble(VARTYPE type, double value) {
  VARIANT variant{};
  variant.vt = type;
  variant.dblVal = value;
  return variant;
}

TEST(StoredVariant, CarriesEveryTypeAndComesBack) {
  struct Case {
    StoredValue value;
    VARTYPE type;
  };
  const std::vector<Case> cases{
      {StoredValue(), VT_EMPTY},
      {StoredValue::integer(-32768), VT_I2},
      {StoredValue::integer(32767), VT_I2},
      {StoredValue::real(-0.0), VT_R8},
      {StoredValue::real(std::numeric_limits<double>::denorm_min()), VT_R8},
      {StoredValue::currency(Currency::fromTicks(std::numeric_limits<std::int64_t>::min())), VT_CY},
      {StoredValue::currency(Currency::fromTicks(-1)), VT_CY},
      {StoredValue::date(Date()), VT_DATE},
      {StoredValue::date(Date::strict(100, 1, 1)), VT_DATE},
      {StoredValue::date(Date::strict(9999, 12, 31)), VT_DATE},
      {StoredValue::text(""), VT_BSTR},
      {StoredValue::text(std::string("a\0b", 3)), VT_BSTR},
      {StoredValue::text("caf\xC3\xA9 \xF0\x9F\x93\x92"), VT_BSTR},
      {StoredValue::text(std::string(1'000'000, 'x')), VT_BSTR},
  };
  for (const Case& each : cases) {
    const OwnedVariant variant = variantOf(each.value);
    EXPECT_EQ(variant.type(), each.type);
    const StoredValue back = storedValueOf(variant.get());
    EXPECT_TRUE(back == each.value) << each.value.typeName() << " " << back.asText();
    if (each.type == VT_R8) {
      EXPECT_EQ(std::signbit(back.get<double>()), std::signbit(each.value.get<double>()));
    }
  }
}

TEST(StoredVariant, CarriesMoneyAndDaysAsTheyAreCounted) {
  const OwnedVariant money = variantOf(StoredValue::currency(Currency::fromText("1250.5")));
  EXPECT_EQ(money.get().cyVal.int64, 12'505'000);
  const OwnedVariant day = variantOf(StoredValue::date(Date::strict(1899, 12, 29)));
  EXPECT_EQ(day.get().date, -1.0);
}

TEST(StoredVariant, ReadsTheNumbersOfOtherHosts) {
  struct Case {
    VARIANT variant;
    StoredValue value;
  };
  const std::vector<Case> cases{
      {variantWith(VT_NULL, 0), StoredValue()},
      {variantWith(VT_I1, 0xFF), StoredValue::integer(-1)},
      {variantWith(VT_UI1, 255), StoredValue::integer(255)},
      {variantWith(VT_UI2, 65'535), StoredValue::real(65'535)},
      {variantWith(VT_I4, 2024), StoredValue::integer(2024)},
      {variantWith(VT_I4, -32'769), StoredValue::real(-32'769)},
      {variantWith(VT_INT, 32'768), StoredValue::real(32'768)},
      {variantWith(VT_UI4, 0xFFFFFFFF), StoredValue::real(4'294'967'295)},
      {variantWith(VT_I8, -1), StoredValue::integer(-1)},
      {variantWith(VT_UI8, -1), StoredValue::real(18'446'744'073'709'551'615.0)},
      {variantWith(VT_BOOL, 0xFFFF), StoredValue::integer(-1)},
      {variantWith(VT_BOOL, 0), StoredValue::integer(0)},
      {ofDouble(VT_DATE, 45'000.75), StoredValue::date(Date::fromDayNumber(45'000))},
      {ofDouble(VT_DATE, -1.25), StoredValue::date(Date::fromDayNumber(-1))},
  };
  for (const Case& each : cases) {
    EXPECT_TRUE(storedValueOf(each.variant) == each.value)
        << each.variant.vt << " " << storedValueOf(each.variant).asText();
  }
}

TEST(StoredVariant, ReadsSinglesAndDecimals) {
  VARIANT single{};
  single.vt = VT_R4;
  single.fltVal = 0.5F;
  EXPECT_TRUE(storedValueOf(single) == StoredValue::real(0.5));
  VARIANT decimal{};
  ASSERT_EQ(VarDecFromR8(1250.25, &decimal.decVal), S_OK);
  decimal.vt = VT_DECIMAL;
  EXPECT_TRUE(storedValueOf(decimal) == StoredValue::real(1250.25));
}

TEST(StoredVariant, ReadsThroughAReference) {
  VARIANT inner = variantWith(VT_I2, 7);
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_VARIANT;
  reference.pvarVal = &inner;
  EXPECT_TRUE(storedValueOf(reference) == StoredValue::integer(7));
  BSTR text = newBstr("seven");
  reference.vt = VT_BYREF | VT_BSTR;
  reference.pbstrVal = &text;
  EXPECT_TRUE(storedValueOf(reference) == StoredValue::text("seven"));
  SysFreeString(text);
}

TEST(StoredVariant, RefusesWhatIsNoValue) {
  EXPECT_EQ(errorOf([] { (void)storedValueOf(variantWith(VT_DISPATCH, 0)); }), 13);
  EXPECT_EQ(errorOf([] { (void)storedValueOf(variantWith(VT_ERROR, DISP_E_PARAMNOTFOUND)); }), 13);
  EXPECT_EQ(errorOf([] { (void)storedValueOf(variantWith(VT_ARRAY | VT_I2, 0)); }), 13);
  EXPECT_EQ(errorOf([] { (void)storedValueOf(ofDouble(VT_DATE, 3'000'000)); }), 5);
  EXPECT_EQ(errorOf([] { (void)storedValueOf(ofDouble(VT_DATE, 1e300)); }), 5);
  EXPECT_EQ(errorOf([] { (void)storedValueOf(ofDouble(VT_DATE, std::nan(""))); }), 5);
}

}  // namespace
}  // namespace depcalc
