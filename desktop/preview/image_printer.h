// A printer whose pages are pictures.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QVector>

#include "controls/printer.h"

namespace depcalc::desktop {

/// A4 upright with half an inch of margin all around, which the pictures have, too.
class ImagePrinter : public Printer {
 public:
  explicit ImagePrinter(int dpi);

  void setFontSize(double points) override;
  int textWidth(std::string_view text) override;
  int textHeight(std::string_view text) override;
  int printableWidth() override;
  int printableHeight() override;
  int page() override { return page_; }
  void setPosition(int x, int y) override { position_ = {x, y}; }
  void print(std::string_view text) override;
  void paintPicture(const GridPicture& picture, int x, int y) override;
  void newPage() override { ++page_; }
  void endJob() override {}

  [[nodiscard]] const QVector<QImage>& pages() const { return pages_; }

 private:
  template <typename Draw>
  void draw(Draw draw);

  int dpi_;
  QFont family_;
  QFont font_;
  QPoint position_;
  int page_ = 1;
  QVector<QImage> pages_;
};

}  // namespace depcalc::desktop
