// What leaves a grid by the clipboard.
#include "controls/copied_cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "controls/stage.h"
#include "controls/user_control.h"
#include "tests/support/scripted_site.h"
#include "values/data_text.h"

namespace depcalc {
namespace {

using ::testing::HasSubstr;

using Fields = std::vector<std::vector<std::string>>;

struct Screen : UserControl {
  explicit Screen(Stage& stage) : UserControl(stage, "Screen") {}

  Grid grid{*this, "Table", 3, 3};
};

struct Copied : ::testing::Test {
  void fill(const std::vector<std::vector<std::pair<CellKind, std::string>>>& cells) {
    grid.setRows(static_cast<int>(cells.size()));
    grid.setColumns(static_cast<int>(cells.front().size()));
    for (int row = 0; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) {
        const auto& [kind, text] =
            cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        grid.setText(row, column, text);
        grid.setKind(row, column, kind);
      }
    }
  }
  void fillComparison() {
    using enum CellKind;
    fill({{{heading, ""}, {heading, "Straight Line"}, {heading, "Double"}},
          {{caption, "FY2024"}, {amount, "12,345.50"}, {amount, "-7.00"}},
          {{caption, "TOTAL"}, {total, "1,012,345.50"}, {total, ""}}});
  }

  testing::ScriptedSite site;
  Stage stage{site};
  Screen screen{stage};
  Grid& grid = screen.grid;
};

TEST_F(Copied, AmountsArePlainAndHeadingsSaySo) {
  fillComparison();
  const CopiedCells all = wholeGrid(grid);
  EXPECT_EQ(all.text, "\tStraight Line\tDouble\nFY2024\t12345.50\t-7.00\nTOTAL\t1012345.50\t\n");
  EXPECT_EQ(all.html,
            "<meta charset=\"utf-8\"><table>\n"
            "<thead><tr><th scope=\"col\"></th><th scope=\"col\">Straight Line</th>"
            "<th scope=\"col\">Double</th></tr>\n</thead>\n"
            "<tr><th scope=\"row\">FY2024</th><td style=\"text-align: right\">12345.50</td>"
            "<td style=\"text-align: right\">-7.00</td></tr>\n"
            "<tr><th scope=\"row\">TOTAL</th><td style=\"text-align: right\">1012345.50</td>"
            "<td style=\"text-align: right\"></td></tr>\n</table>\n");
}

TEST_F(Copied, TheMarkedColumnComesWithItsCaptions) {
  fillComparison();
  grid.setColumn(2);
  EXPECT_EQ(markedColumn(grid).text, "\tDouble\nFY2024\t-7.00\nTOTAL\t\n");
  EXPECT_EQ(wholeGrid(grid).text.substr(0, 21), "\tStraight Line\tDouble");
  grid.setColumn(0);
  EXPECT_EQ(markedColumn(grid).text, wholeGrid(grid).text) << "none is marked";
}

TEST_F(Copied, OnlyWhatIsShown) {
  fillComparison();
  grid.setColumnWidth(1, 0);
  grid.setRowHeight(1, 0);
  EXPECT_EQ(wholeGrid(grid).text, "\tDouble\nTOTAL\t\n");
}

TEST_F(Copied, NothingBecomesAFormulaAndNothingMarkup) {
  struct Case {
    CellKind kind;
    const char* text;
    const char* tabbed;
    const char* html;
  };
  using enum CellKind;
  for (const Case& c : std::vector<Case>{
           {text, "=1+1", "'=1+1", "'=1+1"},
           {text, "-5", "'-5", "'-5"},
           {text, "1,250", "1,250", "1,250"},
           {value, "=x()", "'=x()", "'=x()"},
           {value, "-5", "-5", "-5"},
           {value, "07/15/2023", "07/15/2023", "07/15/2023"},
           {amount, "@sum", "'@sum", "'@sum"},
           {amount, "-1,250.00", "-1250.00", "-1250.00"},
           {caption, "+a", "'+a", "'+a"},
           {text, "<b>&amp;", "<b>&amp;", "&lt;b&gt;&amp;amp;"},
           {text, "two\nlines\t\"x\"", "\"two\nlines\t\"\"x\"\"\"", "two<br>lines\t&quot;x&quot;"},
       }) {
    fill({{{caption, "ID"}, {c.kind, c.text}}});
    const CopiedCells copied = wholeGrid(grid);
    EXPECT_EQ(copied.text, std::string("ID\t") + c.tabbed + '\n') << c.text;
    EXPECT_THAT(copied.html, HasSubstr('>' + std::string(c.html) + "</t")) << c.text;
  }
}

/// As a spreadsheet takes a text apart.
Fields takenApart(std::string_view text) {
  Fields rows;
  bool fresh = true;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (fresh) rows.emplace_back();
    std::string field;
    if (text[at] == '"') {
      for (++at; text[at] != '"' || text.substr(at + 1, 1) == "\""; ++at) {
        at += text[at] == '"' ? 1 : 0;
        field += text[at];
      }
      ++at;
    } else {
      for (; text[at] != '\t' && text[at] != '\n'; ++at) field += text[at];
    }
    rows.back().push_back(field);
    fresh = text[at] == '\n';
  }
  return rows;
}

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

/// As a browser reads rows of plain cells.
Fields readBack(const std::string& html) {
  Fields rows;
  for (std::size_t at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
    const std::string_view tag = std::string_view(html).substr(at, html.find('>', at) + 1 - at);
    if (tag == "<tr>") rows.emplace_back();
    if (tag != "<td>") continue;
    std::string field = html.substr(at + 4, html.find("</td>", at) - at - 4);
    replaceAll(field, "<br>", "\n");
    EXPECT_EQ(field.find_first_of("<>\""), field.npos) << field;
    for (const auto& [entity, character] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
      replaceAll(field, entity, character);
    }
    rows.back().push_back(field);
  }
  return rows;
}

TEST_F(Copied, RandomTextsComeBackFieldByField) {
  const auto seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  constexpr std::string_view alphabet = "'=+-@\t\r\n,\" <&a1";
  const auto pick = [&](std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
  };
  for (int round = 0; round < 300; ++round) {
    const std::size_t columns = 1 + pick(4);
    std::vector<std::vector<std::pair<CellKind, std::string>>> cells(1 + pick(4));
    Fields expected;
    for (auto& row : cells) {
      expected.emplace_back();
      for (std::size_t column = 0; column < columns; ++column) {
        std::string text(pick(5), ' ');
        for (char& c : text) c = alphabet[pick(alphabet.size())];
        row.emplace_back(CellKind::text, text);
        expected.back().push_back(guardedText(text));
      }
    }
    fill(cells);
    const CopiedCells copied = wholeGrid(grid);
    EXPECT_EQ(takenApart(copied.text), expected) << ::testing::PrintToString(copied.text);
    EXPECT_EQ(readBack(copied.html), expected) << copied.html;
  }
}

}  // namespace
}  // namespace depcalc
