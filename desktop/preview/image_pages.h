// Pages drawn into images.
#pragma once

#include <QImage>
#include <QPagedPaintDevice>
#include <QVector>

namespace depcalc::desktop {

/// A4 upright with half an inch of margin. What is drawn appears on `pages` after `finish`.
class ImagePages : public QPagedPaintDevice {
 public:
  explicit ImagePages(int dpi);

  bool newPage() override;
  [[nodiscard]] QPaintEngine* paintEngine() const override { return page_.paintEngine(); }
  void finish() { pages.push_back(page_); }

  QVector<QImage> pages;

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

 private:
  int dpi_;
  QImage page_;
};

}  // namespace depcalc::desktop
