// Slips that the compiler must catch. Compiles as it stands; with CASE set to one of the numbers
// it must not. Beside each slip stands what is meant.
#include <memory>
#include <string>

#include "engine/calculate_dep.h"
#include "values/currency.h"
#include "values/date.h"
#include "values/json_writer.h"
#include "values/stored_value.h"

using namespace depcalc;

[[maybe_unused]] static void money(Currency amount, double number) {
  (void)(amount + Currency::fromDouble(number));
#if CASE == 1
  (void)(amount + number);
#elif CASE == 2
  Currency wrong = 1.0;
#elif CASE == 3
  Currency wrong(10'000);
#elif CASE == 4
  number = amount;
#elif CASE == 5
  (void)(amount * amount);
#elif CASE == 6
  (void)(amount < number);
#elif CASE == 7
  amount = "1.00";
#endif
}

[[maybe_unused]] static void dates(Date date) {
  date = Date::fromDayNumber(45'000).plusDays(1);
#if CASE == 8
  date = 45'000;
#elif CASE == 9
  Date wrong(45'000);
#elif CASE == 10
  date = date + 1;
#elif CASE == 11
  date = Date(2024, 2, 29);
#elif CASE == 12
  date = std::string("02/29/2024");
#endif
}

[[maybe_unused]] static void records(const CalculateDepPtr& asset) {
  asset->AssetBasis(Currency::fromTicks(1));
#if CASE == 13
  CalculateDep copy = *asset;
#elif CASE == 14
  asset->AssetBasis(1.0);
#endif
}

[[maybe_unused]] static void storedValues() {
  StoredValue value = StoredValue::real(1.0);
#if CASE == 15
  value = 1.0;
#elif CASE == 16
  value = StoredValue::currency(1.0);
#endif
}

[[maybe_unused]] static void json(JsonWriter& writer, const std::string& name) {
  writer.name("plain").name(name);
#if CASE == 17
  writer.name("a \"quoted\" name");
#endif
}
