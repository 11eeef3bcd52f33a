#include "tests/windows/controls/paper_check.h"

#include <utility>

#include "tests/windows/controls/metafile_texts.h"

namespace depcalc::testing {
namespace {

/// A text that is broken into lines loses its blanks there.
void append(std::string& all, std::string_view text) {
  for (const char c : text) {
    if (c != ' ' && c != '\n' && c != '\r') all += c;
  }
}

std::unique_ptr<native::MetafilePages> pagesFor(Printer& printer) {
  return std::make_unique<native::MetafilePages>(
      SIZE{printer.printableWidth(), printer.printableHeight()});
}

}  // namespace

TwicePrinted::TwicePrinted(Printer& first, std::ostream& trouble)
    : first_(first),
      trouble_(trouble),
      second_(
          [&] {
            auto pages = pagesFor(first);
            pages_ = pages.get();
            return pages;
          }(),
          native::usualFamily()) {}

void TwicePrinted::setFontSize(double points) {
  first_.setFontSize(points);
  second_.setFontSize(points);
}

void TwicePrinted::setPosition(int x, int y) {
  first_.setPosition(x, y);
  second_.setPosition(x, y);
}

void TwicePrinted::print(std::string_view text) {
  first_.print(text);
  second_.print(text);
  append(printed_, text);
}

void TwicePrinted::paintPicture(const GridPicture& picture, int x, int y) {
  first_.paintPicture(picture, x, y);
  second_.paintPicture(picture, x, y);
  for (const GridPicture::Cell& cell : picture.cells) append(printed_, cell.text);
}

void TwicePrinted::newPage() {
  first_.newPage();
  second_.newPage();
}

void TwicePrinted::endJob() {
  first_.endJob();
  const std::size_t before = pages_->pages().size();
  second_.endJob();
  std::string read;
  for (std::size_t i = before; i < pages_->pages().size(); ++i) {
    for (const std::string& text : textsIn(pages_->pages()[i])) append(read, text);
  }
  if (read != printed_) trouble_ << "trouble: printed " << printed_ << ", read " << read << '\n';
  printed_.clear();
}

}  // namespace depcalc::testing
