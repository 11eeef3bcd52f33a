#include "windows/com/variant_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "values/runtime_error.h"
#include "windows/com/com_text.h"

namespace depcalc::windows {
namespace {

class VariantValue : public testing::Test {
 protected:
  VariantValue() { VariantInit(&source); }
  ~VariantValue() override { VariantClear(&source); }

  VARIANT& number(double value) {
    VariantClear(&source);
    V_VT(&source) = VT_R8;
    V_R8(&source) = value;
    return source;
  }
  VARIANT& text(const char* value) {
    VariantClear(&source);
    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = newBstr(value);
    return source;
  }
  VARIANT& money(std::int64_t ticks) {
    VariantClear(&source);
    V_VT(&source) = VT_CY;
    V_CY(&source) = cyFrom(Currency::fromTicks(ticks));
    return source;
  }
  VARIANT& flag(bool value) {
    VariantClear(&source);
    V_VT(&source) = VT_BOOL;
    V_BOOL(&source) = value ? VARIANT_TRUE : VARIANT_FALSE;
    return source;
  }

  static int errorOf(const VARIANT& from, VARTYPE wanted) {
    Variant target;
    try {
      convertVariant(from, wanted, target.get());
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  }
  static std::int64_t ticks(const VARIANT& from) {
    Variant target;
    convertVariant(from, VT_CY, target.get());
    return currencyFrom(V_CY(&target.get())).ticks();
  }
  static std::string textOf(const VARIANT& from) {
    Variant target;
    convertVariant(from, VT_BSTR, target.get());
    return textFromBstr(V_BSTR(&target.get()));
  }
  static int longOf(const VARIANT& from) {
    Variant target;
    convertVariant(from, VT_I4, target.get());
    return V_I4(&target.get());
  }
  static double dateOf(const VARIANT& from) {
    Variant target;
    convertVariant(from, VT_DATE, target.get());
    return V_DATE(&target.get());
  }
  static bool flagOf(const VARIANT& from) {
    Variant target;
    convertVariant(from, VT_BOOL, target.get());
    return V_BOOL(&target.get()) == VARIANT_TRUE;
  }

  VARIANT source;
};

TEST_F(VariantValue, BecomesMoneyByTheCalculatorsRules) {
  EXPECT_EQ(ticks(number(0.00005)), 0);
  EXPECT_EQ(ticks(number(1250.5)), 12'505'000);
  EXPECT_EQ(ticks(text("1,234.56785")), 12'345'678);
  EXPECT_EQ(ticks(text(" -3 ")), -30'000);
  EXPECT_EQ(ticks(money(7)), 7);
  EXPECT_EQ(errorOf(text("abc"), VT_CY), 13);
  EXPECT_EQ(errorOf(number(1e300), VT_CY), 6);
}

TEST_F(VariantValue, BecomesAWholeNumberHalvesToEven) {
  EXPECT_EQ(longOf(number(2.5)), 2);
  EXPECT_EQ(longOf(number(-3.5)), -4);
  EXPECT_EQ(longOf(text("12.6")), 13);
  EXPECT_EQ(longOf(flag(true)), -1);
  EXPECT_EQ(errorOf(number(3e9), VT_I4), 6);
  EXPECT_EQ(errorOf(number(40000), VT_I2), 6);
}

TEST_F(VariantValue, BecomesADayMonthFirst) {
  EXPECT_EQ(dateOf(text("7/1/2023")), 45108);
  EXPECT_EQ(dateOf(text("2023-07-01")), 45108);
  EXPECT_EQ(dateOf(number(45108.75)), 45108);
  EXPECT_EQ(dateOf(number(-1.75)), -1);
  EXPECT_EQ(errorOf(text("13/5/2020"), VT_DATE), 13);
  EXPECT_EQ(errorOf(number(4e6), VT_DATE), 5);
  EXPECT_EQ(errorOf(number(std::numeric_limits<double>::quiet_NaN()), VT_DATE), 5);
}

TEST_F(VariantValue, BecomesATextOrAFlag) {
  EXPECT_EQ(textOf(number(0.1)), "0.1");
  EXPECT_EQ(textOf(number(5)), "5");
  EXPECT_EQ(textOf(money(12'505'000)), "1250.5");
  EXPECT_EQ(textOf(flag(false)), "False");
  EXPECT_TRUE(flagOf(text("TRUE")));
  EXPECT_FALSE(flagOf(text("0")));
  EXPECT_EQ(errorOf(text("perhaps"), VT_BOOL), 13);
}

TEST_F(VariantValue, IsReadThroughAReference) {
  double held = 41.5;
  V_VT(&source) = VT_BYREF | VT_R8;
  V_R8REF(&source) = &held;
  EXPECT_EQ(longOf(source), 42);
  V_VT(&source) = VT_EMPTY;
}

TEST_F(VariantValue, RefusesWhatHasNoValue) {
  V_VT(&source) = VT_NULL;
  for (const VARTYPE wanted : {VT_I2, VT_I4, VT_R8, VT_CY, VT_DATE, VT_BSTR, VT_BOOL})
    EXPECT_EQ(errorOf(source, wanted), 13) << wanted;
  EXPECT_EQ(errorOf(text("no object"), VT_DISPATCH), 13);
  EXPECT_EQ(errorOf(number(1), VT_ARRAY | VT_CY), 13);
}

}  // namespace
}  // namespace depcalc::windows
