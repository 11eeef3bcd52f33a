// A table in every format, down to the character.
#include <gtest/gtest.h>

#include "reports/formats/csv.h"
#include "reports/formats/html.h"
#include "reports/formats/json.h"
#include "reports/formats/text.h"
#include "reports/formats/xlsx/xlsx_text.h"

namespace depcalc {
namespace {

Report someReport() {
  Table table({{"n", "N", ColumnKind::whole},
               {"name", "Name", ColumnKind::text},
               {"since", "In service", ColumnKind::date},
               {"life", "Life", ColumnKind::number},
               {"amount", "Amount taken", ColumnKind::amount},
               {"gone", "Gone", ColumnKind::amount, true},
               {"credit", "Credit", ColumnKind::amount, false, true}});
  const Date day = Date::strict(2024, 1, 20);
  table.add(
      {1, table.text("=x\n"), day, 2.5, Currency::fromText("1234.5"), Currency(), Currency()});
  table.add(
      {2, Cell(), Cell(), 3.0, Currency::fromText("-0.005"), Currency(), Currency::fromTicks(1)});
  table.addGroup({"<g>", {1}, "<g>, 1 asset", {}});
  table.addGroup({"h", {0}, "h, 1 asset", {}});
  table.addTotal("Total, 2 assets");
  return {.title = "T & U",
          .covers = "c",
          .tables = {std::move(table)},
          .notes = {"A note."},
          .proofs = {"a = b"}};
}

TEST(Formats, CsvHasNamesAndATotal) {
  EXPECT_EQ(csvReport(someReport(), CsvFields(false)),
            "n,name,since,life,amount,gone,credit\n"
            "1,\"'=x\n\",2024-01-20,2.5,1234.5000,0.0000,0.0000\n"
            "2,,,3,-0.0050,0.0000,0.0001\n"
            "total,,,,1234.4950,0.0000,0.0001\n");
  EXPECT_EQ(csvReport(someReport(), CsvFields(true)).substr(37, 9), "1,\"=x\n\",2");
}

TEST(Formats, JsonHasANumberForNAndTextsElse) {
  EXPECT_EQ(jsonReport(someReport()),
            R"([
{"n":1,"name":"=x\n","since":"2024-01-20","life":"2.5","amount":"1234.5000","gone":"0.0000","credit":"0.0000"},
{"n":2,"name":"","since":"","life":"3","amount":"-0.0050","gone":"0.0000","credit":"0.0001"},
{"n":"total","name":"","since":"","life":"","amount":"1234.4950","gone":"0.0000","credit":"0.0001"}
]
)");
}

TEST(Formats, TextHasGroupsAndLeavesOutWhatIsEmpty) {
  EXPECT_EQ(textReport(someReport()), R"(T & U
c

                              Amount
N  Name  In service  Life      taken  Credit
-  ----  ----------  ----  ---------  ------
<g>
2                       3     -0.005  0.0001
<g>, 1 asset                  -0.005  0.0001

h
1  =x\n  01/20/2024   2.5   1,234.50
h, 1 asset                  1,234.50

=  ====  ==========  ====  =========  ======
Total, 2 assets            1,234.495  0.0001

A note.

Proof: a = b
)");
}

TEST(Formats, HtmlStandsAlone) {
  const std::string html = htmlReport(someReport());
  for (const char* part :
       {"<title>T &amp; U</title>", "<th scope=\"rowgroup\" colspan=\"6\">&lt;g&gt;</th>",
        "<td class=\"t\">=x\\n</td><td class=\"d\"><time "
        "datetime=\"2024-01-20\">01/20/2024</time></td>",
        "<td class=\"r\"><data value=\"1234.5000\">1,234.50</data></td>",
        "<td class=\"r\"><data value=\"0.0000\"></data></td></tr>",
        "<tfoot>\n<tr class=\"sum\"><th scope=\"row\" colspan=\"4\">Total, 2 assets</th>",
        "default-src 'none'"}) {
    EXPECT_NE(html.find(part), std::string::npos) << part << html;
  }
  for (const char* part : {"<script", "http:", "https:", "src=", "url("}) {
    EXPECT_EQ(html.find(part), std::string::npos) << part;
  }
}

TEST(Formats, WorkbooksHoldTheTextsThatXmlCan) {
  const struct {
    const char* text;
    const char* kept;
  } cases[] = {{"Müller", "Müller"},
               {"_x0041_", "_x005F_x0041_"},
               {"_x00zz_", "_x00zz_"},
               {"\xFF!", "\xEF\xBF\xBD!"},
               {"\xED\xA0\x80", "\xEF\xBF\xBD"},
               {"\xEF\xBF\xBE", "\xEF\xBF\xBD"},
               {"\xF0\x9F\x9A\x9A", "\xF0\x9F\x9A\x9A"}};
  for (const auto& c : cases) EXPECT_EQ(xlsxText(c.text), c.kept) << c.text;
}

TEST(Formats, EmptyTablesHaveCaptionsAndATotalOfNothing) {
  Table table({{"n", "N", ColumnKind::whole}, {"amount", "Amount", ColumnKind::amount}});
  const Report bare{.title = "T", .covers = "c", .tables = {table}};
  EXPECT_EQ(csvReport(bare, CsvFields(false)), "n,amount\n");
  EXPECT_EQ(jsonReport(bare), "[]\n");
  table.addTotal("Total");
  const Report report{.title = "T", .covers = "c", .tables = {std::move(table)}};
  EXPECT_EQ(csvReport(report, CsvFields(false)), "n,amount\ntotal,0.0000\n");
  EXPECT_EQ(jsonReport(report), "[\n{\"n\":\"total\",\"amount\":\"0.0000\"}\n]\n");
}

}  // namespace
}  // namespace depcalc
