// Printing by GDI: into metafiles, and what becomes of a device that refuses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/controls/metafile_texts.h"
#include "values/runtime_error.h"
#include "windows/controls/windows_site.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

GridPicture smallPicture() {
  GridPicture picture;
  picture.rows = {0, 1};
  picture.columns = {0, 1};
  picture.row_heights = {300, 450};
  picture.column_widths = {1500, 1200};
  picture.cells = {{"Name", CellAlignment::leftCenter, CellKind::caption},
                   {"Lathe", CellAlignment::leftBottom, CellKind::text},
                   {"Basis", CellAlignment::leftCenter, CellKind::caption},
                   {"27,800.00", CellAlignment::rightCenter, CellKind::amount}};
  return picture;
}

struct Printing : ::testing::Test {
  Printing() {
    auto made = std::make_unique<native::MetafilePages>(SIZE{11520, 15120});
    pages = made.get();
    printer = std::make_unique<native::GdiPrinter>(std::move(made), native::usualFamily());
  }

  native::MetafilePages* pages;
  std::unique_ptr<native::GdiPrinter> printer;
};

TEST_F(Printing, WritesTextsAndPicturesPageByPage) {
  printer->setFontSize(12);
  printer->setPosition(100, 200);
  printer->print("Depreciation Schedule");
  printer->print("second line");
  printer->paintPicture(smallPicture(), 0, 1000);
  EXPECT_EQ(printer->page(), 1);
  printer->newPage();
  EXPECT_EQ(printer->page(), 2);
  printer->print("Page 2");
  printer->endJob();
  ASSERT_THAT(pages->pages(), SizeIs(2));
  EXPECT_THAT(textsIn(pages->pages()[0]), ElementsAre("Depreciation Schedule", "second line",
                                                      "Name", "Lathe", "Basis", "27,800.00"));
  EXPECT_THAT(textsIn(pages->pages()[1]), ElementsAre("Page 2"));
  EXPECT_EQ(printer->page(), 1) << "another job begins";
}

TEST_F(Printing, BeginsAPageWhenSomethingIsDrawnOnIt) {
  printer->print("one");
  printer->newPage();
  printer->newPage();
  printer->print("three");
  printer->newPage();
  printer->endJob();
  ASSERT_THAT(pages->pages(), SizeIs(3)) << "the second is empty, a fourth none";
  EXPECT_THAT(textsIn(pages->pages()[1]), IsEmpty());
  printer->endJob();
  EXPECT_THAT(pages->pages(), SizeIs(3)) << "nothing printed, nothing sent";
}

TEST_F(Printing, MeasuresInTwips) {
  printer->setFontSize(10);
  const int width = printer->textWidth("Depreciation");
  printer->setFontSize(20);
  EXPECT_NEAR(printer->textWidth("Depreciation"), 2 * width, 4);
  EXPECT_GT(printer->textHeight("x"), 20 * 20);
  EXPECT_LT(printer->textHeight("x"), 30 * 20);
  EXPECT_EQ(printer->printableWidth(), 11520);
  EXPECT_EQ(printer->printableHeight(), 15120);
}

/// Refuses one operation.
struct RefusingDevice : native::MetafilePages {
  enum class At { beginPage, endPage, endJob };
  RefusingDevice(At at, int& aborted) : MetafilePages({1000, 1000}), at_(at), aborted_(aborted) {}
  ~RefusingDevice() override = default;

  bool beginPage() override { return at_ != At::beginPage && MetafilePages::beginPage(); }
  bool endPage() override { return MetafilePages::endPage() && at_ != At::endPage; }
  bool endJob() override { return at_ != At::endJob && MetafilePages::endJob(); }
  void abort() override {
    ++aborted_;
    MetafilePages::abort();
  }

 private:
  At at_;
  int& aborted_;
};

TEST(Printer, IsErrorWhereTheDeviceRefuses) {
  using At = RefusingDevice::At;
  for (const At at : {At::beginPage, At::endPage, At::endJob}) {
    int aborted = 0;
    native::GdiPrinter printer(std::make_unique<RefusingDevice>(at, aborted),
                               native::usualFamily());
    try {
      printer.print("one");
      printer.endJob();
      ADD_FAILURE() << static_cast<int>(at);
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 482);
      EXPECT_EQ(error.description(), "Printer error");
    }
    EXPECT_EQ(aborted, 1) << "nothing of it is sent";
    EXPECT_EQ(printer.page(), 1);
  }
}

TEST(Printer, IsErrorWhereThereIsNone) {
  native::WindowsSite site({.owner = nullptr, .printer = [] { return nullptr; }});
  EXPECT_THROW(site.systemPrinter(), RuntimeError);
}

TEST(Site, KnowsTheDayAndMeasuresTexts) {
  native::WindowsSite site({.owner = nullptr, .dpi = [] { return 144; }});
  SYSTEMTIME now{};
  GetLocalTime(&now);
  EXPECT_EQ(site.today(), Date::strict(now.wYear, now.wMonth, now.wDay));
  EXPECT_EQ(site.twipsPerPixel(), 10);
  const TextExtent one = site.textExtent("Useful Life", {9}, 0);
  const TextExtent bold = site.textExtent("Useful Life", {9, true}, 0);
  EXPECT_GT(bold.width, one.width);
  const TextExtent broken = site.textExtent("Useful Life", {9}, one.width - 1);
  EXPECT_EQ(broken.height, 2 * one.height);
  EXPECT_LT(broken.width, one.width);
}

}  // namespace
}  // namespace depcalc::testing
