// What surrounds the calculator on a desktop.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "controls/site.h"
#include "desktop/widgets/scale.h"

class QWidget;

class QMessageBox;

namespace depcalc::desktop {

class DesktopSite : public Site {
 public:
  using Today = std::function<Date()>;
  using MakePrinter = std::function<std::unique_ptr<Printer>()>;

  /// Boxes are modal to `window`. `dpi` is the screen's logical resolution. The printer is made
  /// anew each time one is asked for, so that every job is one of its own.
  DesktopSite(QWidget& window, double dpi, Today today, MakePrinter make_printer);

  /// Hears of each box before it is shown.
  using BoxOpens = std::function<void(QMessageBox& box, std::string_view title)>;
  void whenBoxOpens(BoxOpens hear) { box_opens_ = std::move(hear); }

  BoxAnswer showBox(const MessageBox& box) override;
  /// While `act` runs, `question` is answered so and not shown: the user has been asked already.
  void answerWhile(const MessageBox& question, BoxAnswer answer, const std::function<void()>& act);
  /// A box of the host's own; `note` stands below its text.
  BoxAnswer ask(const MessageBox& box, const QString& note = {});

  void beep() override;
  void setPointer(Pointer pointer) override;
  Date today() override { return today_(); }
  Printer& systemPrinter() override;
  /// Makes the printer now: the next job that asks for one takes it. Nothing where none is given.
  Printer* takePrinter();
  /// The printer of the last job is needed no more.
  void dropPrinter();
  double twipsPerPixel() override;
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override;

 private:
  QWidget& window_;
  Scale measure_;
  Today today_;
  MakePrinter make_printer_;
  BoxOpens box_opens_;
  std::unique_ptr<Printer> printer_;
  bool taken_ = false;  ///< and not asked for yet
  bool hourglass_ = false;
  std::optional<std::pair<MessageBox, BoxAnswer>> given_;  ///< by the user, before it is asked for
};

/// The day by the computer's clock, where it stands.
[[nodiscard]] Date todayByClock();

}  // namespace depcalc::desktop
