// How files write numbers, dates, letters and the names of their columns.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "importing/date_forms.h"
#include "importing/header_words.h"
#include "importing/number_forms.h"
#include "importing/text_encoding.h"

namespace depcalc {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

TEST(NumberForms, AreReadByTheirDecimalSign) {
  constexpr const char* none = nullptr;
  const struct {
    const char* text;
    const char* with_point;
    const char* with_comma;
    NumberHint hint;
  } cases[] = {
      {"1250", "1250", "1250", NumberHint::none},
      {"1250.50", "1250.50", none, NumberHint::point},
      {"1250,50", none, "1250.50", NumberHint::comma},
      {"1,234.56", "1234.56", none, NumberHint::point},
      {"1.234,56", none, "1234.56", NumberHint::comma},
      {"1 234,56", none, "1234.56", NumberHint::comma},
      {"1\u00A0234,56", none, "1234.56", NumberHint::comma},
      {"1\u202F234\u202F567,8", none, "1234567.8", NumberHint::comma},
      {"1'234.56", "1234.56", none, NumberHint::point},
      {"1’234’567.00", "1234567.00", none, NumberHint::point},
      {"12.345.678", none, "12345678", NumberHint::comma},
      {"1,250", "1250", "1.250", NumberHint::either},
      {"1.250", "1.250", "1250", NumberHint::either},
      {"0,5", none, "0.5", NumberHint::comma},
      {".5", ".5", none, NumberHint::point},
      {"5.", "5", none, NumberHint::point},
      {"12,34,567", none, none, NumberHint::none},
      {"1,23.4", none, none, NumberHint::none},
      {"1.234.56", none, none, NumberHint::none},
      {"$1,234.56", "1234.56", none, NumberHint::point},
      {"1.234,56 €", none, "1234.56", NumberHint::comma},
      {"EUR 1.234,56", none, "1234.56", NumberHint::comma},
      {"CHF 1'234.50", "1234.50", none, NumberHint::point},
      {"-$5.25", "-5.25", none, NumberHint::point},
      {"$-5.25", "-5.25", none, NumberHint::point},
      {"(1,250.50)", "-1250.50", none, NumberHint::point},
      {"1.250,50-", none, "-1250.50", NumberHint::comma},
      {"−7", "-7", "-7", NumberHint::none},
      {" - ", "", "", NumberHint::none},
      {"$ -", "", "", NumberHint::none},
      {"", "", "", NumberHint::none},
      {"1.5E+06", "1.5E+06", none, NumberHint::point},
      {"1,5E+06", none, "1.5E+06", NumberHint::comma},
      {"E5", none, none, NumberHint::none},
      {"5 years", none, none, NumberHint::none},
      {"?", none, none, NumberHint::none},
      {"--5", none, none, NumberHint::none},
      {"0x10", none, none, NumberHint::none},
  };
  const auto shown = [](const std::optional<std::string>& text) { return text.value_or("none"); };
  const auto wanted = [](const char* text) { return std::string(text == nullptr ? "none" : text); };
  for (const auto& [text, with_point, with_comma, hint] : cases) {
    EXPECT_EQ(shown(plainNumber(text, DecimalSign::point)), wanted(with_point)) << text;
    EXPECT_EQ(shown(plainNumber(text, DecimalSign::comma)), wanted(with_comma)) << text;
    EXPECT_EQ(numberHint(text), hint) << text;
  }
}

TEST(DateForms, AreReadByTheirOrder) {
  const struct {
    const char* text;
    const char* month_first;
    const char* day_first;
    const char* year_first;
    DateHint hint;
  } cases[] = {
      {"03/04/2024", "2024-03-04", "2024-04-03", "", DateHint::either},
      {"3/4/24", "2024-03-04", "2024-04-03", "", DateHint::either},
      {"03.04.2024", "2024-03-04", "2024-04-03", "", DateHint::day_first},
      {"04/04/2024", "2024-04-04", "2024-04-04", "", DateHint::none},
      {"31.12.2023", "", "2023-12-31", "", DateHint::day_first},
      {"12/31/2023", "2023-12-31", "", "", DateHint::month_first},
      {"31-12-99", "", "1999-12-31", "", DateHint::day_first},
      {"99-12-31", "", "", "1999-12-31", DateHint::year_first},
      {"2023-12-31", "2023-12-31", "2023-12-31", "2023-12-31", DateHint::none},
      {"2023/2/5", "2023-02-05", "2023-02-05", "2023-02-05", DateHint::none},
      {"20231231", "2023-12-31", "2023-12-31", "2023-12-31", DateHint::none},
      {"2023-12-31T08:30:00", "2023-12-31", "2023-12-31", "2023-12-31", DateHint::none},
      {"31.12.2023 00:00", "", "2023-12-31", "", DateHint::day_first},
      {"15-Mar-20", "2020-03-15", "2020-03-15", "2020-03-15", DateHint::none},
      {"15. März 2020", "2020-03-15", "2020-03-15", "2020-03-15", DateHint::none},
      {"March 15, 2020", "2020-03-15", "2020-03-15", "2020-03-15", DateHint::none},
      {"1 août 2020", "2020-08-01", "2020-08-01", "2020-08-01", DateHint::none},
      {"1 juin 2020", "2020-06-01", "2020-06-01", "2020-06-01", DateHint::none},
      {"1 juillet 2020", "2020-07-01", "2020-07-01", "2020-07-01", DateHint::none},
      {"2020-Dez-01", "2020-12-01", "2020-12-01", "2020-12-01", DateHint::none},
      {"29.02.2023", "", "", "", DateHint::none},
      {"29.02.2024", "", "2024-02-29", "", DateHint::day_first},
      {"00.00.0000", "", "", "", DateHint::none},
      {"3/2024", "", "", "", DateHint::none},
      {"1.2.3.2024", "", "", "", DateHint::none},
      {"tomorrow", "", "", "", DateHint::none},
      {"123456789", "", "", "", DateHint::none},
      {"2023", "", "", "", DateHint::none},
      {"", "", "", "", DateHint::none},
  };
  for (const auto& [text, month_first, day_first, year_first, hint] : cases) {
    EXPECT_EQ(plainDate(text, DateOrder::month_day_year).value_or(""), month_first) << text;
    EXPECT_EQ(plainDate(text, DateOrder::day_month_year).value_or(""), day_first) << text;
    EXPECT_EQ(plainDate(text, DateOrder::year_month_day).value_or(""), year_first) << text;
    EXPECT_EQ(dateHint(text), hint) << text;
  }
}

TEST(DateForms, OfADayOfEveryYearNeedNoYear) {
  const struct {
    const char* text;
    DateOrder order;
    const char* day;
  } cases[] = {
      {"12-31", DateOrder::day_month_year, "12-31"},
      {"05-06", DateOrder::day_month_year, "05-06"},
      {"31.12.", DateOrder::day_month_year, "12-31"},
      {"5.6.", DateOrder::day_month_year, "06-05"},
      {"12/31", DateOrder::month_day_year, "12-31"},
      {"12/31", DateOrder::day_month_year, "12-31"},
      {"29.2.", DateOrder::day_month_year, "02-29"},
      {"June 30", DateOrder::day_month_year, "06-30"},
      {"30. Juni", DateOrder::month_day_year, "06-30"},
      {"31.12.2023", DateOrder::day_month_year, "2023-12-31"},
      {"31-12", DateOrder::day_month_year, ""},
      {"June June", DateOrder::day_month_year, ""},
      {"13.13.", DateOrder::day_month_year, ""},
  };
  for (const auto& [text, order, day] : cases) {
    EXPECT_EQ(plainDayOfYear(text, order).value_or(""), day) << text;
  }
}

TEST(TextEncoding, IsFoundByMarkZerosAndValidity) {
  const struct {
    const char* what;
    std::string bytes;
    Encoding encoding;
    std::string text;
  } cases[] = {
      {"plain", "Name", Encoding::utf8, "Name"},
      {"UTF-8", "B\xC3\xBCro", Encoding::utf8, "Büro"},
      {"UTF-8 with a mark",
       "\xEF\xBB\xBF"
       "B\xC3\xBCro",
       Encoding::utf8, "Büro"},
      {"Windows-1252", "B\xFCro \x80", Encoding::windows_1252, "Büro €"},
      {"UTF-16",
       "\xFF\xFE"
       "B\0\xFC\0r\0o\0"s,
       Encoding::utf16_le, "Büro"},
      {"UTF-16, big-endian", "\xFE\xFF\0B\0\xFC\0r\0o"s, Encoding::utf16_be, "Büro"},
      {"UTF-16 without a mark", "B\0\xFC\0r\0o\0"s, Encoding::utf16_le, "Büro"},
      {"UTF-16, big-endian, without a mark", "\0B\0\xFC\0r\0o"s, Encoding::utf16_be, "Büro"},
      {"half a character", "B\xC3", Encoding::windows_1252, "BÃ"},
      {"nothing", "", Encoding::utf8, ""},
  };
  for (const auto& [what, bytes, encoding, text] : cases) {
    EXPECT_EQ(detectedEncoding(bytes), encoding) << what;
    EXPECT_EQ(decodedText(bytes, encoding).text, text) << what;
    EXPECT_EQ(decodedText(bytes, encoding).unreadable, 0U) << what;
  }
}

TEST(TextEncoding, CountsWhatItDoesNotHave) {
  const DecodedText utf8 = decodedText(
      "a\xFC"
      "b\xFC",
      Encoding::utf8);
  EXPECT_EQ(utf8.text,
            "a\uFFFD"
            "b\uFFFD");
  EXPECT_EQ(utf8.unreadable, 2U);
  EXPECT_EQ(decodedText("a\x81", Encoding::windows_1252).unreadable, 1U);
  EXPECT_EQ(decodedText("a\0b"s, Encoding::utf16_le).unreadable, 1U) << "cut off";
}

TEST(TextEncoding, KnowsEveryEncodingThatItOffers) {
  for (std::size_t i = 0; i < encoding_names.size(); ++i) {
    const auto encoding = static_cast<Encoding>(i);
    const std::string bytes = encoding == Encoding::utf16_le   ? "a\0"s
                              : encoding == Encoding::utf16_be ? "\0a"s
                                                               : "a"s;
    EXPECT_EQ(decodedText(bytes, encoding).text, "a") << encoding_names[i].label;
  }
  EXPECT_EQ(decodedText("\x9F", Encoding::macintosh).text, "ü");
  EXPECT_EQ(decodedText("\x81", Encoding::dos_850).text, "ü");
  EXPECT_EQ(decodedText("\xB3", Encoding::windows_1250).text, "ł");
  EXPECT_EQ(decodedText("\xE0", Encoding::windows_1251).text, "а");
  EXPECT_EQ(decodedText("\xA4", Encoding::iso_8859_15).text, "€");
}

std::string usesOf(const std::vector<std::string>& header) {
  std::string names;
  for (const ColumnUse& use : usesOfHeader(header)) {
    names += (names.empty() ? "" : ",") + (nameOfUse(use).empty() ? "-" : nameOfUse(use));
  }
  return names;
}

TEST(HeaderWords, SayWhatColumnsMean) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"Asset No", "Description", "Cost", "Purchase date", "Salvage", "Useful life"},
       "id,name,basis,placed_in_service,salvage,life"},
      {{"ASSET_ID", "asset name", "Serial #", "Dept/Loc", "Placed-in-Service Date",
        "Residual Value"},
       "id,name,serial,department,placed_in_service,salvage"},
      {{"Anlagen-Nr.", "Bezeichnung", "Anschaffungsdatum", "Nutzungsdauer (Jahre)", "AHK",
        "Restwert", "AfA-Methode", "Kostenstelle"},
       "id,name,placed_in_service,life,basis,salvage,method,department"},
      {{"N° immobilisation", "Libellé", "Date de mise en service", "Durée", "Valeur d'acquisition"},
       "id,name,placed_in_service,life,basis"},
      {{"Name", "Description", "Asset", "ID"}, "name,-,-,id"},
      {{"Description", "Asset", "No."}, "name,-,id"},
      {{"FY2024", "FY 2025", "2026", "Depreciation 2027", "2028 Depreciation", "AfA 2029", "FY30",
        "2030/31"},
       "fy2024,fy2025,fy2026,fy2027,fy2028,fy2029,fy2030,fy2031"},
      {{"Accumulated depreciation 2024", "Book value 2024", "31.12.2024", "1", "30"}, "-,-,-,-,-"},
      {{"2024", "FY2024"}, "fy2024,-"},
      {{"Useful life (months)", "Comment", "", "???"}, "-,-,-,-"},
      {{"id", "name", "serial", "department", "placed_in_service", "fiscal_year_end", "life",
        "convention", "basis", "salvage", "capacity", "method", "disposed", "proceeds"},
       "id,name,serial,department,placed_in_service,fiscal_year_end,life,convention,basis,salvage,"
       "capacity,method,disposed,proceeds"},
  };
  for (const auto& [header, uses] : cases) EXPECT_EQ(usesOf(header), uses) << header.front();
}

TEST(HeaderWords, AreRememberedByName) {
  for (const char* name : {"", "id", "proceeds", "fy2024"}) {
    const auto use = useNamed(name);
    ASSERT_TRUE(use) << name;
    EXPECT_EQ(nameOfUse(*use), name);
  }
  EXPECT_FALSE(useNamed("colour"));
  EXPECT_FALSE(useNamed("fy"));
}

TEST(HeaderWords, ArePlainLetters) {
  EXPECT_EQ(plainLetters("Asset_No. 7"), "assetno7");
  EXPECT_EQ(plainLetters("ÄÖÜß éèñç"), "aouseenc");
  EXPECT_EQ(plainLetters("№ \xFF"), "");
}

}  // namespace
}  // namespace depcalc
