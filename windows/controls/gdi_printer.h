// A printer that draws on pages by GDI.
#pragma once

#include <memory>
#include <optional>

#include "controls/printer.h"
#include "windows/controls/canvas.h"
#include "windows/controls/page_device.h"

namespace depcalc::native {

/// One or more jobs, one after the other. A page begins when something is drawn on it, so a job
/// that ends behind a new page has no empty last one. A device that refuses is error 482, and what
/// it refused is never sent in part.
class GdiPrinter : public Printer {
 public:
  /// Texts have that family.
  GdiPrinter(std::unique_ptr<PageDevice> device, const std::wstring& family);
  ~GdiPrinter() override;

  void setFontSize(double points) override { font_.size = points; }
  int textWidth(std::string_view text) override;
  int textHeight(std::string_view text) override;
  int printableWidth() override { return device_->printable().cx; }
  int printableHeight() override { return device_->printable().cy; }
  int page() override { return page_; }
  void setPosition(int x, int y) override { position_ = {x, y}; }
  void print(std::string_view text) override;
  void paintPicture(const GridPicture& picture, int x, int y) override;
  void newPage() override;
  void endJob() override;

 private:
  const Canvas& canvas();
  void finishPage();
  [[noreturn]] void fail();
  void restart();

  std::unique_ptr<PageDevice> device_;
  TextMeasure measure_;
  Fonts fonts_;
  Tones tones_;
  std::optional<Canvas> canvas_;  ///< of the page that has begun
  Font font_{10};
  POINT position_{};
  int page_ = 1;
  int pages_due_ = 0;  ///< to end before anything is drawn
};

}  // namespace depcalc::native
