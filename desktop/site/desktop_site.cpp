#include "desktop/site/desktop_site.h"

#include <QApplication>
#include <QDate>
#include <QMessageBox>

#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/text_block.h"
#include "values/runtime_error.h"

namespace depcalc::desktop {
namespace {

QMessageBox::StandardButtons qtButtons(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::yesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::yesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

BoxAnswer answerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return BoxAnswer::yes;
    case QMessageBox::No:
      return BoxAnswer::no;
    case QMessageBox::Cancel:
      return BoxAnswer::cancel;
    default:
      return BoxAnswer::ok;
  }
}

RuntimeError noPrinter() { return {482, "Printer error"}; }

}  // namespace

DesktopSite::DesktopSite(QWidget& window, double dpi, Today today, MakePrinter make_printer)
    : window_(window),
      measure_(dpi),
      today_(std::move(today)),
      make_printer_(std::move(make_printer)) {}

BoxAnswer DesktopSite::showBox(const MessageBox& box) {
  return given_.has_value() && given_->first == box ? given_->second : ask(box);
}

void DesktopSite::answerWhile(const MessageBox& question, BoxAnswer answer,
                              const std::function<void()>& act) {
  given_.emplace(question, answer);
  act();
  given_.reset();
}

BoxAnswer DesktopSite::ask(const MessageBox& box, const QString& note) {
  QMessageBox shown(QMessageBox::NoIcon, qtText(box.title), qtText(box.text),
                    qtButtons(box.buttons), &window_);
  shown.setTextFormat(Qt::PlainText);
  shown.setInformativeText(note);
  shown.setObjectName(QStringLiteral("CalculatorBox"));
  tidyBox(shown);
  if (box_opens_) box_opens_(shown, box.title);
  // A question over an hourglass could not be answered.
  const bool waiting = hourglass_;
  setPointer(Pointer::normal);
  const int button = shown.exec();
  if (waiting) setPointer(Pointer::hourglass);
  return answerOf(button);
}

void DesktopSite::beep() { QApplication::beep(); }

void DesktopSite::setPointer(Pointer pointer) {
  const bool hourglass = pointer == Pointer::hourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

Printer& DesktopSite::systemPrinter() {
  if (!taken_ && takePrinter() == nullptr) throw noPrinter();
  taken_ = false;
  return *printer_;
}

Printer* DesktopSite::takePrinter() {
  printer_ = make_printer_ ? make_printer_() : nullptr;
  taken_ = printer_ != nullptr;
  return printer_.get();
}

void DesktopSite::dropPrinter() {
  printer_ = nullptr;
  taken_ = false;
}

double DesktopSite::twipsPerPixel() { return measure_.twips(1); }

TextExtent DesktopSite::textExtent(std::string_view text, const Font& font, int wrap_width) {
  return measuredText(text, font, wrap_width, measure_);
}

Date todayByClock() {
  const QDate today = QDate::currentDate();
  return Date::strict(today.year(), today.month(), today.day());
}

}  // namespace depcalc::desktop
