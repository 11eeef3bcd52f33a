// Workbooks as spreadsheet programs save them.
#include "importing/workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xlsxwriter.h>

#include <fstream>

#include "importing/asset_import.h"
#include "importing/workbook/sheet_reading.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Workbook : testing::Test {
  std::string path(const char* name = "list.xlsx") const { return directory.path() + "/" + name; }
  /// Two titled columns of texts, then a date, a life and amounts, after a sheet that is hidden.
  void write() const {
    lxw_workbook* const book = workbook_new(path().c_str());
    lxw_worksheet* const hidden = workbook_add_worksheet(book, "Lists");
    lxw_worksheet* const sheet = workbook_add_worksheet(book, "Assets");
    worksheet_write_string(hidden, 0, 0, "nothing of ours", nullptr);
    worksheet_activate(sheet);
    worksheet_set_first_sheet(sheet);
    worksheet_hide(hidden);
    lxw_format* const date = workbook_add_format(book);
    format_set_num_format(date, "d. mmmm yyyy");
    lxw_format* const money = workbook_add_format(book);
    format_set_num_format(money, "#,##0.00 \"days\"");
    int column = 0;
    for (const char* name : {"Asset No", "Description", "In service", "Life", "Cost", "Method"}) {
      worksheet_write_string(sheet, 2, static_cast<lxw_col_t>(column++), name, nullptr);
    }
    worksheet_write_string(sheet, 3, 0, "A1", nullptr);
    worksheet_write_string(sheet, 3, 1, "Büro & Co <1>", nullptr);
    lxw_datetime day{2020, 3, 15, 0, 0, 0};
    worksheet_write_datetime(sheet, 3, 2, &day, date);
    worksheet_write_number(sheet, 3, 3, 5, nullptr);
    worksheet_write_number(sheet, 3, 4, 1.125, money);
    worksheet_write_formula_num(sheet, 4, 4, "=1+1", money, 38450.5);
    worksheet_write_string(sheet, 4, 0, "A2", nullptr);
    workbook_close(book);
  }

  testing_support::TemporaryDirectory directory;
};

TEST_F(Workbook, IsReadFromItsFirstSheetThatShows) {
  write();
  const auto read = tableOfWorkbook(path(), 100);
  const auto* table = std::get_if<FileTable>(&read);
  ASSERT_NE(table, nullptr) << std::get<std::string>(read);
  ASSERT_EQ(table->rows.size(), 3U);
  EXPECT_EQ(table->rows[1].line, 4U);
  EXPECT_THAT(table->rows[0].cells,
              ElementsAre("Asset No", "Description", "In service", "Life", "Cost", "Method"));
  EXPECT_THAT(table->rows[1].cells,
              ElementsAre("A1", "Büro & Co <1>", "2020-03-15", "5", "1.1250", ""));
  EXPECT_THAT(table->rows[2].cells, ElementsAre("A2", "", "", "", "38450.5", ""));
}

TEST_F(Workbook, LeavesNothingOpenAboutItsNumbersAndDates) {
  write();
  AssetImport import(std::get<FileTable>(tableOfWorkbook(path(), 100)),
                     {Date::strict(2024, 6, 15), Date::strict(2024, 12, 31), 0}, {}, {});
  while (import.goOn(10)) {
  }
  EXPECT_EQ(import.questions().number, "");
  EXPECT_EQ(import.questions().date, "");
  EXPECT_EQ(import.summary(), "1 asset ready · 1 with problems");
}

TEST_F(Workbook, KeepsNoMoreRowsThanItIsTold) {
  write();
  const auto read = tableOfWorkbook(path(), 2);
  EXPECT_EQ(std::get<FileTable>(read).rows.size(), 2U);
  EXPECT_EQ(std::get<FileTable>(read).beyond, 1U);
}

TEST_F(Workbook, ThatIsNoneSaysWhatToDo) {
  write();
  std::ifstream whole(path(), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(whole), {}};
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{4}, bytes.size() / 2, bytes.size() - 30}) {
    std::ofstream(path("cut.xlsx"), std::ios::binary) << bytes.substr(0, size);
    const auto read = tableOfWorkbook(path("cut.xlsx"), 100);
    ASSERT_TRUE(std::holds_alternative<std::string>(read)) << size;
    EXPECT_THAT(std::get<std::string>(read), HasSubstr("save the sheet as CSV"));
  }
  EXPECT_TRUE(std::holds_alternative<std::string>(tableOfWorkbook(path("missing.xlsx"), 100)));
}

/// Whatever byte is another: a table or a refusal, and nothing else.
TEST_F(Workbook, MayBeDamagedAnywhere) {
  write();
  std::ifstream whole(path(), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(whole), {}};
  std::size_t refused = 0;
  for (std::size_t at = 0; at < bytes.size(); at += 7) {
    std::string damaged = bytes;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x41);
    std::ofstream(path("damaged.xlsx"), std::ios::binary) << damaged;
    refused += std::holds_alternative<std::string>(tableOfWorkbook(path("damaged.xlsx"), 100));
  }
  EXPECT_GT(refused, 50U);
}

TEST(SheetFormats, ShowADayOrNot) {
  const std::pair<const char*, bool> formats[] = {{"yyyy-mm-dd", true},
                                                  {"d. mmmm yyyy", true},
                                                  {"[$-407]d/m/yy", true},
                                                  {"mmm", true},
                                                  {"m/d/yy h:mm", true},
                                                  {"General", false},
                                                  {"0.00", false},
                                                  {"#,##0.00 \"days\"", false},
                                                  {"hh:mm:ss", false},
                                                  {"[h]:mm", false},
                                                  {"0.00_d", false},
                                                  {"#,##0 [$kr-406]", false},
                                                  {"\"yd\"0", false},
                                                  {"[Red]0", false},
                                                  {"[", false}};
  for (const auto& [code, is_date] : formats) EXPECT_EQ(isDateFormat(code), is_date) << code;
}

TEST(SheetFormats, CountDaysAsSheetsDo) {
  const struct {
    double days;
    bool from_1904;
    const char* date;
  } cases[] = {{43905, false, "2020-03-15"},
               {43905.75, false, "2020-03-15"},
               {61, false, "1900-03-01"},
               {59, false, "1900-02-28"},
               {1, false, "1900-01-01"},
               {42443, true, "2020-03-15"},
               {0, false, "1899-12-31"},
               {-5, false, ""},
               {2958465, false, "9999-12-31"},
               {2958466, false, ""},
               {1e300, false, ""}};
  for (const auto& [days, from_1904, date] : cases) {
    EXPECT_EQ(sheetDate(days, from_1904), date) << days;
  }
}

}  // namespace
}  // namespace depcalc
