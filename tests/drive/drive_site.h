// What surrounds a calculator that is driven by a script.
#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <ostream>
#include <string>

#include "controls/site.h"
#include "controls/trace.h"
#include "tests/drive/page_recorder.h"
#include "tests/support/trace_lines.h"

namespace depcalc::drive {

/// A question came and no answer was queued for it. No run-time error: no trap stops it.
class Unanswered : public std::exception {
 public:
  explicit Unanswered(std::string what) : what_(std::move(what)) {}
  [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::string what_;
};

/// Prints what a user would notice, as it happens: boxes, beeps, the pointer, another view.
class DriveSite : public Site, public Trace {
 public:
  DriveSite(std::ostream& out, Date today) : out_(out), today_(today) {}

  using Answerer = std::function<BoxAnswer(const MessageBox&)>;

  void queueAnswer(BoxAnswer answer) { answers_.push_back(answer); }
  /// Answers the questions for which no answer is queued.
  void answerWith(Answerer answer) { answerer_ = std::move(answer); }
  /// Without a printer printing fails.
  void setHasPrinter(bool has_printer) { has_printer_ = has_printer; }
  [[nodiscard]] PageRecorder& recorder() { return recorder_; }

  // Site
  BoxAnswer showBox(const MessageBox& box) override;
  void beep() override { out_ << "beep\n"; }
  void setPointer(Pointer pointer) override;
  Date today() override { return today_; }
  Printer& systemPrinter() override;
  double twipsPerPixel() override { return 15; }
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override {
    return plainTextExtent(text, font, wrap_width);
  }

  // Trace
  void event(std::string_view control, std::string_view event) override;
  void box(const MessageBox& box, BoxAnswer answer) override {
    out_ << testing::boxLine(box, answer) << '\n';
  }

 private:
  std::ostream& out_;
  Date today_;
  std::deque<BoxAnswer> answers_;
  Answerer answerer_;
  bool has_printer_ = true;
  PageRecorder recorder_;
};

}  // namespace depcalc::drive
