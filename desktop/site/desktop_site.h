// What surrounds the calculator on a desktop.
#pragma once

#include <functional>
#include <memory>

#include "controls/site.h"
#include "desktop/widgets/scale.h"

class QWidget;

namespace depcalc::desktop {

class DesktopSite : public Site {
 public:
  using Today = std::function<Date()>;
  using MakePrinter = std::function<std::unique_ptr<Printer>()>;

  /// Boxes are modal to `window`. `dpi` is the screen's logical resolution. The printer is made
  /// anew each time one is asked for, so that every job is one of its own.
  DesktopSite(QWidget& window, double dpi, Today today, MakePrinter make_printer);

  BoxAnswer showBox(const MessageBox& box) override;
  void beep() override;
  void setPointer(Pointer pointer) override;
  Date today() override { return today_(); }
  Printer& systemPrinter() override;
  double twipsPerPixel() override;
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override;

 private:
  QWidget& window_;
  Scale measure_;
  Today today_;
  MakePrinter make_printer_;
  std::unique_ptr<Printer> printer_;
  bool hourglass_ = false;
};

/// The day by the computer's clock, where it stands.
[[nodiscard]] Date todayByClock();

}  // namespace depcalc::desktop
