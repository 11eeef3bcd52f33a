// A record's values in its text.
#include "host/stored/record_in_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>

#include "host/stored/record_text.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

/// Does to a record in its text what it does to values, and compares the two.
class Twins {
 public:
  explicit Twins(RecordValues values)
      : values_(std::move(values)), text_(SharedText(textOfRecord(values_))) {}
  Twins() = default;

  void set(const std::string& name, const StoredValue& value) {
    values_.set(name, value);
    text_.set(name, value);
  }
  void compareValue(const std::string& name) const {
    EXPECT_EQ(text_.get(name), values_.get(name)) << name;
  }
  void compareAll() const {
    EXPECT_EQ(text_.kept().view(), textOfRecord(values_));
    EXPECT_EQ(text_.names(), values_.names());
  }
  [[nodiscard]] const RecordValues& values() const { return values_; }

 private:
  RecordValues values_;
  RecordInText text_;
};

const std::vector<std::string> names{"AID",    "aid",         "AName",     "FYEnd", "FYEND", "Dep0",
                                     "Dep1",   "Dep10",       "Dep11",     "D",     "\"",    "\\",
                                     "A\":1,", "AID\":\"x",   "line\nend", "\x01",  "{",     ",",
                                     ":",      "Caf\xC3\xA9", " ",         "}",     "{}"};

StoredValue anyValue(std::mt19937& random) {
  const std::vector<StoredValue> values{
      {},
      StoredValue::integer(0),
      StoredValue::integer(-32'768),
      StoredValue::integer(32'767),
      StoredValue::real(5),
      StoredValue::real(-1.0 / 3),
      StoredValue::real(std::numeric_limits<double>::max()),
      StoredValue::real(std::numeric_limits<double>::denorm_min()),
      StoredValue::currency({}),
      StoredValue::currency(Currency::fromTicks(-1)),
      StoredValue::currency(Currency::fromTicks(12'345'678)),
      StoredValue::currency(Currency::fromTicks(999'999'999'999'999'999)),
      StoredValue::currency(Currency::fromTicks(std::numeric_limits<std::int64_t>::min())),
      StoredValue::currency(Currency::fromTicks(std::numeric_limits<std::int64_t>::max())),
      StoredValue::date({}),
      StoredValue::date(Date::strict(100, 1, 1)),
      StoredValue::date(Date::strict(2024, 2, 29)),
      StoredValue::date(Date::strict(9999, 12, 31)),
      StoredValue::text(""),
      StoredValue::text("plain"),
      StoredValue::text("\"}, {\"AID\":1}"),
      StoredValue::text(R"(\"\\)"),
      StoredValue::text(std::string("\0\n\x1f", 3)),
      StoredValue::text(std::string(3'000, '"'))};
  return values[random() % values.size()];
}

TEST(RecordInText, ReadsAndKeepsWhatValuesDo) {
  std::mt19937 random(20'240'601);
  for (int round = 0; round < 400; ++round) {
    Twins twins;
    for (auto step = random() % 60; step > 0; --step) {
      const std::string& name = names[random() % names.size()];
      if (random() % 8 == 0) twins = Twins(twins.values());
      if (random() % 8 == 0) twins.compareAll();
      if (random() % 3 == 0) {
        twins.compareValue(name);
      } else {
        twins.set(name, anyValue(random));
      }
    }
    twins.compareAll();
    for (const std::string& name : names) twins.compareValue(name);
  }
}

TEST(RecordInText, GoesThroughItsNamesInOrder) {
  Twins twins;
  for (const int life : {5, 40, 7}) {
    for (int year = 0; year <= life; ++year) {
      twins.set("Dep" + std::to_string(year), StoredValue::text(""));
    }
    for (int year = 0; year < life; ++year) {
      twins.set("Dep" + std::to_string(year),
                StoredValue::currency(Currency::fromTicks(year * std::int64_t{100'000'000})));
    }
    twins.compareAll();
    for (int year = 0; year <= life; ++year) twins.compareValue("Dep" + std::to_string(year));
  }
}

TEST(RecordInText, IsNotChangedByWhatCannotBeKept) {
  RecordInText record;
  record.set("A", StoredValue::integer(1));
  EXPECT_THROW(record.set("", StoredValue::integer(1)), RuntimeError);
  EXPECT_THROW(record.set("A", StoredValue::real(std::numeric_limits<double>::infinity())),
               RuntimeError);
  EXPECT_EQ(record.kept().view(), R"({"A":1})");
}

TEST(RecordInText, KeepsItsTextWhenACopyOfItGoesOn) {
  RecordInText record;
  record.set("A", StoredValue::integer(1));
  const SharedText before = record.kept();
  record.set("A", StoredValue::integer(2));
  record.set("B", StoredValue::integer(3));
  EXPECT_EQ(before.view(), R"({"A":1})");
  EXPECT_EQ(record.kept().view(), R"({"A":2,"B":3})");
}

TEST(RecordInText, TakesNoPieceOfItsTextForAName) {
  RecordInText record;
  record.set("A", StoredValue::integer(1));
  record.set("B", StoredValue::integer(2));
  record.set(R"(C\D)", StoredValue::integer(3));
  const RecordInText read(record.kept());
  EXPECT_EQ(read.get(R"(A":1,"B)"), StoredValue());
  EXPECT_EQ(read.get("B"), StoredValue::integer(2));
  EXPECT_EQ(read.get(R"(C\\D)"), StoredValue());
  EXPECT_EQ(read.get(R"(C\D)"), StoredValue::integer(3));
}

TEST(RecordInText, RefusesWhatIsNotItsOwn) {
  for (const char* text : {"", "{", "}", "{x}", "[]", "{}x", "{\"a\"}", "{\"a\":}", "{\"a\":1,}",
                           "{\"a\":1.5x}", "{\"a\":99999}", "{\"a\":tru}", "{\"a\":\"\\x\"}",
                           "{\"a\":\"}", "{\"a\":\"x\"y}", "{\"a\":{\"date\":\"2024-13-01\"}}",
                           "{\"a\":{\"date\":\"2024-01-01\"}", "{\"a\":{\"date\":\"2024}"}) {
    EXPECT_THROW(
        {
          const RecordInText record{SharedText(text)};
          (void)record.get("a");
          (void)record.get("b");
        },
        RuntimeError)
        << text;
  }
}

}  // namespace
}  // namespace depcalc
