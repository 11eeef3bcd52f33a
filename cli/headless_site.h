// What surrounds a screen that nobody looks at.
#pragma once

#include <string_view>

#include "controls/site.h"

namespace depcalc {

/// No box is shown, and questions are answered with No.
class HeadlessSite final : public Site {
 public:
  explicit HeadlessSite(Date today) : today_(today) {}

  BoxAnswer showBox(const MessageBox& box) override;
  void beep() override {}
  void setPointer(Pointer /*pointer*/) override {}
  Date today() override { return today_; }
  Printer& systemPrinter() override;
  double twipsPerPixel() override { return 15; }
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override {
    return plainTextExtent(text, font, wrap_width);
  }

  void setPrinter(Printer& printer) { printer_ = &printer; }

 private:
  Date today_;
  Printer* printer_ = nullptr;
};

}  // namespace depcalc
