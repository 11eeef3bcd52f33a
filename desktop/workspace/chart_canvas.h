// Insight's chart on the screen.
#pragma once

#include <QWidget>
#include <optional>

#include "desktop/workspace/chart_reading.h"
#include "reports/charts/chart_layout.h"

namespace depcalc::desktop {

/// The values of a fiscal year stand above the lines: of the one under the pointer, or the one that
/// the arrow keys lead to.
class ChartCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit ChartCanvas(QWidget* parent = nullptr);

  void follow(const InsightSubject& subject);
  [[nodiscard]] const ChartReading& reading() const { return reading_; }

 signals:
  void copyWanted();
  void menuWanted(const QPoint& place);  ///< on the screen

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] double pixelsPerTwip() const;
  [[nodiscard]] PaperArea area() const;
  void arrange();
  void showYear();
  void pointAt(double x);

  ChartReading reading_;
  std::optional<ChartLayout> layout_;
};

}  // namespace depcalc::desktop
