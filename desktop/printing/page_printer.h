// A printer that draws on pages of Qt's.
#pragma once

#include <QFont>
#include <QPagedPaintDevice>
#include <QPainter>

#include "controls/printer.h"

namespace depcalc::desktop {

/// One or more jobs, one after the other, on a printer, a preview or a PDF writer: `device` is set
/// up with paper and margins and outlives this. A page begins when something is drawn on it, so a
/// job that ends behind a new page has no empty last one.
///
/// Needs a QGuiApplication; texts have its family. A device that refuses is error 482.
class PagePrinter : public Printer {
 public:
  explicit PagePrinter(QPagedPaintDevice& device);

  void setFontSize(double points) override;
  int textWidth(std::string_view text) override;
  int textHeight(std::string_view text) override;
  int printableWidth() override;
  int printableHeight() override;
  int page() override { return page_; }
  void setPosition(int x, int y) override { position_ = {x, y}; }
  void print(std::string_view text) override;
  void paintPicture(const GridPicture& picture, int x, int y) override;
  void newPage() override;
  void endJob() override;

 private:
  QPainter& painter();

  QPagedPaintDevice& device_;
  QPainter painter_;
  QFont family_;
  QFont font_;
  QPoint position_;
  int page_ = 1;
  int pages_due_ = 0;  ///< to begin before anything is drawn
};

}  // namespace depcalc::desktop
