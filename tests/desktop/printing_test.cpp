// The printed schedule as a PDF document.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

#include "desktop/printing/pdf_printer.h"
#include "tests/support/register_fixture.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

using desktop::makePdfPrinter;
using desktop::PaperSize;
using desktop::PdfPaper;
using desktop::PdfPrinter;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> buffer{};
  for (std::size_t n = 0; (n = fread(buffer.data(), 1, buffer.size(), pipe.get())) > 0;) {
    output.append(buffer.data(), n);
  }
  return output;
}

/// A document on disk, for as long as it is looked at.
class Document {
 public:
  explicit Document(std::string_view bytes)
      : path_(::testing::TempDir() + "schedule-" + std::to_string(getpid()) + ".pdf") {
    std::ofstream(path_, std::ios::binary) << bytes;
  }
  ~Document() { std::filesystem::remove(path_); }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  [[nodiscard]] std::string info() const { return outputOf("pdfinfo '" + path_ + "'"); }
  [[nodiscard]] int pages() const { return std::stoi(info().substr(info().find("Pages:") + 6)); }
  [[nodiscard]] std::string text(int page) const {
    const std::string number = std::to_string(page);
    return outputOf("pdftotext -layout -f " + number + " -l " + number + " '" + path_ + "' -");
  }

 private:
  std::string path_;
};

struct PrintedSchedule : ::testing::Test, testing::RegisterSurroundings {
  void load(int assets, int rows) {
    const auto years = static_cast<std::int16_t>(rows - 13);
    container.assets.clear();
    for (int i = 1; i <= assets; ++i) {
      auto asset = testing::makeAsset("ID-" + std::to_string(i));
      asset->AssetName("Delivery truck");
      asset->DepRecovery(50);
      asset->AssetBasis(Currency::fromDouble(9'999'999.99));
      for (std::int16_t k = 0; k < years; ++k) {
        asset->DepItem(k, Currency::fromDouble(1000.0 * i + k));
      }
      container.assets.push_back(std::move(asset));
    }
    container.years = rows - 13;
    showView();
  }
  std::unique_ptr<PdfPrinter> print(PdfPaper paper) {
    auto printer = makePdfPrinter(paper, "Depreciation Schedule");
    view.GetPrintPictures(*printer);
    printer->endJob();
    EXPECT_THAT(reports.all(), IsEmpty());
    return printer;
  }

  Reports reports;
};

TEST_F(PrintedSchedule, HasThePapersSizeAndHalfAnInchOfMargin) {
  const struct {
    PdfPaper paper;
    const char* page_size;
    int width;
    int height;
  } cases[] = {{{PaperSize::a4, false}, "595 x 842 pts", 595 * 20 - 1440, 842 * 20 - 1440},
               {{PaperSize::a4, true}, "842 x 595 pts", 842 * 20 - 1440, 595 * 20 - 1440},
               {{PaperSize::letter, false}, "612 x 792 pts", 10800, 14400},
               {{PaperSize::letter, true}, "792 x 612 pts", 14400, 10800}};
  load(3, 19);
  for (const auto& [paper, page_size, width, height] : cases) {
    const auto printer = print(paper);
    EXPECT_EQ(printer->printableWidth(), width);
    EXPECT_EQ(printer->printableHeight(), height);
    EXPECT_THAT(Document(printer->document()).info(), HasSubstr(page_size));
  }
}

TEST_F(PrintedSchedule, SaysOnEachPageWhatTheTableShowsThere) {
  load(17, 49);
  const Document document(print({})->document());
  ASSERT_EQ(document.pages(), 6) << "three across, two down, and no empty page behind them";
  EXPECT_THAT(document.info(), HasSubstr("Depreciation Schedule"));
  const std::string first = document.text(1);
  EXPECT_THAT(first, HasSubstr("Depreciation Schedule"));
  EXPECT_THAT(first, HasSubstr("Page 1 of 6"));
  for (const char* shown : {"Asset ID", "ID-1", "ID-7", "9,999,999.99", "FY2024", "FY2040",
                            "1,000.00", "7,016.00", "Placed-in-service", "Full Year", "Delivery"}) {
    EXPECT_THAT(first, HasSubstr(shown));
  }
  for (const char* elsewhere : {"ID-8", "FY2041", "1,017.00"}) {
    EXPECT_THAT(first, Not(HasSubstr(elsewhere)));
  }
  const std::string second = document.text(2);
  EXPECT_THAT(second, HasSubstr("Page 2 of 6"));
  EXPECT_THAT(second, Not(HasSubstr("Asset ID"))) << "the captions are not repeated";
  EXPECT_THAT(second, HasSubstr("FY2041"));
  EXPECT_THAT(second, HasSubstr("1,017.00"));
  EXPECT_THAT(document.text(3), HasSubstr("ID-8"));
  EXPECT_THAT(document.text(5), HasSubstr("ID-17"));
  EXPECT_THAT(document.text(6), HasSubstr("Page 6 of 6"));
}

TEST_F(PrintedSchedule, ShowsLongAndForeignTextsWhole) {
  load(2, 19);
  container.assets[0]->AssetName("Fräsmaschine für Übergrößen");
  container.assets[0]->ADept("Back office");
  container.assets[0]->AssetID("ABCDEFGHIJKLMNOPQRST");
  container.assets[1]->AssetID("WWWWWWWWWWWWWWWWWWWW");
  showView();
  std::string text = Document(print({})->document()).text(1);
  EXPECT_THAT(text, HasSubstr("Fräsmaschine"));
  EXPECT_THAT(text, HasSubstr("Back office")) << "without ligatures";
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  EXPECT_EQ(std::count(text.begin(), text.end(), 'W'), 20);
}

TEST_F(PrintedSchedule, IsNoDocumentWhenNothingWasPrinted) {
  const auto printer = makePdfPrinter({}, "Nothing");
  printer->newPage();
  printer->endJob();
  EXPECT_EQ(printer->document(), "");
}

TEST_F(PrintedSchedule, MeasuresInProportionToTheFontsSize) {
  const auto printer = makePdfPrinter({}, "");
  printer->setFontSize(12);
  const int width = printer->textWidth("Depreciation Schedule");
  const int height = printer->textHeight("Depreciation Schedule");
  EXPECT_GT(height, 12 * 20);
  EXPECT_LT(height, 12 * 20 * 2);
  EXPECT_GT(width, 21 * 12 * 20 / 4);
  printer->setFontSize(24);
  EXPECT_NEAR(printer->textWidth("Depreciation Schedule"), 2 * width, 2);
  EXPECT_NEAR(printer->textHeight("Depreciation Schedule"), 2 * height, 2);
  EXPECT_EQ(printer->textWidth(""), 0);
}

TEST_F(PrintedSchedule, CountsItsPages) {
  const auto printer = makePdfPrinter({}, "");
  EXPECT_EQ(printer->page(), 1);
  printer->print("one");
  printer->newPage();
  EXPECT_EQ(printer->page(), 2);
  printer->newPage();
  printer->print("three");
  printer->endJob();
  const Document document(printer->document());
  EXPECT_EQ(document.pages(), 3);
  EXPECT_THAT(document.text(3), HasSubstr("three"));
}

}  // namespace
}  // namespace depcalc
