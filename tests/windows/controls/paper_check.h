// A printer beside another one: what is printed also goes into metafiles, and is read there.
#pragma once

#include <ostream>
#include <string>

#include "windows/controls/gdi_printer.h"

namespace depcalc::testing {

/// Prints on `first`, which says how large things are, and the same into metafiles. Where those of
/// a job do not read as what was printed, `trouble` gets a line.
class TwicePrinted : public Printer {
 public:
  TwicePrinted(Printer& first, std::ostream& trouble);

  void setFontSize(double points) override;
  int textWidth(std::string_view text) override { return first_.textWidth(text); }
  int textHeight(std::string_view text) override { return first_.textHeight(text); }
  int printableWidth() override { return first_.printableWidth(); }
  int printableHeight() override { return first_.printableHeight(); }
  int page() override { return first_.page(); }
  void setPosition(int x, int y) override;
  void print(std::string_view text) override;
  void paintPicture(const GridPicture& picture, int x, int y) override;
  void newPage() override;
  void endJob() override;

 private:
  Printer& first_;
  std::ostream& trouble_;
  native::MetafilePages* pages_ = nullptr;
  native::GdiPrinter second_;
  std::string printed_;  ///< all texts of the job behind each other, without blanks
};

}  // namespace depcalc::testing
