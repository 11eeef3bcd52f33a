// A printer that keeps what was printed, page by page.
#pragma once

#include <string>
#include <vector>

#include "controls/font.h"
#include "controls/printer.h"

namespace depcalc::drive {

/// A sheet of US Letter with margins of a quarter of an inch, unless another size is set. Texts
/// measure as plainTextExtent says.
class PageRecorder : public Printer {
 public:
  struct Text {
    int x = 0;
    int y = 0;
    std::string text;
  };
  struct Picture {
    int x = 0;
    int y = 0;
    GridPicture picture;
  };
  struct Page {
    std::vector<Text> texts;
    std::vector<Picture> pictures;

    [[nodiscard]] bool empty() const { return texts.empty() && pictures.empty(); }
  };

  void setFontSize(double points) override { font_.size = points; }
  int textWidth(std::string_view text) override;
  int textHeight(std::string_view text) override;
  int printableWidth() override { return width_; }
  int printableHeight() override { return height_; }
  int page() override { return static_cast<int>(job_.size()); }
  void setPosition(int x, int y) override;
  void print(std::string_view text) override;
  void paintPicture(const GridPicture& picture, int x, int y) override;
  void newPage() override;
  void endJob() override;

  void forget() { pages_.clear(); }
  void setPrintableSize(int width, int height);
  /// Whatever is put on that page of a job is error 482, until another page is named; 0: on none.
  void failOnPage(int page) { failing_page_ = page; }
  /// How many jobs have ended, those whose printing failed included.
  [[nodiscard]] int jobs() const { return jobs_; }
  /// The pages of all jobs ended; a last page on which nothing stands is none.
  [[nodiscard]] const std::vector<Page>& pages() const { return pages_; }

 private:
  Page& pageToPrintOn();

  Font font_;
  int width_ = 11520;
  int height_ = 15120;
  int x_ = 0;
  int y_ = 0;
  int failing_page_ = 0;
  int jobs_ = 0;
  std::vector<Page> job_{1};
  std::vector<Page> pages_;
};

}  // namespace depcalc::drive
