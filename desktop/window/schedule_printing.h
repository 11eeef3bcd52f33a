// File > Print: the schedule of the whole register.
#pragma once

#include <functional>
#include <memory>

#include "desktop/window/calculator.h"
#include "desktop/window/printing.h"
#include "desktop/window/settings.h"

class QWidget;

namespace depcalc::desktop {

/// Prints the register as it is in the file, whatever screen shows, with the printer and the paper
/// that the user chose last.
class SchedulePrinting {
 public:
  struct Doors {
    std::function<std::unique_ptr<Calculator>()> calculator;  ///< one more, not started yet
    std::function<void()> report_all;  ///< shows the report that leaves nothing out
  };

  /// Both live longer than this; dialogs stand before `window`.
  SchedulePrinting(Settings& settings, QWidget& window, Doors doors)
      : settings_(settings), window_(window), doors_(std::move(doors)) {}

  void print();
  void preview();
  /// The printer for a job that asks nothing.
  [[nodiscard]] std::unique_ptr<Printer> printer() const;

 private:
  [[nodiscard]] ScheduleJob jobOf(Calculator& calculator) const;

  Settings& settings_;
  QWidget& window_;
  Doors doors_;
};

}  // namespace depcalc::desktop
