// What surrounds the calculator on Windows.
#pragma once

#include <functional>
#include <memory>

#include "controls/site.h"
#include "windows/controls/gdi_printer.h"

namespace depcalc::native {

class WindowsSite : public Site {
 public:
  struct Surroundings {
    /// The window that boxes are modal to; none: null.
    std::function<HWND()> owner;
    /// Dots per inch of what the controls are shown on.
    std::function<int()> dpi = [] { return 96; };
    std::function<std::unique_ptr<PageDevice>()> printer = defaultPrinter;
    std::wstring font_family = usualFamily();
  };

  explicit WindowsSite(Surroundings surroundings);

  BoxAnswer showBox(const MessageBox& box) override;
  void beep() override;
  void setPointer(Pointer pointer) override;
  /// By the computer's clock, where it stands.
  Date today() override;
  /// Made anew each time one is asked for, so that every job is one of its own. None: error 482.
  Printer& systemPrinter() override;
  double twipsPerPixel() override;
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override;

 private:
  Surroundings surroundings_;
  TextMeasure measure_;
  std::unique_ptr<GdiPrinter> printer_;
  bool hourglass_ = false;
};

}  // namespace depcalc::native
