// Assets written in any dialect come back as they were.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>

#include "importing/asset_import.h"
#include "values/data_text.h"

namespace depcalc {
namespace {

struct Dialect {
  char separator;
  char decimal;
  const char* thousands;
  DateOrder dates;
  char date_separator;
  Encoding encoding;
  const char* currency;
};

constexpr std::array<Dialect, 8> dialects{{
    {',', '.', ",", DateOrder::month_day_year, '/', Encoding::utf8, ""},
    {',', '.', ",", DateOrder::day_month_year, '/', Encoding::windows_1252, " £"},
    {';', ',', ".", DateOrder::day_month_year, '.', Encoding::windows_1252, " €"},
    {';', ',', "\u00A0", DateOrder::day_month_year, '/', Encoding::windows_1252, " €"},
    {';', '.', "'", DateOrder::day_month_year, '.', Encoding::utf8, ""},
    {'\t', '.', ",", DateOrder::month_day_year, '/', Encoding::utf16_le, ""},
    {'\t', ',', ".", DateOrder::day_month_year, '.', Encoding::utf16_be, ""},
    {'|', '.', "", DateOrder::year_month_day, '-', Encoding::utf8, ""},
}};

struct Sample {
  std::string id;
  std::string name;
  Date date;
  int life = 0;
  std::int64_t cents = 0;
};

std::string padded(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string dateIn(const Dialect& dialect, Date date) {
  const auto [year, month, day] = date.parts();
  const std::string d = padded(day, 2);
  const std::string m = padded(month, 2);
  const std::string between(1, dialect.date_separator);
  if (dialect.dates == DateOrder::year_month_day)
    return padded(year, 4) + between + m + between + d;
  return (dialect.dates == DateOrder::month_day_year ? m + between + d : d + between + m) +
         between + padded(year, 4);
}

std::string amountIn(const Dialect& dialect, std::int64_t cents) {
  std::string whole = std::to_string(cents / 100);
  for (std::size_t at = whole.size(); at > 3;) whole.insert(at -= 3, dialect.thousands);
  return whole + dialect.decimal + padded(static_cast<int>(cents % 100), 2) + dialect.currency;
}

std::string fieldIn(const Dialect& dialect, const std::string& text) {
  const bool quoted =
      text.find_first_of(std::string("\"\r\n") + dialect.separator) != std::string::npos;
  if (!quoted) return text;
  std::string field = "\"";
  for (const char c : text) field.append(c == '"' ? 2 : 1, c);
  return field + '"';
}

/// All texts are of Latin-1 and the euro.
std::string encoded(const std::string& text, Encoding encoding) {
  std::string bytes;
  if (encoding == Encoding::utf8) return text;
  if (encoding == Encoding::utf16_le) bytes = "\xFF\xFE";
  if (encoding == Encoding::utf16_be) bytes = "\xFE\xFF";
  for (std::string_view rest = text; !rest.empty();) {
    const Utf8Character character = decodedFirst(rest);
    rest.remove_prefix(character.length);
    const auto low = static_cast<char>(character.code & 0xFF);
    const auto high = static_cast<char>(character.code >> 8);
    if (encoding == Encoding::utf16_le) {
      bytes.append({low, high});
    } else if (encoding == Encoding::utf16_be) {
      bytes.append({high, low});
    } else {
      bytes.push_back(character.code == U'€' ? '\x80' : low);
    }
  }
  return bytes;
}

std::string fileOf(const Dialect& dialect, const std::vector<Sample>& samples) {
  const std::string s(1, dialect.separator);
  std::string text =
      "Asset No" + s + "Description" + s + "Purchase date" + s + "Useful life" + s + "Cost\r\n";
  for (const Sample& sample : samples) {
    text += fieldIn(dialect, sample.id) + s + fieldIn(dialect, sample.name) + s +
            dateIn(dialect, sample.date) + s + std::to_string(sample.life) + s +
            fieldIn(dialect, amountIn(dialect, sample.cents)) + "\r\n";
  }
  return encoded(text, dialect.encoding);
}

std::vector<Sample> anySamples() {
  std::vector<Sample> samples;
  const int count = *rc::gen::inRange(1, 30);
  const auto letter = rc::gen::elementOf(std::vector<std::string>{
      "a", "B", "7", "ü", "é", "ß", "Ñ", ",", ";", "|", "\t", "\"", " ", "-", "€"});
  const int first = Date::strict(1980, 1, 1).dayNumber();
  const int last = Date::strict(2060, 12, 31).dayNumber();
  for (int i = 0; i < count; ++i) {
    Sample sample{"A" + std::to_string(i), "Name ",
                  Date::fromDayNumber(*rc::gen::inRange(first, last)), *rc::gen::inRange(1, 51),
                  *rc::gen::inRange(1, 999'999'999)};
    for (int letters = *rc::gen::inRange(0, 12); letters > 0; --letters) sample.name += *letter;
    samples.push_back(sample);
  }
  return samples;
}

RC_GTEST_PROP(Dialects, GiveBackTheAssetsThatWereWrittenInThem, ()) {
  const Dialect& dialect = dialects[*rc::gen::inRange<std::size_t>(0, dialects.size())];
  const std::vector<Sample> samples = anySamples();
  AssetImport import(fileOf(dialect, samples),
                     {Date::strict(2024, 6, 15), Date::strict(2024, 12, 31), 0}, {}, {});
  while (import.goOn(100)) {
  }
  if (!import.questions().date.empty()) {
    import.setDates(dialect.dates);
    while (import.goOn(100)) {
    }
  }
  RC_ASSERT(import.questions().number.empty());
  RC_ASSERT(import.counts().ready == samples.size());
  const auto assets = import.assets();
  for (std::size_t i = 0; i < samples.size(); ++i) {
    RC_ASSERT(assets[i]->AssetID() == samples[i].id);
    RC_ASSERT(assets[i]->AssetName() == samples[i].name);
    RC_ASSERT(assets[i]->AssetStartDate() == samples[i].date);
    RC_ASSERT(assets[i]->DepRecovery() == samples[i].life);
    RC_ASSERT(assets[i]->AssetBasis() == Currency::fromTicks(samples[i].cents * 100));
  }
}

}  // namespace
}  // namespace depcalc
