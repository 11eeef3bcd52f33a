// Insight's pages, and what they ask of the window.
#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>

class QWidget;

namespace depcalc {
class DepCalcCtl;
struct WhatIfRow;
}  // namespace depcalc

namespace depcalc::desktop {

class Calculator;
struct ChartFile;
class InsightPanel;
struct InsightSubject;

/// Why an amount is what it is, the methods as a chart, and the asset by other values.
class InsightPages : public QObject {
  Q_OBJECT

 public:
  struct Doors {
    std::function<Calculator*()> calculator;  ///< that runs; null while none does
    std::function<void()> press_edit;         ///< of the screen that shows
    std::function<void(std::int32_t)> edit;   ///< an asset, from whatever screen
    std::function<void()> leave;              ///< the keys go back to the page
    std::function<QString()> folder;          ///< for the charts that are saved
    std::function<QString()> company_path;    ///< where none of them may go
  };

  InsightPages(QWidget& window, Doors doors);

  /// In the order of their tabs.
  void addTo(InsightPanel& panel);

 private:
  void saveChart(const ChartFile& file);
  [[nodiscard]] DepCalcCtl* formWith(const InsightSubject& subject);
  void use(const InsightSubject& subject, const WhatIfRow& row);

  QWidget& window_;
  Doors doors_;
};

}  // namespace depcalc::desktop
