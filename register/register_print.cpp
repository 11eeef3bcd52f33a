// How the register's table is printed.
#include "common/trapped.h"
#include "register/dep_calc_view.h"
#include "register/print_pages.h"
#include "register/system_printer.h"

namespace depcalc {
namespace {

std::string pageNumber(int page, int pages) {
  return "Page " + std::to_string(page) + " of " + std::to_string(pages);
}

void collapseOtherColumns(Grid& table, const PrintPages& pages, int x) {
  if (pages.across <= 1) return;
  for (int column = 1; column < table.columns(); ++column) {
    if (pages.hasColumn(column, x)) continue;
    table.setColumnData(column, table.columnWidth(column));
    table.setColumnWidth(column, 0);
  }
}

void collapseOtherRows(Grid& table, const PrintPages& pages, int y) {
  if (pages.down <= 1) return;
  for (int row = 0; row < table.rows(); ++row) {
    if (pages.hasRow(row, y)) continue;
    table.setRowData(row, table.rowHeight(row));
    table.setRowHeight(row, 0);
  }
}

void restoreRows(Grid& table) {
  for (int row = 0; row < table.rows(); ++row) {
    if (table.rowHeight(row) == 0) table.setRowHeight(row, table.rowData(row));
  }
}

void restoreColumns(Grid& table) {
  for (int column = 0; column < table.columns(); ++column) {
    if (table.columnWidth(column) == 0) table.setColumnWidth(column, table.columnData(column));
  }
}

/// The page's title and number, then the table as it is displayed now.
void printPage(Printer& printer, const PrintPages& pages, const Grid& table, int heading_height) {
  printer.print(schedule_heading);
  // Placed by the sum of the page counts and printed with their product: schedules have always
  // had the number there.
  const int page = printer.page();
  const int measured = printer.textWidth(pageNumber(page, pages.across + pages.down - 1));
  printer.setPosition(printer.printableWidth() - 2 * measured, 0);
  printer.print(pageNumber(page, pages.across * pages.down));
  printer.paintPicture(table.Picture(), 0, heading_height);
  printer.newPage();
}

void printSchedule(Printer& printer, Grid& table) {
  const int heading_height = measureScheduleHeading(printer);
  table.setRedraw(false);
  const int top_row = table.topRow();
  const int left_column = table.leftColumn();
  const PrintPages pages = PrintPages::of(table, pageRoomBelow(heading_height, printer));
  for (int x = 1; x <= pages.across; ++x) {
    collapseOtherColumns(table, pages, x);
    for (int y = 1; y <= pages.down; ++y) {
      collapseOtherRows(table, pages, y);
      printPage(printer, pages, table, heading_height);
      restoreRows(table);
    }
    restoreColumns(table);
  }
  table.setTopRow(top_row);
  table.setLeftColumn(left_column);
  table.setRedraw(true);
}

}  // namespace

void DepCalcView::GetPrintPictures(Printer& printer) {
  const auto atError = [this] {
    messageBox(
        "There may be a problem with your printer, or another error. Please correct the problem "
        "and try again.");
    AssetViewTable.setRedraw(true);
  };
  trapped(
      "DepCalcView::GetPrintPictures", [&] { printSchedule(printer, AssetViewTable); }, atError);
}

void DepCalcView::Printbutton_Mouseup() {
  trapped("DepCalcView::Printbutton_Mouseup", [this] {
    SystemPrinter printer(site());
    GetPrintPictures(printer);
    printer.endJob();
  });
}

}  // namespace depcalc
