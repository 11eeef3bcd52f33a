// A report's pages on the screen, one at a time.
#pragma once

#include <QAbstractScrollArea>
#include <memory>

#include "desktop/printing/pdf_printer.h"
#include "desktop/printing/report_pen.h"
#include "reports/pages/report_pages.h"

namespace depcalc::desktop {

/// Draws a page as the printer does, on white paper whatever the desktop's colours. The keys that
/// scroll a text go through the pages.
class ReportPreview : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit ReportPreview(QWidget* parent);

  /// Shows the first page of `report`, which is copied. None: shows `trouble` instead.
  void showReport(const Report* report, PdfPaper paper, Date today, const QString& trouble);

  [[nodiscard]] int count() const;
  /// From 0.
  [[nodiscard]] int page() const { return page_; }
  void showPage(int page);

 signals:
  void pageShown();
  /// The user clicked on a cell of the report.
  void cellPointed(std::size_t table, std::size_t row, std::size_t column);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] double scale() const;
  [[nodiscard]] QSizeF paperSize() const;
  void arrange();
  void describe();
  [[nodiscard]] QPointF paperCorner() const;
  void drawPaper(QPainter& painter) const;

  ReportPen pen_;
  Report report_;
  std::unique_ptr<ReportPages> pages_;
  PdfPaper paper_;
  QString trouble_;
  int page_ = 0;
};

}  // namespace depcalc::desktop
