// How the register is printed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "register/print_pages.h"
#include "tests/support/recording_printer.h"
#include "tests/support/register_fixture.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordingPrinter;

const MessageBox printer_trouble{
    "There may be a problem with your printer, or another error. Please correct the problem and "
    "try again.",
    BoxButtons::ok, "DepCalc10"};

struct Paper {
  const char* name;
  int width;  ///< of what can be printed on, twips
  int height;
};

constexpr Paper papers[] = {{"A4", 10466, 15398},
                            {"A4 landscape", 15398, 10466},
                            {"Letter", 10800, 14400},
                            {"Letter landscape", 14400, 10800},
                            {"a card", 6000, 4500}};

constexpr int header_height = 900;  ///< three lines of the recording printer

/// A page by the rules as they are told, step by step.
struct SlowPage {
  int number_x = 0;
  std::string number;
  std::vector<int> columns;
  std::vector<int> rows;
};

struct SlowSchedule {
  int columns_on_page = 0;
  int rows_on_page = 0;
  int across = 0;
  int down = 0;
  std::vector<SlowPage> pages;
};

/// The whole number nearest to a/b; the even one when two are.
int nearestOfRatio(int a, int b) {
  const int below = a / b;
  const int rest = a - below * b;
  if (2 * rest == b) return below % 2 == 0 ? below : below + 1;
  return 2 * rest > b ? below + 1 : below;
}

void countPages(const Paper& paper, int column_count, int row_count, SlowSchedule& out) {
  int w = 1800;
  int cp = 0;
  while (w <= paper.width && cp + 1 != column_count) {
    cp = cp + 1;
    w = w + 1200;
    if (w > paper.width) {
      cp = cp - 1;
      break;
    }
  }
  int h = 0;
  int rp = 0;
  while (paper.height - header_height >= h) {
    rp = rp + 1;
    h = h + 450;
    if (paper.height - header_height < h) {
      rp = rp - 1;
      break;
    }
  }
  int pa = nearestOfRatio(column_count, cp + 1);
  if (column_count + pa - 1 >= pa * (cp + 1) && (column_count + pa - 1) % (cp + 1) > 0) pa = pa + 1;
  if (row_count >= rp - 3) rp = rp - 3;
  int pd = nearestOfRatio(row_count, rp + 1);
  if (row_count >= pd * rp && row_count % rp >= 1) pd = pd + 1;
  out.columns_on_page = cp;
  out.rows_on_page = rp;
  out.across = pa;
  out.down = pd;
}

SlowSchedule slowSchedule(const Paper& paper, int column_count, int row_count) {
  SlowSchedule out;
  countPages(paper, column_count, row_count, out);
  for (int x = 1; x <= out.across; ++x) {
    for (int y = 1; y <= out.down; ++y) {
      SlowPage page;
      const std::string number = "Page " + std::to_string(out.pages.size() + 1) + " of ";
      const auto measured = number + std::to_string(out.across + out.down - 1);
      page.number_x = paper.width - 2 * static_cast<int>(measured.size()) * 120;
      page.number = number + std::to_string(out.across * out.down);
      for (int c = 0; c < column_count; ++c) {
        const bool inside = (x - 1) * out.columns_on_page < c && c <= x * out.columns_on_page;
        if (c == 0 || out.across == 1 || inside) page.columns.push_back(c);
      }
      for (int r = 0; r < row_count; ++r) {
        const bool inside = (y - 1) * out.rows_on_page <= r && r < y * out.rows_on_page;
        if (out.down == 1 || inside) page.rows.push_back(r);
      }
      out.pages.push_back(page);
    }
  }
  return out;
}

struct Printing : ::testing::Test, testing::RegisterSurroundings {
  void load(int assets, int rows) {
    container.assets.assign(static_cast<std::size_t>(assets), testing::makeAsset("A"));
    container.years = rows - 13;
    showView();
  }
  void print(RecordingPrinter& printer) {
    site.printer = &printer;
    user.click(view.PrintButton.normal);
  }
  void expectFullSizes() {
    for (int c = 0; c < table.columns(); ++c) {
      ASSERT_EQ(table.columnWidth(c), c == 0 ? 1800 : 1200) << "column " << c;
    }
    for (int r = 0; r < table.rows(); ++r) ASSERT_EQ(table.rowHeight(r), 450) << "row " << r;
  }

  Reports reports;
};

TEST_F(Printing, CutsTheTableIntoPagesByTheFormulas) {
  load(1, 13);
  for (int assets = 1; assets <= 200; ++assets) {
    table.setRows(13);
    table.setColumns(assets + 1);
    for (int c = 1; c <= assets; ++c) table.setColumnWidth(c, 1200);
    for (int rows = 13; rows <= 120; ++rows) {
      table.setRows(rows);
      for (const Paper& paper : papers) {
        SlowSchedule slow;
        countPages(paper, assets + 1, rows, slow);
        const auto pages = PrintPages::of(table, {paper.width, paper.height - header_height});
        ASSERT_EQ(pages.columns, slow.columns_on_page) << paper.name << assets << " " << rows;
        ASSERT_EQ(pages.rows, slow.rows_on_page) << paper.name << assets << " " << rows;
        ASSERT_EQ(pages.across, slow.across) << paper.name << assets << " " << rows;
        ASSERT_EQ(pages.down, slow.down) << paper.name << assets << " " << rows;
        const int printed = slow.across == 1 ? assets : slow.across * slow.columns_on_page;
        ASSERT_EQ(pages.columnsLeftOut(table), std::max(0, assets - printed));
      }
    }
  }
}

TEST_F(Printing, PrintsThePagesAcrossOuterAndDownInner) {
  for (const Paper& paper : papers) {
    for (int assets = 1; assets <= 200; assets += assets < 20 ? 2 : 23) {
      for (const int rows : {13, 19, 28, 29, 31, 60, 120}) {
        SCOPED_TRACE(std::string(paper.name) + ", " + std::to_string(assets) + " assets, " +
                     std::to_string(rows) + " rows");
        load(assets, rows);
        RecordingPrinter printer(paper.width, paper.height);
        print(printer);
        const auto expected = slowSchedule(paper, assets + 1, rows).pages;
        ASSERT_EQ(printer.finished.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
          const auto& page = printer.finished[i];
          ASSERT_EQ(page.texts.size(), 2U);
          ASSERT_EQ(page.texts[0].text, "Depreciation Schedule");
          ASSERT_EQ(page.texts[1].text, expected[i].number);
          ASSERT_EQ(page.texts[1].x, expected[i].number_x);
          ASSERT_EQ(page.texts[1].y, 0);
          ASSERT_EQ(page.pictures.size(), 1U);
          ASSERT_EQ(page.pictures[0].columns, expected[i].columns);
          ASSERT_EQ(page.pictures[0].rows, expected[i].rows);
        }
        expectFullSizes();
      }
    }
  }
  EXPECT_THAT(site.takeBoxes(), IsEmpty());
  EXPECT_THAT(reports.all(), IsEmpty());
}

TEST_F(Printing, StartsAPageAfterTheLastAndThenEndsTheJob) {
  load(3, 19);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  print(printer);
  EXPECT_EQ(printer.font_size, 12);
  EXPECT_EQ(printer.finished.size(), 1U);
  EXPECT_THAT(printer.current.texts, IsEmpty());
  EXPECT_EQ(printer.jobs_ended, 1);
  const auto& page = printer.finished[0];
  EXPECT_EQ(page.texts[0].x, 0);
  EXPECT_EQ(page.texts[0].y, 0);
  EXPECT_EQ(page.texts[1].text, "Page 1 of 1");
  EXPECT_EQ(page.picture_x, 0);
  EXPECT_EQ(page.picture_y, header_height);
  EXPECT_EQ(page.pictures[0], table.Picture()) << "the table exactly as it is on screen";
}

TEST_F(Printing, TouchesNoRowOrColumnOfASinglePage) {
  load(7, 19);
  table.setColumnData(1, 77);
  table.setRowData(0, 88);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  print(printer);
  EXPECT_EQ(printer.finished.size(), 1U);
  EXPECT_EQ(table.columnData(1), 77);
  EXPECT_EQ(table.rowData(0), 88);
}

TEST_F(Printing, MeasuresThePageNumberOnAnotherTextThanItPrints) {
  load(25, 60);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  print(printer);
  ASSERT_EQ(printer.finished.size(), 12U) << "4 across, 3 down";
  const auto& number = printer.finished[4].texts[1];
  EXPECT_EQ(number.text, "Page 5 of 12");
  const int measured = 120 * static_cast<int>(std::string("Page 5 of 6").size());
  EXPECT_EQ(number.x, papers[0].width - 2 * measured);
}

TEST_F(Printing, LeavesTheLastAssetsOfSomeWideRegistersUnprinted) {
  load(50, 13);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  print(printer);
  ASSERT_EQ(printer.finished.size(), 6U) << "seven assets a page";
  EXPECT_EQ(printer.finished.back().pictures[0].columns.back(), 42);
  const PageRoom room = pageRoomBelow(measureScheduleHeading(printer), printer);
  EXPECT_EQ(PrintPages::of(table, room).columnsLeftOut(table), 8);
  expectFullSizes();
}

/// Asset columns that a printed picture shows.
std::set<int> printedAssets(const RecordingPrinter& printer) {
  std::set<int> assets;
  for (const RecordingPrinter::Page& page : printer.finished) {
    for (const int column : page.pictures.at(0).columns) {
      if (column > 0) assets.insert(column);
    }
  }
  return assets;
}

TEST_F(Printing, KnowsBeforehandHowManyAssetsWillBeOnNoPage) {
  constexpr Paper narrow{"narrower than an asset", 2900, 15398};
  std::vector<Paper> all(std::begin(papers), std::end(papers));
  all.push_back(narrow);
  for (const Paper& paper : all) {
    int first_with_some = 0;
    for (int assets = 1; assets <= 200; ++assets) {
      load(assets, 13);
      RecordingPrinter printer(paper.width, paper.height);
      const int heading = measureScheduleHeading(printer);
      const int missing = assetsOnNoPage(table, pageRoomBelow(heading, printer));
      if (missing > 0 && first_with_some == 0) first_with_some = assets;
      RecordingPrinter turned(paper.height, paper.width);
      ASSERT_EQ(assetsOnNoPage(table, turnedPageRoomBelow(heading, turned)), missing);
      print(printer);
      const std::set<int> printed = printedAssets(printer);
      ASSERT_EQ(missing, assets - static_cast<int>(printed.size())) << paper.name << assets;
      if (!printed.empty()) {
        ASSERT_EQ(*printed.rbegin(), assets - missing) << "the last ones";
      }
    }
    EXPECT_NE(first_with_some, 0) << paper.name;
    if (std::string(paper.name) == "A4") {
      EXPECT_EQ(first_with_some, 50);
    }
  }
}

TEST_F(Printing, PrintsCaptionsAloneWhereNoAssetFits) {
  load(2, 13);
  RecordingPrinter printer(1500, papers[0].height);
  print(printer);
  ASSERT_EQ(printer.finished.size(), 3U);
  for (const auto& page : printer.finished) EXPECT_THAT(page.pictures[0].columns, ElementsAre(0));
  expectFullSizes();
}

TEST_F(Printing, GivesBackTheFirstVisibleCell) {
  load(40, 60);
  table.setTopRow(14);
  table.setLeftColumn(9);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  print(printer);
  EXPECT_EQ(table.topRow(), 14);
  EXPECT_EQ(table.leftColumn(), 9);
}

TEST_F(Printing, GivesBackTheFirstVisibleCellThoughItWasScrolledMeanwhile) {
  struct Scrolling : RecordingPrinter {
    Scrolling(Grid& scrolled, Paper paper)
        : RecordingPrinter(paper.width, paper.height), grid(scrolled) {}
    void newPage() override {
      RecordingPrinter::newPage();
      grid.setTopRow(3);
      grid.setLeftColumn(2);
    }
    Grid& grid;
  };
  load(40, 60);
  table.setTopRow(14);
  table.setLeftColumn(9);
  Scrolling printer(table, papers[0]);
  print(printer);
  EXPECT_EQ(table.topRow(), 14);
  EXPECT_EQ(table.leftColumn(), 9);
}

TEST_F(Printing, TellsObserversOnceAndOnlyAtTheEnd) {
  load(40, 60);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  std::vector<Aspect> heard;
  const Observation observation = table.observe([&](Aspect aspect) { heard.push_back(aspect); });
  print(printer);
  EXPECT_THAT(heard, ElementsAre(Aspect::structure));
}

TEST_F(Printing, SaysSoWhereThereIsNoPrinter) {
  load(3, 19);
  user.click(view.PrintButton.normal);
  EXPECT_THAT(site.takeBoxes(), ElementsAre(printer_trouble));
  EXPECT_THAT(reports.all(),
              ElementsAre("DepCalcView::GetPrintPictures Error#482: Printer error",
                          "DepCalcView::Printbutton_Mouseup Error#482: Printer error"));
  EXPECT_EQ(site.printers_asked, 1) << "who was asked for a printer and gave none is left alone";
}

TEST_F(Printing, AsksForAPrinterAnewForEachJob) {
  load(3, 19);
  user.click(view.PrintButton.normal);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  print(printer);
  print(printer);
  EXPECT_EQ(printer.jobs_ended, 2);
  EXPECT_EQ(site.printers_asked, 3);
}

TEST_F(Printing, ReportsAPageTooLowForARow) {
  load(3, 19);
  RecordingPrinter three_rows(papers[0].width, header_height + 3 * 450);
  print(three_rows);
  EXPECT_THAT(site.takeBoxes(), ElementsAre(printer_trouble));
  EXPECT_THAT(reports.all(),
              ElementsAre("DepCalcView::GetPrintPictures Error#11: Division by zero"));
  RecordingPrinter no_row(papers[0].width, header_height - 1);
  print(no_row);
  EXPECT_THAT(no_row.finished, IsEmpty());
  EXPECT_THAT(site.takeBoxes(), IsEmpty());
}

TEST_F(Printing, SaysTheMessageThenDrawsAgainThenReports) {
  load(3, 19);
  log.clear();
  const ErrorReportHook hook([&](const ErrorReport&) {
    log.emplace_back(table.redraw() ? "report" : "report before drawing");
  });
  RecordingPrinter printer(papers[0].width, papers[0].height);
  printer.failing_call = 8;
  print(printer);
  EXPECT_THAT(log, ElementsAre("box DepCalc10", "report"));
}

TEST_F(Printing, SurvivesAPrinterThatFailsAtAnyCallAndIsWholeAgainAfterTheNextLoad) {
  const Paper& paper = papers[0];
  load(20, 40);
  RecordingPrinter healthy(paper.width, paper.height);
  print(healthy);
  ASSERT_EQ(healthy.finished.size(), 6U);
  bool ever_collapsed = false;
  for (int call = 1; call <= healthy.calls; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + " of " + std::to_string(healthy.calls));
    load(20, 40);
    expectFullSizes();
    const std::size_t reported = reports.all().size();
    RecordingPrinter printer(paper.width, paper.height);
    printer.failing_call = call;
    print(printer);
    const bool at_end = call == healthy.calls;
    EXPECT_EQ(site.takeBoxes().size(), at_end ? 0U : 1U);
    ASSERT_EQ(reports.all().size(), reported + 1);
    EXPECT_EQ(reports.last(), at_end ? "DepCalcView::Printbutton_Mouseup Error#482: Printer error"
                                     : "DepCalcView::GetPrintPictures Error#482: Printer error");
    EXPECT_EQ(printer.jobs_ended, at_end ? 0 : 1) << "what was printed is sent";
    EXPECT_TRUE(table.redraw());
    ever_collapsed = ever_collapsed || table.rowHeight(39) == 0 || table.columnWidth(20) == 0;
    EXPECT_FALSE(view.PrintButton.pressed.visible());
  }
  EXPECT_TRUE(ever_collapsed);
  load(20, 40);
  expectFullSizes();
  RecordingPrinter again(paper.width, paper.height);
  print(again);
  EXPECT_EQ(again.finished.size(), healthy.finished.size());
}

TEST_F(Printing, EndsWhereAFailedRunLeftTheFirstRowCollapsed) {
  load(3, 60);
  RecordingPrinter printer(papers[0].width, papers[0].height);
  RecordingPrinter healthy(papers[0].width, papers[0].height);
  print(healthy);
  printer.failing_call = healthy.calls - 2;
  print(printer);
  ASSERT_EQ(table.rowHeight(0), 0);
  site.takeBoxes();
  print(healthy);
  EXPECT_THAT(site.takeBoxes(), ElementsAre(printer_trouble));
  EXPECT_EQ(reports.last(), "DepCalcView::GetPrintPictures Error#6: Overflow");
}

}  // namespace
}  // namespace depcalc
