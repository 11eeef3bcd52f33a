#include "importing/csv_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <random>

#include "tests/support/text_source.h"

namespace depcalc {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using Records = std::vector<std::vector<std::string>>;
using testing::ElementsAre;
using Outcome = CsvReader::Outcome;

std::string shown(CsvPlace place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column);
}

/// Everything read from `text`; a problem is a record "!", its place, its message.
Records readAll(std::string_view text, std::size_t piece = 65'536, CsvLimits limits = {},
                char separator = ',') {
  TextSource source(text, piece);
  CsvReader reader(source, {.separator = separator, .limits = limits});
  Records records;
  for (Outcome outcome = reader.next(); outcome != Outcome::end; outcome = reader.next()) {
    auto& record = records.emplace_back();
    if (outcome == Outcome::problem) {
      record = {"!", shown(reader.problem().place), reader.problem().message};
    } else {
      for (const CsvField& field : reader.record()) record.emplace_back(field.text);
    }
  }
  return records;
}

struct Case {
  std::string text;
  Records records;
};

void expectRecords(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    for (const auto piece : std::initializer_list<std::size_t>{1, 2, 3, 65'536}) {
      EXPECT_EQ(readAll(c.text, piece), c.records)
          << testing::PrintToString(c.text) << " in pieces of " << piece;
    }
  }
}

TEST(CsvReader, ReadsWhatTheFormatAllows) {
  expectRecords({
      {"", {}},
      {"\n\r\n\r", {}},
      {"a", {{"a"}}},
      {"a,b\n", {{"a", "b"}}},
      {"a,b\nc,d", {{"a", "b"}, {"c", "d"}}},
      {"a\r\nb\rc\nd", {{"a"}, {"b"}, {"c"}, {"d"}}},
      {"a\n\n\r\nb\n", {{"a"}, {"b"}}},
      {",\n", {{"", ""}}},
      {"a,", {{"a", ""}}},
      {"\"\"\n", {{""}}},
      {"\"a,b\",c", {{"a,b", "c"}}},
      {"\"say \"\"hi\"\"\"", {{"say \"hi\""}}},
      {"\"\"\"\"", {{"\""}}},
      {"\"one\ntwo\r\nthree\rfour\",x\ny", {{"one\ntwo\r\nthree\rfour", "x"}, {"y"}}},
      {" a , b ", {{" a ", " b "}}},
      {"\xEF\xBB\xBF"
       "a,b",
       {{"a", "b"}}},
      {"\xEF\xBB\xBF", {}},
      {"\xEF\xBB\xBF\"a\"", {{"a"}}},
      {"a\xEF\xBB\xBF", {{"a\xEF\xBB\xBF"}}},
      {"caf\xC3\xA9,\xE2\x82\xAC,\xF0\x9F\x9A\x9A",
       {{"caf\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x9A\x9A"}}},
      {"tab\tand\x7F", {{"tab\tand\x7F"}}},
  });
}

constexpr const char* open_quote =
    "The quote opened here is never closed; please add the closing quote.";
constexpr const char* stray_quote =
    "A quote appears inside an unquoted field; please enclose the whole field in quotes and double "
    "the quotes inside it.";
constexpr const char* behind_quote =
    "Text follows the closing quote of the field; please double quotes that appear inside.";
constexpr const char* not_utf8 = "The text is not UTF-8; please save it as UTF-8.";
constexpr const char* nul =
    "The file contains a NUL character; please save it as plain UTF-8 text.";

TEST(CsvReader, SaysWhereARecordIsBrokenAndReadsOn) {
  expectRecords({
      {"a\nb,\"c\nd", {{"a"}, {"!", "2:3", open_quote}}},
      {"a,b\"c\nd", {{"!", "1:4", stray_quote}, {"d"}}},
      {"a, \"b\"\nd", {{"!", "1:4", stray_quote}, {"d"}}},
      {"\"a\"b,c\nd", {{"!", "1:4", behind_quote}, {"d"}}},
      {"\"a\" ,c\nd", {{"!", "1:4", behind_quote}, {"d"}}},
      {"\"one\ntwo\"x\nd", {{"!", "2:5", behind_quote}, {"d"}}},
      {"a,b\0c\nd"s, {{"!", "1:4", nul}, {"d"}}},
      {"\"a\r\n\0\"\nd"s, {{"!", "2:1", nul}, {"d"}}},
      {"\"a\r\0\"\nd"s, {{"!", "2:1", nul}, {"d"}}},
      {"\0"s, {{"!", "1:1", nul}}},
      {"\xC3\xA9\xC3\xA9\0"s, {{"!", "1:3", nul}}},
      {"a\xFF\xFE\nd", {{"!", "1:2", not_utf8}, {"d"}}},
      {"a,\xC3\nd", {{"!", "1:3", not_utf8}, {"d"}}},
      {"\xE2\x82,b\nd", {{"!", "1:1", not_utf8}, {"d"}}},
      {"d\n\xE2\x82", {{"d"}, {"!", "2:1", not_utf8}}},
      {"x\xC0\xAF", {{"!", "1:2", not_utf8}}},
      {"x\xE0\x9F\xBF", {{"!", "1:2", not_utf8}}},
      {"x\xED\xA0\x80", {{"!", "1:2", not_utf8}}},
      {"x\xF0\x8F\xBF\xBF", {{"!", "1:2", not_utf8}}},
      {"x\xF4\x90\x80\x80", {{"!", "1:2", not_utf8}}},
      {"x\xF5\x80\x80\x80", {{"!", "1:2", not_utf8}}},
      {"x\x80", {{"!", "1:2", not_utf8}}},
  });
}

TEST(CsvReader, RefusesOtherEncodingsAtTheirMark) {
  const auto refused = [](const char* encoding) {
    const std::string message = "The text is in "s + encoding + "; please save it as UTF-8.";
    return Records{{"!", "1:1", message}};
  };
  expectRecords({
      {"\xFF\xFE"
       "a\0,\0"s,
       refused("UTF-16")},
      {"\xFE\xFF\0a\0,"s, refused("UTF-16")},
      {"\xFF\xFE"s, refused("UTF-16")},
      {"\xFF\xFE\0\0a\0\0\0"s, refused("UTF-32")},
      {"\0\0\xFE\xFF\0\0\0a"s, refused("UTF-32")},
      {"+/v8-id,life", refused("UTF-7")},
      {"+/v9", refused("UTF-7")},
      {"+/v+", refused("UTF-7")},
      {"+/v/", refused("UTF-7")},
      {"\xF7\x64\x4C,", refused("UTF-1")},
      {"\xDD\x73\x66\x73,", refused("UTF-EBCDIC")},
      {"\x0E\xFE\xFF,", refused("SCSU")},
      {"\xFB\xEE\x28,", refused("BOCU-1")},
      {"\x84\x31\x95\x33,", refused("GB 18030")},
  });
}

TEST(CsvReader, SkipsOneMarkAtTheBeginningAndNoneLater) {
  const std::string mark = "\xEF\xBB\xBF";
  expectRecords({
      {mark + mark + "a", {{mark + "a"}}},
      {mark + "\r\n" + mark + "a", {{mark + "a"}}},
      {"a\n\xFF\xFE", {{"a"}, {"!", "2:1", not_utf8}}},
      {"+/v", {{"+/v"}}},
      {"\xEF\xBB", {{"!", "1:1", not_utf8}}},
  });
}

TEST(CsvReader, BoundsWhatARecordMayTake) {
  const CsvLimits limits{.field_bytes = 5, .record_bytes = 8, .fields = 4};
  const auto read = [&](std::string_view text) { return readAll(text, 2, limits); };
  EXPECT_EQ(read("12345,678\n1"), (Records{{"12345", "678"}, {"1"}}));
  EXPECT_EQ(read("1,123456,\n1"),
            (Records{{"!", "1:3", "The field is longer than 5 bytes."}, {"1"}}));
  EXPECT_EQ(read("\"123\n56\"\n1"),
            (Records{{"!", "1:1", "The field is longer than 5 bytes."}, {"1"}}));
  EXPECT_EQ(read("1\n2,\"3456789\n1"), (Records{{"1"}, {"!", "2:3", open_quote}}));
  EXPECT_EQ(read("12345,6789\n1"),
            (Records{{"!", "1:1", "The record is longer than 8 bytes."}, {"1"}}));
  EXPECT_EQ(read(",,,\n1"), (Records{{"", "", "", ""}, {"1"}}));
  EXPECT_EQ(read(",,,,\n1"), (Records{{"!", "1:5", "The record has more than 4 fields."}, {"1"}}));
  EXPECT_EQ(readAll(std::string(65'537, 'x')),
            (Records{{"!", "1:1", "The field is longer than 65,536 bytes."}}));
}

TEST(CsvReader, KnowsThePlaceOfEveryField) {
  TextSource source("\xEF\xBB\xBF\n\xC3\xA9,b,\"c\nd\",e\r\nf,g");
  CsvReader reader(source);
  std::vector<std::string> places;
  while (reader.next() == Outcome::record) {
    for (const CsvField& field : reader.record()) places.push_back(shown(field.place));
  }
  EXPECT_THAT(places, ElementsAre("2:1", "2:3", "2:5", "3:4", "4:1", "4:3"));
}

TEST(CsvReader, NeverTakesACutOffRecordForAWholeOne) {
  for (const std::string text : {"", "a,b\nc,d", "a,b\n\"c", "a,b\n"}) {
    TextSource source(text, 3, true);
    CsvReader reader(source);
    Outcome outcome = reader.next();
    while (outcome == Outcome::record) {
      EXPECT_EQ(reader.record().front().text, "a");
      outcome = reader.next();
    }
    EXPECT_EQ(outcome, Outcome::unreadable) << text;
  }
}

/// Everything that is told of `text`, places and texts, by a reader that gets it in such pieces.
std::vector<std::string> told(std::string_view text, const CsvForm& form, std::size_t piece) {
  TextSource source(text, piece);
  CsvReader reader(source, form, 7);
  std::vector<std::string> lines;
  for (Outcome outcome = reader.next(); outcome != Outcome::end; outcome = reader.next()) {
    std::string& line = lines.emplace_back();
    if (outcome == Outcome::problem)
      line = shown(reader.problem().place) + ' ' + reader.problem().message;
    if (outcome == Outcome::record) {
      for (const CsvField& field : reader.record())
        line += shown(field.place) + '[' + std::string(field.text) + ']';
    }
  }
  return lines;
}

std::string mostlyPlainText(std::mt19937& random) {
  static constexpr std::string_view usual = "abc 12.,;,;,;\n\n";
  static constexpr std::string_view unusual = "\"\"\"\r\t\x1F\x7F\xC3\xA9\0"sv;
  std::string text(random() % 80, ' ');
  for (char& byte : text) {
    const std::string_view bytes = random() % 16 == 0 ? unusual : usual;
    byte = bytes[random() % bytes.size()];
  }
  return text;
}

/// Some fields in quotes, as they should be.
std::string withQuotedFields(std::string text, std::mt19937& random) {
  for (std::size_t at = text.find_first_of(",;\n"); at < text.size();
       at = text.find_first_of(",;\n", at + 1)) {
    if (random() % 4 == 0) text.replace(at, 1, std::string(1, text[at]) + "\"x;,y\"" + text[at]);
  }
  return text;
}

// Byte by byte no record lies in the buffer whole, so that each goes the long way.
TEST(CsvReader, ReadsPlainRecordsTheShortWayAsTheLongWay) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int short_ways = 0;
  for (int i = 0; i < 60'000; ++i) {
    const std::string text = withQuotedFields(mostlyPlainText(random), random);
    CsvForm form{.separator = random() % 2 == 0 ? ',' : ';'};
    if (random() % 2 == 0)
      form.limits = {
          .field_bytes = 3 + random() % 6, .record_bytes = 12 + random() % 9, .fields = 4};
    const std::size_t piece = random() % 2 == 0 ? text.size() + 1 : 2 + random() % 40;
    ASSERT_EQ(told(text, form, piece), told(text, form, 1))
        << testing::PrintToString(text) << " in pieces of " << piece << ", separated by "
        << form.separator << ", fields of " << form.limits.field_bytes << " bytes, records of "
        << form.limits.record_bytes;
    std::vector<CsvField> fields;
    short_ways += PlainRecords(form).read(text, {}, fields) > 1 ? 1 : 0;
  }
  EXPECT_GT(short_ways, 15'000);
}

std::string quoted(const std::string& field) {
  std::string text = "\"";
  for (const char c : field) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

RC_GTEST_PROP(CsvReaderProperty, ReadsBackWhatWasQuoted, ()) {
  const auto character = rc::gen::weightedElement<std::string>({{8, "a"},
                                                                {2, ","},
                                                                {2, "\""},
                                                                {1, "\n"},
                                                                {1, "\r"},
                                                                {1, "\r\n"},
                                                                {1, " "},
                                                                {1, "\xC3\xA9"}});
  const auto field = rc::gen::map(rc::gen::container<std::vector<std::string>>(character),
                                  [](const auto& characters) {
                                    std::string text;
                                    for (const auto& c : characters) text += c;
                                    return text;
                                  });
  const auto record = rc::gen::nonEmpty(rc::gen::container<std::vector<std::string>>(field));
  const Records records = *rc::gen::resize(12, rc::gen::container<Records>(record));
  const std::string line_end = *rc::gen::element<std::string>("\n", "\r\n", "\r");
  std::string text;
  for (const auto& fields : records) {
    for (std::size_t i = 0; i < fields.size(); ++i) text += (i > 0 ? "," : "") + quoted(fields[i]);
    text += line_end;
  }
  RC_ASSERT(readAll(text, *rc::gen::inRange<std::size_t>(1, 9)) == records);
}

}  // namespace
}  // namespace depcalc
