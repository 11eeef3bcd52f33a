// Reports on pages: everything once, whole, inside, and under its caption.
#include "reports/pages/report_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "tests/reports/pages/even_measures.h"

namespace depcalc {
namespace {

using ::testing::Contains;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

const testing::EvenMeasures measures;
const Date today = Date::strict(2024, 6, 15);

/// A4 and Letter, upright and across, inside margins of half an inch.
constexpr PaperArea papers[] = {{10466, 15398}, {15398, 10466}, {10800, 14400}, {14400, 10800}};

using Words = std::multiset<std::string>;

Words wordsOf(const PaperPage& page) {
  Words words;
  for (const PaperText& text : page.texts) {
    std::istringstream in(text.text);
    for (std::string word; in >> word;) words.insert(word);
  }
  return words;
}

struct Box {
  double left, top, right, bottom;
};

Box boxOf(const PaperText& text) {
  return {text.x, text.y, text.x + measures.width(text.text, text.font),
          text.y + measures.lineHeight(text.font)};
}

void expectInsideAndApart(const PaperPage& page, const PaperArea& area) {
  constexpr double slack = 0.5;
  std::vector<Box> boxes;
  for (const PaperText& text : page.texts) boxes.push_back(boxOf(text));
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const Box& a = boxes[i];
    EXPECT_TRUE(a.left >= -slack && a.top >= -slack && a.right * page.scale <= area.width + slack &&
                a.bottom * page.scale <= area.height + slack)
        << page.texts[i].text << " at " << a.left << ", " << a.top;
    for (std::size_t j = 0; j < i; ++j) {
      const Box& b = boxes[j];
      EXPECT_FALSE(a.left < b.right - slack && b.left < a.right - slack &&
                   a.top < b.bottom - slack && b.top < a.bottom - slack)
          << page.texts[i].text << " over " << page.texts[j].text;
    }
  }
}

/// Tables of which every word is there once.
class RandomReport {
 public:
  explicit RandomReport(unsigned seed) : random_(seed) {
    report.title = "TITLE";
    report.covers = texts(pick(1, 30));
    for (int i = pick(1, 3); i > 0; --i) addTable();
    for (int i = pick(0, 3); i > 0; --i) report.notes.push_back(texts(pick(1, 40)));
    for (int i = pick(0, 2); i > 0; --i) report.proofs.push_back(texts(pick(1, 10)));
    if (pick(0, 9) == 0) report.disproofs.push_back(texts(5));
  }

  Report report;

 private:
  int pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  std::string word() {
    return 'w' + std::to_string(++words_) + std::string(static_cast<std::size_t>(pick(0, 5)), 'x');
  }
  std::string texts(int count) {
    std::string text = word();
    while (--count > 0) text += ' ' + word();
    return text;
  }

  std::vector<Column> columns() {
    std::vector<Column> columns;
    if (pick(0, 1) == 1) {
      columns = {{"n", word(), ColumnKind::whole}, {"id", word()}, {"name", word()}};
    } else {
      columns = {{"group", word()}};
    }
    constexpr ColumnKind kinds[] = {ColumnKind::text,   ColumnKind::label, ColumnKind::number,
                                    ColumnKind::amount, ColumnKind::date,  ColumnKind::amount};
    for (int i = pick(1, pick(0, 3) == 0 ? 60 : 8); i > 0; --i) {
      columns.push_back({"c" + std::to_string(i), texts(pick(1, 2)),
                         kinds[static_cast<std::size_t>(pick(0, 5))]});
    }
    return columns;
  }

  Cell cell(Table& table, ColumnKind kind) {
    if (pick(0, 9) == 0) return {};
    switch (kind) {
      case ColumnKind::text:
        return table.text(texts(pick(0, 9) == 0 ? pick(1, 40) : pick(1, 4)));
      case ColumnKind::amount:
        return Currency::fromTicks(static_cast<std::int64_t>(++words_) * 10'000'000);
      case ColumnKind::date:
        return Date::strict(1950, 1, 1).plusDays(++words_);
      case ColumnKind::number:
        return ++words_ + 0.5;
      default:
        return static_cast<std::int32_t>(1'000'000 + ++words_);
    }
  }

  void addTable() {
    Table table(columns(), pick(0, 1) == 1 ? texts(3) : "");
    const int rows = pick(0, pick(0, 3) == 0 ? 150 : 30);
    for (int row = 0; row < rows; ++row) {
      std::vector<Cell> cells;
      for (const Column& column : table.columns()) cells.push_back(cell(table, column.kind));
      table.add(cells);
    }
    if (pick(0, 1) == 1) addGroups(table);
    if (pick(0, 3) > 0) table.addTotal(texts(3));
    report.tables.push_back(std::move(table));
  }

  void addGroups(Table& table) {
    for (std::size_t row = 0; row < table.rowCount();) {
      RowGroup group{texts(pick(1, 5)), {}, texts(pick(1, 5)), {}};
      const int rows = pick(1, pick(0, 1) == 1 ? 60 : 3);
      for (int i = 0; i < rows && row < table.rowCount(); ++i) group.rows.push_back(row++);
      table.addGroup(std::move(group));
    }
  }

  std::mt19937 random_;
  int words_ = 0;
};

void addWords(Words& words, const std::string& text, std::size_t times = 1) {
  std::istringstream in(text);
  for (std::string word; in >> word;) {
    for (std::size_t i = 0; i < times; ++i) words.insert(word);
  }
}

std::vector<TablePart> partsOf(const Table& table, double width) {
  return TableColumns(table, measures).parts(width);
}

/// How often the cells of a column are to be there: in every part, or in one.
std::map<std::size_t, std::size_t> appearances(const std::vector<TablePart>& parts) {
  std::map<std::size_t, std::size_t> times;
  for (const TablePart& part : parts) {
    for (const PaperColumn& column : part) ++times[column.column];
  }
  return times;
}

/// No amount is in more than one part.
void addSum(Words& words, const Table& table, const std::vector<Cell>& sum, std::size_t column) {
  if (!sum.empty()) addWords(words, shownText(sum[column], table.columns()[column]));
}

/// Every word of the rows, sums and notes, as often as it is to be there. What is repeated on every
/// page is not among them: captions, names and labels.
Words wantedWords(const Report& report, double width) {
  Words words;
  for (const Table& table : report.tables) {
    for (const auto& [column, times] : appearances(partsOf(table, width))) {
      for (std::size_t row = 0; row < table.rowCount(); ++row) {
        addWords(words, shownText(table.row(row)[column], table.columns()[column]), times);
      }
      for (const RowGroup& group : table.groups()) addSum(words, table, group.total, column);
      addSum(words, table, table.total(), column);
    }
  }
  for (const auto* texts : {&report.notes, &report.disproofs}) {
    for (const std::string& text : *texts) addWords(words, text);
  }
  return words;
}

/// The words of one row that stand in `part`, but for amounts: a sum may be the same.
Words wordsOfRow(const Table& table, std::size_t row, const TablePart& part) {
  Words words;
  for (const PaperColumn& column : part) {
    const Column& of = table.columns()[column.column];
    if (of.kind != ColumnKind::amount)
      addWords(words, shownText(table.row(row)[column.column], of));
  }
  return words;
}

bool anyOf(const Words& page, const Words& words) {
  return std::any_of(words.begin(), words.end(),
                     [&](const std::string& word) { return page.contains(word); });
}

Words captionsOf(const Table& table, const TablePart& part) {
  Words captions;
  for (const PaperColumn& column : part) {
    addWords(captions, table.columns()[column.column].caption);
  }
  return captions;
}

/// The names and sums that rows of a table must have around them on `page`.
void expectCompany(const Words& page, const Table& table, const TablePart& part) {
  bool any = false;
  for (const RowGroup& group : table.groups()) {
    Words name;
    addWords(name, group.name.substr(0, group.name.find(' ')));
    Words label;
    addWords(label, group.label);
    for (const std::size_t row : group.rows) {
      const Words words = wordsOfRow(table, row, part);
      if (!anyOf(page, words)) continue;
      EXPECT_TRUE(anyOf(page, name)) << "the group's name above its rows";
      if (row != group.rows.back()) continue;
      EXPECT_THAT(page, IsSupersetOf(label));
    }
  }
  for (std::size_t row = 0; row < table.rowCount(); ++row) {
    any = any || anyOf(page, wordsOfRow(table, row, part));
  }
  if (!any) return;
  EXPECT_THAT(page, IsSupersetOf(captionsOf(table, part)));
}

TEST(ReportPages, HaveEverythingOnceWholeInsideAndUnderItsCaption) {
  const auto seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  for (unsigned round = 0; round < 200; ++round) {
    const Report report = RandomReport(seed + round).report;
    const PaperArea& area = papers[round % std::size(papers)];
    SCOPED_TRACE("seed " + std::to_string(seed + round));
    const ReportPages pages(report, area, measures, today);
    const double width = area.width / pages.page(0).scale;
    Words found;
    for (std::size_t i = 0; i < pages.count(); ++i) {
      const PaperPage page = pages.page(i);
      expectInsideAndApart(page, area);
      const Words words = wordsOf(page);
      found.insert(words.begin(), words.end());
      for (const Table& table : report.tables) {
        for (const TablePart& part : partsOf(table, width)) {
          // A part is known by a column that the others have not.
          const Words own = captionsOf(table, {part.back()});
          if (std::includes(words.begin(), words.end(), own.begin(), own.end())) {
            expectCompany(words, table, part);
          }
        }
      }
    }
    const Words wanted = wantedWords(report, width);
    for (const std::string& word : wanted) {
      if (found.count(word) == wanted.count(word)) continue;
      ADD_FAILURE() << word << " is there " << found.count(word) << " times";
    }
    if (::testing::Test::HasFailure()) break;
  }
}

Report oneTable(Table table) { return {.title = "Report", .covers = "all", .tables = {table}}; }

TEST(ReportPages, SayInTheFootWhatTheyAreOf) {
  Table table({{"n", "N", ColumnKind::whole}});
  for (int i = 1; i <= 200; ++i) table.add({Cell(static_cast<std::int32_t>(i))});
  const Report report = oneTable(table);
  const ReportPages pages(report, papers[0], measures, today);
  ASSERT_GT(pages.count(), 1U);
  for (std::size_t i = 0; i < pages.count(); ++i) {
    const PaperPage page = pages.page(i);
    ASSERT_GE(page.texts.size(), 4U);
    std::vector<std::string> foot;
    for (std::size_t k = page.texts.size() - 4; k < page.texts.size(); ++k) {
      foot.push_back(page.texts[k].text);
    }
    EXPECT_EQ(foot, (std::vector<std::string>{
                        "Report",
                        "Page " + std::to_string(i + 1) + " of " + std::to_string(pages.count()),
                        "all", "June 15, 2024"}));
  }
}

TEST(ReportPages, ARowHigherThanAPageGoesOnOnTheNext) {
  Table table({{"n", "N", ColumnKind::whole}, {"id", "ID"}, {"name", "NAME"}});
  std::string text;
  for (int i = 0; i < 9000; ++i) text += (i > 0 ? " w" : "w") + std::to_string(i);
  const Cell cells[] = {Cell(std::int32_t{7}), table.text("id"), table.text(text)};
  table.add(cells);
  table.addGroup({"GROUP", {0}, "LABEL", {}});
  const Report report = oneTable(table);
  const ReportPages pages(report, papers[1], measures, today);
  EXPECT_GT(pages.count(), 3U);
  std::string joined;
  for (std::size_t i = 0; i < pages.count(); ++i) {
    const PaperPage page = pages.page(i);
    expectInsideAndApart(page, papers[1]);
    const Words words = wordsOf(page);
    EXPECT_THAT(words, IsSupersetOf({"NAME", "GROUP"}));
    for (const PaperText& line : page.texts) {
      if (line.text.starts_with('w')) joined += (joined.empty() ? "" : " ") + line.text;
    }
  }
  EXPECT_EQ(joined, text) << "in order, line by line";
}

TEST(ReportPages, TooWideATableGoesOnBesideItself) {
  std::vector<Column> columns{{"n", "N", ColumnKind::whole}, {"id", "ID"}, {"name", "NAME"}};
  for (int year = 2000; year < 2040; ++year) {
    columns.push_back({"y", "FY" + std::to_string(year), ColumnKind::amount});
  }
  Table table(columns);
  std::vector<Cell> cells{Cell(std::int32_t{1}), table.text("TRK"), table.text("Truck")};
  for (int i = 0; i < 40; ++i) cells.emplace_back(Currency::fromTicks(1234567800));
  table.add(cells);
  table.addTotal("TOTAL");
  const Report report = oneTable(table);
  const std::vector<TablePart> parts = partsOf(report.tables[0], papers[0].width);
  ASSERT_GT(parts.size(), 2U);
  for (const TablePart& part : parts) {
    EXPECT_EQ(part[0].column, 0U);
    EXPECT_EQ(part[2].column, 2U);
    EXPECT_EQ(part[2].width, parts.front()[2].width) << "so that pages can be laid side by side";
    EXPECT_LE(part.back().right(), papers[0].width + 0.5);
  }
  const ReportPages pages(report, papers[0], measures, today);
  EXPECT_EQ(pages.count(), parts.size());
  for (std::size_t i = 0; i < pages.count(); ++i) {
    EXPECT_THAT(wordsOf(pages.page(i)), IsSupersetOf({"TRK", "Truck", "TOTAL", "Report"}));
  }
}

TEST(ReportPages, AnEmptyTableHasItsCaptionsAndTotal) {
  Table table({{"id", "ID"}, {"basis", "BASIS", ColumnKind::amount}});
  table.addTotal("Total");
  const Report report = oneTable(table);
  const ReportPages pages(report, papers[0], measures, today);
  ASSERT_EQ(pages.count(), 1U);
  EXPECT_THAT(wordsOf(pages.page(0)), IsSupersetOf({"ID", "BASIS", "Total", "0.00"}));
}

Chart someChart() {
  const std::vector<Currency> falling{Currency::fromTicks(90'000), Currency::fromTicks(10'000)};
  const std::vector<Currency> even{Currency::fromTicks(50'000), Currency::fromTicks(50'000)};
  return {.title = "As a chart",
          .first_year = 2024,
          .series = {{"SL", "Straight Line", even, even, true},
                     {"DDB", "Double Declining Balance", falling, falling, false}}};
}

TEST(ReportPages, AChartStandsWholeOnOnePageInsideIt) {
  for (const PaperArea& area : papers) {
    for (int rows = 0; rows < 80; rows += 7) {
      Table table(std::vector<Column>{{"id", "ID"}});
      for (int i = 0; i < rows; ++i) table.add({table.text("row")});
      Report report = oneTable(table);
      report.chart = someChart();
      const ReportPages pages(report, area, measures, today);
      std::size_t seen = 0;
      for (std::size_t i = 0; i < pages.count(); ++i) {
        const PaperPage page = pages.page(i);
        expectInsideAndApart(page, area);
        for (const PaperStroke& stroke : page.strokes) {
          for (const PaperPoint& point : stroke.points) {
            ASSERT_TRUE(point.x >= 0 && point.y >= 0 && point.x * page.scale <= area.width &&
                        point.y * page.scale <= area.height);
          }
        }
        if (!page.strokes.empty()) ++seen;
        EXPECT_EQ(wordsOf(page).count("chart"), page.strokes.empty() ? 0U : 1U);
      }
      EXPECT_EQ(seen, 1U) << rows << " rows";
    }
  }
}

TEST(ReportPages, PaperThatIsTooSmallHasNoChart) {
  Report report = oneTable(Table(std::vector<Column>{{"id", "ID"}}));
  report.chart = someChart();
  const ReportPages pages(report, {4000, 8000}, measures, today);
  for (std::size_t i = 0; i < pages.count(); ++i) EXPECT_TRUE(pages.page(i).strokes.empty());
}

TEST(ReportPages, WhatDoesNotAddUpIsOnPaperToo) {
  Report report = oneTable(Table(std::vector<Column>{{"id", "ID"}}));
  report.disproofs = {"Row 3 does not add up."};
  report.proofs = {"a = b", "c = d"};
  report.notes = {"A note."};
  const ReportPages pages(report, papers[0], measures, today);
  std::vector<std::string> texts;
  for (const PaperText& text : pages.page(0).texts) texts.push_back(text.text);
  EXPECT_THAT(texts,
              IsSupersetOf({"Row 3 does not add up.", "Proof: a = b", "Proof: c = d", "A note."}));
}

/// Whatever stands in a row is found again where it is drawn.
TEST(ReportPagesOfRandomReports, FindTheCellOfAWordWhereItIsDrawn) {
  int found = 0;
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    const RandomReport random(seed);
    const ReportPages pages(random.report, papers[seed % 4], measures, today);
    for (std::size_t index = 0; index < pages.count(); ++index) {
      const PaperPage page = pages.page(index);
      for (const PaperText& text : page.texts) {
        const Box box = boxOf(text);
        const auto cell = pages.cellAt(index, (box.left + 1) * page.scale,
                                       (box.top + box.bottom) / 2 * page.scale);
        if (!cell) continue;
        const Table& table = random.report.tables[cell->table];
        const std::string whole =
            shownText(table.row(cell->row)[cell->column], table.columns()[cell->column]);
        EXPECT_NE(whole.find(text.text), std::string::npos) << whole << " is not " << text.text;
        ++found;
      }
      EXPECT_EQ(pages.cellAt(index, -1, -1), std::nullopt);
    }
  }
  EXPECT_GT(found, 1000);
}

}  // namespace
}  // namespace depcalc
