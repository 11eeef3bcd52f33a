// The system's printer, taken when it is first needed.
#pragma once

#include "controls/site.h"
#include "values/runtime_error.h"

namespace depcalc {

/// Where there is none, its operations fail, not the taking. Whoever gives the printer may have to
/// ask the user for it, so a job that came to none ends without asking again.
class SystemPrinter : public Printer {
 public:
  explicit SystemPrinter(Site& site) : site_(site) {}

  void setFontSize(double points) override { printer().setFontSize(points); }
  int textWidth(std::string_view text) override { return printer().textWidth(text); }
  int textHeight(std::string_view text) override { return printer().textHeight(text); }
  int printableWidth() override { return printer().printableWidth(); }
  int printableHeight() override { return printer().printableHeight(); }
  int page() override { return printer().page(); }
  void setPosition(int x, int y) override { printer().setPosition(x, y); }
  void print(std::string_view text) override { printer().print(text); }
  void paintPicture(const GridPicture& picture, int x, int y) override {
    printer().paintPicture(picture, x, y);
  }
  void newPage() override { printer().newPage(); }
  void endJob() override {
    if (printer_ == nullptr) throw RuntimeError(482, "Printer error");
    printer_->endJob();
  }

 private:
  Printer& printer() {
    if (printer_ == nullptr) printer_ = &site_.systemPrinter();
    return *printer_;
  }

  Site& site_;
  Printer* printer_ = nullptr;
};

}  // namespace depcalc
