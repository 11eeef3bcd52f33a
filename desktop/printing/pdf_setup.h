// What every PDF document needs before anything is drawn.
#pragma once

#include <QGuiApplication>
#include <QPageLayout>
#include <QPdfWriter>
#include <memory>
#include <string>

#include "desktop/printing/pdf_printer.h"

namespace depcalc::desktop {

/// The application that Qt's fonts need, without a display, unless there is one. It ends with this.
class PrintingApplication {
 public:
  PrintingApplication();
  ~PrintingApplication();
  PrintingApplication(const PrintingApplication&) = delete;
  PrintingApplication& operator=(const PrintingApplication&) = delete;

  /// Whether there is a font to print with.
  [[nodiscard]] static bool hasFonts();

 private:
  char name_[8] = "depcalc";
  char option_[10] = "-platform";
  char platform_[10] = "offscreen";
  char* arguments_[4] = {name_, option_, platform_, nullptr};
  int count_ = 3;
  QtMessageHandler former_handler_ = nullptr;
  std::unique_ptr<QGuiApplication> application_;
};

QPageLayout pageLayout(PdfPaper paper);

/// Paper, title and whole twips.
void setUp(QPdfWriter& writer, PdfPaper paper, const std::string& title);

}  // namespace depcalc::desktop
